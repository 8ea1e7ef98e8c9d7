#!/usr/bin/env bash
# bench.sh [PART...]: measures the figures of docs/performance.md, all parts or the named ones, on a display of its own.
# Prints each figure as it comes, then the tables for that page, which stay in build/bench/report.md.
#
#   size     the program, and a bare dialog built the same way: its template and nothing else
#   record   a record from bytes to slots, texts and traces, natively
#   history  a sample into the recording of the drive, and a picture of two hours, natively
#   chart    a sample on the chart, against bare calls
#   start    from the start of the process to the painted chart, and private memory, against the bare dialog
#   program  the whole program: CPU time of its process and of the Wine server for a record
#   log      a log of 500 MB: when it begins to play, and its memory
#   pace     how well a replay keeps its pace
#
# With the path of an older plotvane.exe in BEFORE, the part program measures it too, in turns with this tree's:
#
#   BEFORE=/path/to/old/plotvane.exe scripts/bench.sh program
#
# Figures from a busy machine mean nothing. Two runs compare only if the machine had nothing else to do.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

all_parts=(size record history chart start program log pace)
parts=("$@")
((${#parts[@]})) || parts=("${all_parts[@]}")
for part in "${parts[@]}"; do
    [[ " ${all_parts[*]} " == *" $part "* ]] || die "usage: scripts/bench.sh [${all_parts[*]}]"
done

watched_seconds=12  # of each run of the whole program
program_rounds=3    # of all its loads; medians are printed
log_rows=5700000    # some 500 MB

need_packages "${build_packages[@]}" "${test_packages[@]}" "${run_packages[@]}" procps
take_turn
say "building (build/bench, build/windows)"
build_preset bench record_bench history_bench
build_preset windows plotvane diagnel-sim plotvane-remote chart_bench replay_pace_bench bare_dialog start_bench \
    log_bench
bin=$build/windows
report=$build/bench/report.md
# The tallest picture has ten meters below each other.
start_display 1920x2000
prepare_wine

# Hides Wine's remarks on its own set-up.
run_wine() { wine "$@" 2> >(grep -av -e wine32 -e multiarch -e 'dpkg --add' -e '^apt-get' -e 'Read access denied' >&2); }
remote() { run_wine "$bin/plotvane-remote.exe" "$@"; }

size() {
    local name
    for name in plotvane bare_dialog; do
        printf '%-14s %8d bytes\n' "$name.exe" "$(stat -c %s "$bin/$name.exe")"
    done
    # The program must be read from disk before it can show anything. Other compilers make other sizes.
    [[ $(x86_64-w64-mingw32-g++-posix -dumpversion) == 12* ]] || return 0
    (($(stat -c %s "$bin/plotvane.exe") < 1750000)) || die "plotvane.exe of the release compiler has grown to 1,750,000 bytes"
}

record() { "$build/bench/record_bench"; }
history() { "$build/bench/history_bench"; }
chart() { run_wine "$bin/chart_bench.exe"; }
start() { run_wine "$bin/start_bench.exe"; }
pace() { run_wine "$bin/replay_pace_bench.exe"; }

# The process of that name in this prefix.
process_of() {
    local id
    for id in $(pgrep -x "$1"); do
        ! tr '\0' '\n' 2>/dev/null <"/proc/$id/environ" | grep -qxF "WINEPREFIX=$WINEPREFIX" || echo "$id"
    done
}

# User and system time of a process in milliseconds, without its finished children.
cpu_ms() {
    awk -v tick="$(getconf CLK_TCK)" '{ sub(/.*\) /, ""); print ($12 + $13) * 1000 / tick }' "/proc/$1/stat"
}

# Twenty rows a second of twelve fields, all of which change with every row. The first is the row's own number; it
# shows how many rows the program has displayed.
write_drive() {
    awk 'BEGIN {
        OFS = ","
        print "t,rpm,speed_kmh,coolant_c,supply_volt,air_mgstr,throttle_pct,charge_mbar,torque_nm,maf_gs,flow_lph," \
            "fuel_l,injection_ms"
        for (row = 0; row < 4000; ++row) {
            wave = row % 200; if (wave > 100) wave = 200 - wave
            print row / 20, row, 20 + wave, 30.5 + wave / 2, 10 + wave / 10, 100 + 5 * wave, wave / 2 + 0.5,
                1000 + 10 * wave, 3 * wave, wave / 4, 1 + wave / 10, 5 + wave / 10, wave / 5
        }
    }'
}

folder=$build/bench/folder

# play PROGRAM live|silent|fast|replay: starts the program in a fresh folder, with its data source.
play() {
    local program=$1 options=(--csv "Z:$folder/drive.csv" --rate 20)
    rm -rf "$folder"
    mkdir -p "$folder/LOGS"
    case $2 in
        silent) options+=(--fault silence@2) ;;
        fast) options[3]=200 ;;
    esac
    cd "$folder"
    if [[ $2 == replay ]]; then
        # Eight times the speed asks for 200 rows a second: 10 ms from one to the next, of which the pacing takes
        # 5 ms off for the work.
        write_log 20000 0.08 >LOGS/drive.csv
        setsid wine "$program" </dev/null 9>&- >/dev/null 2>&1 &
    else
        write_drive >drive.csv
        setsid wine "$bin/diagnel-sim.exe" --folder "Z:$folder" "${options[@]}" "Z:$program" \
            </dev/null 9>&- >/dev/null 2>&1 &
    fi
    started=$!
    groups+=("$started")
    cd "$root"
    if [[ $2 == replay ]]; then
        local log=Z:$folder/LOGS/drive.csv
        remote load "${log//\//\\}"
        remote faster
    fi
}

