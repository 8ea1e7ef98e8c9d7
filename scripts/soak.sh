#!/usr/bin/env bash
# soak.sh [MINUTES [RUN...]]: lets the real program run for long (60 minutes), and prints its resources from start to
# end: private memory, GDI objects, user objects, handles. Fails if one of them grows, if the window answers late, or if
# the program does not close within a second. The runs, all of them or the named ones, go side by side, each in a Wine
# of its own:
#
#   live     the stand-in host, twenty records a second, with four meters open
#   replay   a log of a million rows for an hour. They are a millisecond apart, so the program waits for none
#            and plays the log as fast as it can. On a slow machine that may take twice the MINUTES
#   tenfold  two hours' worth of records in twelve minutes (a fifth of MINUTES): the host sends two hundred a
#            second. The program takes twenty of them, so the pipe is always full, and the host leaves out the
#            records that have no room
#   blocks   ten thousand blocks of random and of bit-flipped text in an hour, over some hundred runs of the
#            program: it must answer, or close if a block said so
#   killed   kills program and host at a hundred random moments an hour; each time every settings file must be whole
#   modules  a thousand modules in an hour, one after the other, and as many label files that redirect in a circle
#   meters   opens and closes sixty thousand meters in an hour; they must leave nothing in memory
#   keys     presses keys at random for ten minutes an hour, half of the time live and half in a replay
#   drive    looks back at 150,000 samples for an hour, more than the recording keeps: every one that it keeps must
#            be there and exact. It takes a minute or two
#   hours    only when named: eight hours of `live` in one, by a clock that runs eight times as fast for everything in
#            that Wine. It wants a quiet machine, because answers must come as soon by that clock
#
# scripts/test.sh has a short form of each.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

