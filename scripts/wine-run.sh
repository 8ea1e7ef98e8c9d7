#!/usr/bin/env bash
# wine-run.sh PROGRAM [ARGUMENT...]: runs a Windows program in a Wine prefix and returns its exit status. ctest runs the
# cross-built tests through it.
#
# If DISPLAY and WINEPREFIX are set, the program runs there. Otherwise it gets a display of its own and the prefix of
# this tree, and nothing is left running afterwards.
set -euo pipefail

# Some tests limit how long files may grow, to fill the disk for one program (tests/wine/support/FullDisk.cpp). With
# this signal ignored, a write beyond the limit fails as on a full disk; otherwise the program would end.
trap '' XFSZ

if [[ -n ${DISPLAY:-} && -n ${WINEPREFIX:-} ]]; then
    exec wine "$@"
fi

place=${LC_ALL:-}
source "$(dirname "$0")/common.sh"
[[ -z ${LOCPATH:-} ]] || export LC_ALL=$place # a test that brings its own locales
exec 9>"$build/.wine-lock"
flock 9  # one program at a time: the end of one ends the prefix's server
start_display
prepare_wine
status=0
watched wine "$@" || status=$?
exit "$status"