# The number of the record that is shown and the time of the question. The number is in the first value box, or
# follows from the log's time.
shown_record() {
    local texts
    texts=$(remote texts)
    awk -v now="$EPOCHREALTIME" '/^A1 / { count = $2 } /^time / { if ($2 != "") count = $2 / 0.08 }
        END { print count + 0, now }' <<<"$texts"
}

# cost PROGRAM SOURCE METERS [COMMAND]: puts into $cost the milliseconds of the program and of the Wine server for a
# record, and the records shown a second; without records, milliseconds a second and 0. So many meters are open, and
# that command of plotvane-remote has been given.
cost() {
    local source=$2 meters=$3 command=${4:-} meter
    play "$1" "$source"
    for ((meter = 0; meter < meters; ++meter)); do remote meter "$meter"; done
    [[ -z $command ]] || remote "$command"
    sleep 3
    local process server first last before after
    process=$(process_of plotvane.exe)
    server=$(process_of 'wineserver(64)?')
    [[ $process == +([0-9]) && $server == +([0-9]) ]] || die "not one program and one server: $process; $server"
    first=$(shown_record)
    sleep 1
    before="$EPOCHREALTIME $(cpu_ms "$process") $(cpu_ms "$server")"
    sleep "$watched_seconds"
    after="$EPOCHREALTIME $(cpu_ms "$process") $(cpu_ms "$server")"
    last=$(shown_record)
    remote close
    wait "$started" || die "$source: the program ended with $?"
    cost=$(awk -v source="$source" '{
        seconds = $8 - $5; rate = source == "silent" ? 0 : ($3 - $1) / ($4 - $2)
        units = rate ? seconds * rate : seconds
        print ($9 - $6) / units, ($10 - $7) / units, rate
    }' <<<"$first $last $before $after")
}

# What the whole program is measured with: its source, its meters, how much of the yardstick it may take, and a command
# of plotvane-remote. A goal of so much "more" is meant beyond the first load.
loads=(
    "twenty records a second|live|0|1.6"
    "the same, four meters open|live|4|2.2"
    "the same, ten meters open|live|10|3.0"
    "twenty records a second, looking back|live|0|0.77 more|look-back"
    "a replay at 200 a second, four meters open|replay|4|1.2"
    "the same without meters|replay|0|"
    "the host sends 200 a second|fast|0|"
    "no records (ms a second)|silent|0|"
)