all_runs=(live replay tenfold blocks killed modules meters keys drive)
usage="usage: scripts/soak.sh [MINUTES [$(IFS='|'; echo "${all_runs[*]}")|hours]...]"
minutes=${1:-60}
[[ $minutes =~ ^[1-9][0-9]*$ ]] || die "$usage"
runs=("${@:2}")
((${#runs[@]})) || runs=("${all_runs[@]}")
for run in "${runs[@]}"; do
    [[ " ${all_runs[*]} hours " == *" $run "* ]] || die "$usage"
done

clock_speed=1
warm_up=15 # seconds: every buffer has its size, the chart is full, the title stands

packages=("${build_packages[@]}" "${test_packages[@]}" "${run_packages[@]}")
[[ " ${runs[*]} " != *" hours "* ]] || packages+=(faketime)
need_packages "${packages[@]}"
for run in "${runs[@]}"; do
    exec {lock}>"$build/.soak-$run-lock"
    flock -n "$lock" || die "another soak.sh does $run in $root"
done
take_turn
say "building (build/windows)"
build_preset windows plotvane diagnel-sim plotvane-remote stress_tests surroundings_tests
# The runs use copies, so that a build meanwhile does not disturb them.
for run in "${runs[@]}"; do
    mkdir -p "$build/soak/$run"
    cp build/windows/{plotvane,diagnel-sim,plotvane-remote,stress_tests,surroundings_tests}.exe "$build/soak/$run"
done
exec 9>&- # others may build and test now

# Leaves out Wine's remarks on its own set-up.
remote() { wine "$bin/plotvane-remote.exe" "$@" 2> >(grep -a plotvane >&2); }

# start PROGRAM [OPTION...]: starts the program in a fresh working folder.
start() {
    rm -rf "$folder"
    mkdir -p "$folder/LOGS"
    cd "$folder"
    setsid wine "$bin/$1.exe" "${@:2}" >"$logs/soak-$run-program.log" 2>&1 </dev/null &
    program=$!
    cd "$root"
}

open_four_meters() {
    local slot
    for slot in 0 1 2 3; do remote meter "$slot"; done
}

# close: closes the program, and fails if that takes longer than a second of the machine's clock, including the time to
# ask for it.
close() {
    local status=0 began=${EPOCHREALTIME/./}
    remote close || return 1
    local took=$(((${EPOCHREALTIME/./} - began) / 1000))
    echo "closed within $took ms"
    wait "$program" || status=$?
    ((status == 0)) || { echo "the program ended with $status"; return 1; }
    ((took <= 1000 * clock_speed))
}

live() {
    start diagnel-sim --folder "Z:$folder" --rate 20 --loop
    open_four_meters
    sleep "$warm_up"
    remote watch "$((minutes * 60))"
    close
}

# Every process gets its time from the same faked clock, this script's own commands included.
hours() {
    minutes=$((minutes * 8)) clock_speed=8
    export minutes clock_speed warm_up run bin folder logs root
    export -f live start remote open_four_meters close
    faketime -f "+0 x$clock_speed" bash -euo pipefail -c live
}

tenfold() {
    start diagnel-sim --folder "Z:$folder" --rate 200 --speed 10 --loop
    sleep "$warm_up"
    remote watch "$((minutes * 12))"
    close
}

replay() {
    local rows=$((minutes * 1000000 / 60)) log=Z:$folder/LOGS/soak.csv
    start plotvane
    write_log "$rows" 0.001 >"$folder/LOGS/soak.csv"
    local began=$SECONDS time
    remote load "${log//\//\\}"
    sleep 3 # not longer: a short log would be over
    remote watch "$((minutes * 120))"
    time=$(remote texts | grep -a ^time)
    remote ended || { echo "$time of $((rows / 1000)) s of the log"; return 1; }
    echo "$rows rows in $((SECONDS - began)) s"
    rm "$folder/LOGS/soak.csv"
    close
}

# tests PROGRAM FILTER: runs cases of a test program; each has a variable that says how often.
tests() { wine "$bin/$1.exe" --gtest_brief=1 --gtest_filter="$2" 2>/dev/null; }

blocks() { PLOTVANE_BLOCKS=$((minutes * 10000 / 60 / 2)) tests stress_tests 'ForeignBlocks.*'; }
killed() { PLOTVANE_KILLS=$((minutes * 100 / 60 + 1)) tests surroundings_tests 'Killed.*'; }
# At each stop Wine keeps some bitmaps for ever, and has room for those of some 1700 stops.
modules() {
    PLOTVANE_MODULES=$((20 + (minutes < 60 ? minutes * 1000 / 60 : 1000))) \
        tests surroundings_tests 'OverAndOver.TheModuleChanges:OverAndOver.LabelFiles*'
}
keys() { PLOTVANE_KEYS_SECONDS=$((minutes * 5)) tests stress_tests 'In/RandomKeys.*'; }
# The recording holds 147,456 samples, so the oldest go.
drive() { PLOTVANE_SAMPLES=$((minutes < 60 ? minutes * 2500 : 150000)) tests stress_tests 'LongDrive.*'; }
meters() { PLOTVANE_METERS=$((minutes * 1000)) tests surroundings_tests 'OverAndOver.AMeter*'; }

# soak RUN: does the run. Call it in a shell of its own, which ends at the first step that fails.
soak() {
    bin=$build/soak/$1
    folder=$build/run/soak-$1
    export WINEPREFIX=$build/wine-soak-$1
    "$1"
}

start_display
for run in "${runs[@]}"; do prepare_wine "wine-soak-$run"; done
say "running for $minutes minutes: ${runs[*]}; the figures so far are in $logs/soak-*.log"
failures=0 children=()
for run in "${runs[@]}"; do
    (soak "$run") >"$logs/soak-$run.log" 2>&1 &
    children+=($!)
done
for i in "${!runs[@]}"; do
    verdict="passed"
    wait "${children[i]}" || verdict="FAILED"
    [[ $verdict == passed ]] || failures=$((failures + 1))
    printf '\n%s: %s\n' "${runs[i]}" "$verdict"
    cat "$logs/soak-${runs[i]}.log"
done
printf '\n'
((failures == 0)) || die "$failures of ${#runs[@]} runs failed"
say "done"
