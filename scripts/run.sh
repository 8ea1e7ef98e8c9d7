#!/usr/bin/env bash
# run.sh [live] [OPTION...]: builds the program and plays a drive through it. The stand-in host starts it, as
# the real host would; the options are the host's (run.sh live --help), for instance --csv FILE.
#
# run.sh replay [FILE]: builds the program and replays a log in it, without a host (default: the sample drive).
#
# With a display, the window stays open until the user closes it. Without one, the drive plays for about twenty seconds
# on a display of its own; then the script prints where the window's picture is, its values and its files.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")/.."
source scripts/common.sh

seconds_to_watch=20
meters_width=0  # pixels of the picture beside the main window

# Puts the options for the stand-in host into host_options, with file names that it can find. If no option says how the
# drive ends, the window stays open at its end.
host_options=()
take_host_options() {
    local end_said=""
    while (($#)); do
        case $1 in
            --csv | --script)
                (($# > 1)) || die "$1 needs a file"
                local file
                file=$(cd "$caller" && realpath -e -- "$2") || die "there is no file $2"
                [[ $1 == --csv ]] || end_said=1
                host_options+=("$1" "Z:$file")
                shift
                ;;
            --loop | --keep-open | --end | --help) end_said=1 host_options+=("$1") ;;
            *) host_options+=("$1") ;;
        esac
        shift
    done
    [[ -n $end_said ]] || host_options+=(--keep-open)
}

remote() { wine "$build/windows/plotvane-remote.exe" "$@"; }

# Makes a fresh working folder like the host's, with the samples. The program writes its files there.
make_folder() {
    folder=$build/run/$1
    rm -rf "$folder"
    mkdir -p "$folder"
    [[ ! -d samples ]] || cp -r samples/. "$folder"
}

# Takes a picture of the window and the meters beside it. The margin is there because Wine does not know exactly where
# the window manager draws the frame.
take_picture() {
    local width height left top margin=4 meters=${1:-0}
    IFS=x+ read -r width height left top < <(remote place | tr -d '\r')
    import -window root -crop "$((left + width + meters + margin))x$((top + height + margin))+0+0" +repage "$picture"
}

show_results() {
    local file
    echo
    echo "the picture       $picture"
    for file in "$folder"/Scaling/*; do
        [[ ! -e $file ]] || echo "written           $file"
    done
}

live() {
    take_host_options "$@"
    make_folder live
    if [[ " ${host_options[*]} " == *" --help "* ]]; then
        wine "$build/windows/diagnel-sim.exe" --help
        return
    fi
    if [[ -n $own_display ]]; then
        watch_live
    else
        say "playing; close the window to end"
        watched wine "$build/windows/diagnel-sim.exe" --folder "Z:$folder" "${host_options[@]}"
    fi
}

# Plays on a display that nobody sees.
watch_live() {
    local host_process
    picture=$build/run/live.png
    say "playing $seconds_to_watch s on a display of its own"
    setsid wine "$build/windows/diagnel-sim.exe" --folder "Z:$folder" "${host_options[@]}" </dev/null 9>&- &
    host_process=$!
    groups+=("$host_process")
    [[ " ${host_options[*]} " == *" --form "* ]] || open_two_meters
    watch_for "$seconds_to_watch" "$host_process" "the stand-in host"
    close_and_show "$host_process" "the stand-in host"
}

# Opens the meters of the first two slots.
open_two_meters() {
    remote meter 0
    remote meter 1
    meters_width=216
}

# Waits while a program plays; fails if it ends by itself.
watch_for() {
    local end=$((SECONDS + $1))
    while ((SECONDS < end)); do
        kill -0 "$2" 2>/dev/null || die "$3 ended early"
        sleep 0.2
    done
}

# Takes the picture and the texts, closes the window and prints the results.
close_and_show() {
    local status=0 texts
    take_picture "$meters_width"
    texts=$(remote texts)
    say "closing"
    remote close
    wait "$1" || status=$?
    ((status == 0)) || die "$2 ended with $status"
    printf '\n%s\n' "$texts"
    show_results
}

replay() {
    (($# <= 1)) || die "$usage"
    local log program
    log=$(cd "$caller" && realpath -e -- "${1:-$sample_log}") || die "there is no file $1"
    make_folder replay
    cd "$folder"
    if [[ -z $own_display ]]; then
        say "choose $log in the program (Load log file); close the window to end"
        watched wine "$build/windows/plotvane.exe"
        return
    fi
    picture=$build/run/replay.png
    say "replaying at eight times the speed on a display of its own"
    setsid wine "$build/windows/plotvane.exe" </dev/null 9>&- &
    program=$!
    groups+=("$program")
    remote load "Z:${log//\//\\}"
    remote faster
    open_two_meters
    watch_for "$((seconds_to_watch / 2))" "$program" "the program"
    close_and_show "$program" "the program"
}

usage="usage: scripts/run.sh [live] [OPTION...] | replay [FILE]"
sample_log=$PWD/samples/LOGS/drive.csv
job=live
if (($#)) && [[ $1 != -* ]]; then
    job=$1
    shift
fi
[[ $job == live || $job == replay ]] || die "$usage"

need_packages "${build_packages[@]}" "${run_packages[@]}"
take_turn
say "building (build/windows)"
build_preset windows plotvane diagnel-sim plotvane-remote
own_display=""
if [[ -z ${DISPLAY:-} ]]; then
    start_display
    own_display=1
fi
prepare_wine
"$job" "$@"