# Each turn takes the yardstick first: a sample of bare calls on a chart, through WM_PAINT with a kept bitmap. Costs
# are divided by that of their own turn, because the machine has faster and slower minutes.
program() {
    local programs=("$bin/plotvane.exe") figures=$scratch/figures
    local round load name source meters goal command number yardstick cost
    if [[ -n ${BEFORE:-} ]]; then
        # Under the same name, by which its process is found.
        mkdir -p "$build/bench/before"
        cp "$BEFORE" "$build/bench/before/plotvane.exe"
        programs+=("$build/bench/before/plotvane.exe")
    fi
    : >"$figures"
    for ((round = 1; round <= program_rounds; ++round)); do
        for load in "${loads[@]}"; do
            IFS='|' read -r name source meters goal command <<<"$load"
            yardstick=$(run_wine "$bin/chart_bench.exe" yardstick | tr -d '\r')
            for number in "${!programs[@]}"; do
                [[ -z $command || $number == 0 ]] || continue # the older one may not know it
                cost "${programs[number]}" "$source" "$meters" "$command"
                printf '%s|%s|%s|%s %s\n' "$name" "$goal" "$number" "$yardstick" "$cost" | tee -a "$figures" |
                    sed "s/^/round $round: /" >&2
            done
        done
    done
    program_table <"$figures"
}

# Of lines NAME|GOAL|PROGRAM|YARDSTICK-US PROGRAM-MS SERVER-MS RATE, where program 0 is this tree's and 1 the older one.
program_table() {
    echo "| load | goal | in samples of bare calls | ms a record: program + Wine server | shown a second | before |"
    echo "|---|---|---|---|---|---|"
    awk -F '[|]' '
        function median(list,   values, count, i, j, kept) {
            count = split(list, values, " ")
            for (i = 2; i <= count; ++i)
                for (j = i; j > 1 && values[j] + 0 < values[j - 1] + 0; --j) {
                    kept = values[j]; values[j] = values[j - 1]; values[j - 1] = kept
                }
            return values[int((count + 1) / 2)]
        }
        {
            split($4, figure, " ")
            if (!($1 in goal)) names[++loads] = $1
            goal[$1] = $2
            key = $1 SUBSEP $3
            if (figure[4] > 0) ratios[key] = ratios[key] " " (figure[2] + figure[3]) * 1000 / figure[1]
            own[key] = own[key] " " figure[2]
            server[key] = server[key] " " figure[3]
            rate[key] = rate[key] " " figure[4]
            yardsticks = yardsticks " " figure[1]
        }
        function cost(key) {
            return sprintf("%.2f + %.2f", median(own[key]), median(server[key]))
        }
        function samples(key) { return (key in ratios) ? sprintf("%.2f", median(ratios[key])) : "-" }
        END {
            for (i = 1; i <= loads; ++i) {
                now = names[i] SUBSEP 0; old = names[i] SUBSEP 1
                before = (old in own) ? samples(old) " (" cost(old) " ms)" : ""
                figure_now = samples(now)
                if (goal[names[i]] ~ / more$/)
                    figure_now = sprintf("%.2f more", figure_now - samples(names[1] SUBSEP 0))
                printf "| %s | %s | %s | %s | %.2f | %s |\n", names[i], goal[names[i]], figure_now, cost(now),
                    median(rate[now]), before
            }
            printf "| a sample of bare calls | | 1 | %.3f | | |\n", median(yardsticks) / 1000
        }'
}

log() {
    local large=$scratch/large.csv small=$scratch/small.csv
    write_log 30000 0.001 >"$small"
    write_log "$log_rows" 0.001 >"$large"
    echo "the program"
    run_wine "$bin/log_bench.exe" "Z:${small//\//\\}" "Z:${large//\//\\}"
    echo "the portable code, natively, from end to end"
    "$build/bench/record_bench" "$large"
    rm "$large"
}

{
    printf 'Measured on %s: %s, %s processors, %s, %s, load before %s.\n' "$(date -u +%F)" \
        "$(sed -n 's/^model name.*: //p' /proc/cpuinfo | head -1)" "$(nproc)" "$(uname -sr)" \
        "$(wine --version 2>/dev/null)" "$(cut -d' ' -f1 /proc/loadavg)"
} >"$report"
for part in "${parts[@]}"; do
    say "measuring: $part"
    {
        printf '\n### %s\n\n' "$part"
        if [[ $part == program ]]; then
            "$part"
        else
            echo '```'
            "$part"
            echo '```'
        fi
    } | tr -d '\r' | tee -a "$report"
done
say "the same is in $report"
