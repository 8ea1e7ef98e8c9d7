#!/usr/bin/env bash
# check.sh: uses what package.sh has made as its user would, on a fresh "machine" (a Wine prefix of its own).
# The zip is unpacked into a folder with blanks and umlauts and plays its sample log. The installer runs
# silently; its Start-menu entry starts the program in the right folder; the uninstaller leaves the user's
# files alone.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

need_packages "${build_packages[@]}" "${run_packages[@]}" unzip
take_turn
package=$build/package
(cd "$package" && sha256sum --quiet -c SHA256SUMS) || die "the sums do not fit; run scripts/package.sh"
build_preset windows plotvane-remote
start_display
export WINEPREFIX=$build/package-wine WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
rm -rf "$WINEPREFIX"
say "making a fresh Wine prefix"
watched timeout 120 wineboot -i >"$logs/wineboot-package.log" 2>&1 || die "Wine could not make its prefix"

remote() { wine "$build/windows/plotvane-remote.exe" "$@"; }
windows_path() { winepath -w "$1"; }
expect() { [[ -e $1 ]] || die "missing: $1"; }
expect_gone() { [[ ! -e $1 ]] || die "still there: $1"; }

shown="" # the title and the twelve value boxes, when last asked
drive_is_shown() {
    shown=$(remote texts)
    grep -q "drive.csv" <<<"$shown" && grep -qE "^A1  [0-9.]+ /min" <<<"$shown"
}
engine_speed_changed() { drive_is_shown && [[ $(grep "^A1" <<<"$shown") != "$1" ]]; }

# Plays the sample drive in the program that is running and closes it; the folder then holds its settings.
play_and_close() {
    local folder=$1
    remote load "$(windows_path "$folder/LOGS/drive.csv")"
    remote faster
    wait_for 20 drive_is_shown || die "the log is not shown: $shown"
    wait_for 20 engine_speed_changed "$(grep "^A1" <<<"$shown")" || die "the log does not play: $shown"
    head -3 <<<"$shown"
    remote close
    expect "$folder/Scaling/Prefs.cfg"
}

unpack_and_play() {
    local place=$WINEPREFIX/drive_c/"Prüfstand für Öl und Maß"
    mkdir -p "$place"
    unzip -q "$package"/plotvane-*-win64.zip -d "$place"
    local folder
    folder=$(echo "$place"/plotvane-*)
    say "playing in $folder"
    (cd "$folder" && exec setsid wine plotvane.exe </dev/null 9>&-) &
    groups+=($!)
    play_and_close "$folder"
}

install_and_remove() {
    local entry folder
    say "installing"
    watched wine "$package"/plotvane-*-setup.exe /S
    folder=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/Plotvane)
    expect "$folder/plotvane.exe"
    expect "$folder/manual.html"
    cmp "$folder/plotvane.exe" "$package"/plotvane-*/plotvane.exe
    entry=$(find "$WINEPREFIX/drive_c/users" -name Plotvane.lnk)
    expect "$entry"

    say "starting by the Start-menu entry"
    (cd "$WINEPREFIX/drive_c/windows" && exec setsid wine start /unix "$entry" </dev/null 9>&-) &
    groups+=($!)
    play_and_close "$folder"
    expect_gone "$WINEPREFIX/drive_c/windows/Scaling"

    say "installing over the user's settings"
    echo "user" >"$folder/Scaling/Defaults.cfg"
    echo "user" >"$folder/LOGS/mine.csv"
    watched wine "$package"/plotvane-*-setup.exe /S
    grep -qx "user" "$folder/Scaling/Defaults.cfg" || die "the installer overwrote the user's settings"

    say "uninstalling"
    watched wine "$folder/uninstall.exe" /S
    wait_for 30 test ! -e "$folder/uninstall.exe" || die "the uninstaller is still there"
    wait_for 30 test ! -e "$folder/plotvane.exe" || die "the program is still there"
    wait_for 30 test ! -e "$entry" || die "the Start-menu entry is still there"
    expect_gone "$folder/manual.html"
    expect_gone "$folder/pictures"
    expect "$folder/Scaling/Prefs.cfg"
    expect "$folder/Scaling/Defaults.cfg"
    expect "$folder/LOGS/mine.csv"
}

unpack_and_play
install_and_remove
say "the package is well"
