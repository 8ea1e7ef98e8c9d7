#!/usr/bin/env bash
# check.sh [CHECK...]: makes the package and uses it as its user would, on a fresh "machine" (a Wine prefix of its
# own). Each check is a function check_CHECK below; without arguments all of them run:
#
#   made        package.sh makes the same bytes twice
#   zip         unpacked into a folder with blanks and umlauts, it plays its sample log
#   installer   it installs without questions; its Start-menu entry starts the program in the right folder; while the
#               program runs, nothing is replaced or removed; the uninstaller leaves the user's files alone
#   upgrade     installed over an older version, it replaces the program and keeps the user's files
#   kit         package.sh tests makes the kit of Windows tests; unpacked as a user would, on a machine without any path
#               to Linux, it runs all its tests through cmd. Its lists of cases go to build/windows/windows-kit
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

all_checks=(made zip installer upgrade kit)
checks=("$@")
((${#checks[@]})) || checks=("${all_checks[@]}")
for check in "${checks[@]}"; do
    [[ " ${all_checks[*]} " == *" $check "* ]] || die "no check named $check; the checks are: ${all_checks[*]}"
done

need_packages "${build_packages[@]}" "${test_packages[@]}" "${run_packages[@]}" "${package_packages[@]}"
take_turn
package=$build/package

remote() { wine "$build/windows/plotvane-remote.exe" "$@"; }
windows_path() { winepath -w "$1"; }
expect() { [[ -e $1 ]] || die "missing: $1"; }
expect_gone() { [[ ! -e $1 ]] || die "still there: $1"; }

shown="" # the title and the twelve value boxes, as last read
drive_is_shown() {
    shown=$(remote texts)
    grep -q "drive.csv" <<<"$shown" && grep -qE "^A1  [0-9.]+ /min" <<<"$shown"
}
engine_speed_changed() { drive_is_shown && [[ $(grep "^A1" <<<"$shown") != "$1" ]]; }

# Plays the sample drive in the running program and closes the program; the folder then holds its settings.
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

# Builds the resources and the program again, because they could hold a time stamp.
make_package() {
    rm -f "$build"/windows/plotvane.exe "$build"/windows/CMakeFiles/plotvane_resources.dir/res/plotvane.rc.res
    scripts/package.sh
}

check_made() {
    make_package
    local first
    first=$(<"$package/SHA256SUMS")
    make_package >"$logs/package-again.log" || { cat "$logs/package-again.log" >&2; die "package.sh failed"; }
    [[ $(<"$package/SHA256SUMS") == "$first" ]] || die "package.sh makes different bytes when it runs again"
}

check_zip() {
    local place=$WINEPREFIX/drive_c/"Prüfstand für Öl und Maß" folder
    mkdir -p "$place"
    unzip -q "$package"/plotvane-*-win64.zip -d "$place"
    folder=$(echo "$place"/plotvane-*)
    expect "$folder/READ ME FIRST.txt"
    expect_gone "$folder/Scaling"
    grep -q 'src="data:' "$folder/manual.html" || die "the manual has no pictures"
    ! grep -oE '(src|href)="[^"]*"' "$folder/manual.html" | grep -vE 'src="data:|href="#' ||
        die "the manual refers to another file"
    say "playing in $folder"
    (cd "$folder" && exec setsid wine plotvane.exe </dev/null 9>&-) &
    groups+=($!)
    play_and_close "$folder"

    say "unpacking over it"
    change_ranges "$folder"
    local mine
    mine=$(sha256sum "$folder"/Scaling/*)
    unzip -q -o "$package"/plotvane-*-win64.zip -d "$place"
    [[ $(sha256sum "$folder"/Scaling/*) == "$mine" ]] || die "the zip has changed the user's settings"
}

# change_ranges FOLDER: as a user who wants another range for the engine speed would have left the files.
change_ranges() {
    sed -i 's/0,6000/0,5000/' "$1/Scaling/Defaults.cfg" "$1/Scaling/038-906-019-FT.SCL"
    grep -q "0,5000" "$1/Scaling/Defaults.cfg" && grep -q "0,5000" "$1/Scaling/038-906-019-FT.SCL" ||
        die "the program's settings have no range of the engine speed"
}

# install SETUP: installs without questions. Sets $folder to the installed folder and $entry to the Start-menu entry.
install() {
    watched wine "$1" /S
    folder=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/Plotvane)
    expect "$folder/plotvane.exe"
    entry=$(find "$WINEPREFIX/drive_c/users" -name Plotvane.lnk)
    expect "$entry"
}

start_by_entry() {
    (cd "$WINEPREFIX/drive_c/windows" && exec setsid wine start /unix "$entry" </dev/null 9>&-) &
    groups+=($!)
}

# refuses PROGRAM [OPTION]: fails unless PROGRAM refuses to work while Plotvane runs and changes nothing.
refuses() {
    local status=0
    watched wine "$1" /S "${@:2}" || status=$?
    ((status == 2)) || die "$1 does not refuse while the program runs, status $status"
    cmp "$folder/plotvane.exe" "$package"/plotvane-*/plotvane.exe
}

check_installer() {
    say "installing"
    install "$package"/plotvane-*-setup.exe
    expect "$folder/manual.html"
    expect "${entry%.lnk} manual.lnk"
    expect "${entry%.lnk} logs.lnk"
    expect_gone "$folder/Scaling"
    local key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Plotvane'
    wine reg query "$key" | tr -d '\r' >"$logs/installed-entry.log"
    grep -qE "Publisher +REG_SZ +The Plotvane developers$" "$logs/installed-entry.log" || die "the entry has no publisher"
    grep -qE "EstimatedSize +REG_DWORD +0x[1-9a-f]" "$logs/installed-entry.log" || die "the entry has no size"
    cmp "$folder/plotvane.exe" "$package"/plotvane-*/plotvane.exe

    say "starting from the Start menu"
    start_by_entry
    wait_for 20 remote place >/dev/null || die "the program does not start"
    refuses "$package"/plotvane-*-setup.exe
    # With _?= the uninstaller works itself; without it, it would start a copy and not wait for it.
    refuses "$folder/uninstall.exe" "_?=$(windows_path "$folder")"
    play_and_close "$folder"
    expect_gone "$WINEPREFIX/drive_c/windows/Scaling"
    echo "user" >"$folder/LOGS/mine.csv"

    say "uninstalling"
    watched wine "$folder/uninstall.exe" /S
    # The uninstaller returns at once: a copy of it does the work.
    local gone
    for gone in "$folder"/{uninstall.exe,plotvane.exe,manual.html,CHANGES.txt} "$entry" "${entry%.lnk}"{" manual"," logs"}.lnk; do
        wait_for 30 test ! -e "$gone" || die "still there: $gone"
    done
    expect "$folder/Scaling/Prefs.cfg"
    expect "$folder/LOGS/mine.csv"
    expect "$folder/labels"
}

check_upgrade() {
    local older=$build/package-older
    say "installing an older version"
    rm -rf "$older"
    cp -r "$package"/plotvane-*/ "$older"
    echo "older" | tee "$older/plotvane.exe" >"$older/manual.html"
    packaging/make-installer.sh 1.0 "$older" "$older/older.exe"
    install "$older/older.exe"
    grep -qx "older" "$folder/plotvane.exe" || die "the older version is not installed"

    # What a user may have made and changed since, including files that came with the package.
    cp -r samples/Scaling "$folder"
    local theirs=(Scaling/Defaults.cfg Scaling/038-906-019-FT.SCL LOGS/drive.csv LOGS/mine.csv labels/038-906-019.LBL)
    sed -i 's/0,6000/0,5000/' "$folder/Scaling/Defaults.cfg"
    sed -i 's/0,40,/0,30,/' "$folder/Scaling/038-906-019-FT.SCL"
    printf 'Width=320\r\nHeight=240\r\nMaxMileage=77\r\n' >"$folder/Scaling/Prefs.cfg"
    echo "; mine" >>"$folder/labels/038-906-019.LBL"
    cp "$folder/LOGS/drive.csv" "$folder/LOGS/mine.csv"
    (cd "$folder" && sha256sum "${theirs[@]}" >"$older/theirs")

    say "installing the current version over it"
    install "$package"/plotvane-*-setup.exe
    cmp "$folder/plotvane.exe" "$package"/plotvane-*/plotvane.exe
    (cd "$folder" && sha256sum --quiet -c "$older/theirs") || die "the installer has changed the user's files"
    grep -q "MaxMileage=77" "$folder/Scaling/Prefs.cfg" || die "the installer has changed the preferences"
    start_by_entry
    play_and_close "$folder"
    grep -q "MaxMileage=77" "$folder/Scaling/Prefs.cfg" || die "the program has not kept the older preferences"
    grep -q "^Width=320" "$folder/Scaling/Prefs.cfg" || die "the window has not kept its size"
}

# The kit's machine has the fonts that the tests want, and no drive that leads out of it but the one that takes no file.
check_kit() {
    local place results=$build/windows/windows-kit status=0 unpacked program name
    scripts/package.sh tests
    start_display
    prepare_wine wine-kit
    rm -f "$WINEPREFIX/dosdevices/z:"
    place=$WINEPREFIX/drive_c/"Prüfstand für Öl und Maß"
    rm -rf "$place" "$results"
    mkdir -p "$place"
    unzip -q "$package"/plotvane-*-windows-tests.zip -d "$place"
    unpacked=$(echo "$place"/plotvane-*)
    say "running the kit in $unpacked"
    (cd "$unpacked" && watched wine cmd /c run-tests.cmd nowait) | sed -u 's,\r$,,' || status=$?
    [[ -s $unpacked/report.txt ]] || die "the kit has left no report"
    cp -r "$unpacked/results" "$results"
    cp "$unpacked/report.txt" "$results"
    ((status == 0)) || { cat "$results/report.txt" >&2; die "the kit failed, status $status"; }
    for program in "$unpacked"/*_tests.exe; do
        name=$(basename "$program" .exe)
        expect "$results/$name.xml"
        grep -q "^$name " "$results/report.txt" || die "the report says nothing of $name"
    done
    grep -qE '^system .*, build [0-9]+' "$results/report.txt" || die "the report does not name the system"
    tail -n 1 "$results/report.txt" | grep -qE '^[1-9][0-9]* passed, 0 failed, [0-9]+ skipped' || die "the report's end is odd"
}

machine=""
fresh_machine() {
    [[ -n $machine ]] || start_display
    machine=$1
    export WINEPREFIX=$build/package-wine WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
    # Programs of an earlier check, or of an earlier run of this script, may still be writing as they end.
    [[ ! -d $WINEPREFIX ]] || { wineserver -k; wineserver -w; } || true
    wait_for 10 rm -rf "$WINEPREFIX" || die "$WINEPREFIX cannot be removed"
    say "making a fresh Wine prefix for $machine"
    watched timeout 120 wineboot -i >"$logs/wineboot-package.log" 2>&1 || die "Wine could not make its prefix"
}

build_preset windows plotvane-remote
for check in "${checks[@]}"; do
    if [[ $check != made && $check != kit ]]; then
        (cd "$package" && sha256sum --quiet -c SHA256SUMS) || die "the checksums differ; run scripts/package.sh"
        fresh_machine "$check"
    fi
    "check_$check"
done
say "the package passed: ${checks[*]}"
