#!/usr/bin/env bash
# run.sh [live] [OPTION...]: builds the program and plays a drive through it. The stand-in host starts it, as
# the real host would; the options are the host's (run.sh live --help), for instance --csv FILE.
#
# With a display the window is shown and stays until it is closed. Without one the drive plays for some
# twenty seconds on a display of its own; then the window's picture, its values and its files are shown.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")/.."
source scripts/common.sh

seconds_to_watch=20

# Options for the stand-in host in host_options: files by a name that it finds, and, where the caller does
# not say how the drive ends, the window left open at its end.
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

# A fresh working folder, as the host's folder would be: the samples, if there are any, and what a run writes.
make_folder() {
    folder=$build/run/$1
    rm -rf "$folder"
    mkdir -p "$folder"
    [[ ! -d samples ]] || cp -r samples/. "$folder"
}

# The window and its frame, which the window manager draws a little beside where Wine believes it.
take_picture() {
    local width height left top margin=4
    IFS=x+ read -r width height left top < <(remote place | tr -d '\r')
    left=$((left > margin ? left - margin : 0)) top=$((top > margin ? top - margin : 0))
    import -window root -crop "$((width + 2 * margin))x$((height + 2 * margin))+$left+$top" +repage "$picture"
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

# Plays without anybody looking.
watch_live() {
    local status=0 host_process texts
    picture=$build/run/live.png
    say "playing $seconds_to_watch s on a display of its own"
    setsid wine "$build/windows/diagnel-sim.exe" --folder "Z:$folder" "${host_options[@]}" </dev/null 9>&- &
    host_process=$!
    groups+=("$host_process")
    local end=$((SECONDS + seconds_to_watch))
    while ((SECONDS < end)); do
        kill -0 "$host_process" 2>/dev/null || die "the stand-in host ended early"
        sleep 0.2
    done

    take_picture
    texts=$(remote texts)
    say "closing"
    remote close
    wait "$host_process" || status=$?
    ((status == 0)) || die "the stand-in host ended with $status"
    printf '\n%s\n' "$texts"
    show_results
}

usage="usage: scripts/run.sh [live] [OPTION...]"
job=live
if (($#)) && [[ $1 != -* ]]; then
    job=$1
    shift
fi
[[ $job == live ]] || die "$usage"

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
