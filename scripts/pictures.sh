#!/usr/bin/env bash
# pictures.sh [SCENE...]: puts the real program into every state that its users will see and keeps the pictures
# in build/pictures/SCENE-STATE.png, with the system's theme and without it (SCENE-STATE-classic.png). The scenes
# are the functions below that are called show_SCENE; without a name all of them are shown.
#
# pictures.sh manual: takes the pictures of the manual, with the theme, into docs/manual/pictures, and notes there from
# what they were taken (scripts/picture-sources.sh).
#
# Needs no preparation: it starts a display of its own, and leaves nothing running.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

pictures=$build/pictures
folder=$build/run/pictures # working folder of the program
ground='#4f6d8c'           # of the screen; no window has this colour
scene="" suffix=""         # of the pictures' names
main="" program=""         # the main window, by its X id; the first process of the program

# --- the program -----------------------------------------------------------------------------------------

remote() { wine "$build/windows/plotvane-remote.exe" "$@" || die "$scene: $*"; }

# make_folder [KEY=VALUE...]: a fresh working folder, with these preferences.
make_folder() {
    rm -rf "$folder"
    mkdir -p "$folder"
    cp -r samples/. "$folder"
    (($# == 0)) || printf '%s\r\n' "$@" >"$folder/Scaling/Prefs.cfg"
}

# windows_path NAME: of a file in the working folder.
windows_path() {
    local path=Z:$folder/$1
    printf '%s' "${path//\//\\}"
}

# Starts the program without a host; it then waits for a log.
open_program() {
    start wine "$build/windows/plotvane.exe"
    find_main
}

# play SECONDS [OPTION...]: plays the stand-in host's drive for that long, at four times its speed.
play() {
    local seconds=$1
    shift
    start wine "$build/windows/diagnel-sim.exe" --keep-open --rate 20 --speed 4 "$@"
    find_main
    sleep "$seconds"
}

start() {
    cd "$folder"
    setsid "$@" 9>&- >"$logs/pictures-program.log" 2>&1 </dev/null &
    program=$!
    cd "$root"
    groups+=("$program")
}

find_main() {
    await '^(Plotvane|<=)'
    main=$found
}

close_program() {
    remote close
    wait "$program" || die "$scene: the program failed, see $logs/pictures-program.log"
    unset 'groups[-1]'
}

# --- windows ---------------------------------------------------------------------------------------------

shows() { found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [[ -n $found ]]; }
hides() { ! shows "$1"; }
await() { wait_for 20 shows "$1" || die "$scene: no window is called $1"; }
await_end() { wait_for 20 hides "$1" || die "$scene: the window $1 stays"; }

# --- what a person does ----------------------------------------------------------------------------------

# Places in the main window in dialog units of 1.75 pixels, as in its template.
declare -A place=(
    [load]="10 222" [pause]="30 222" [stop]="50 222"
    [mileage]="32 191" [consumption]="32 204" [value-a1]="80 190" [value-a2]="140 190"
    [af-c1]="98 221" [af-c2]="154 221"
)

# The rows of controls keep their distance to the lower edge of the window, whose design is 403 pixels high.
point_at() {
    local x y height
    read -r x y <<<"${place[$1]}"
    height=$(xdotool getwindowgeometry --shell "$main" | sed -n 's/^HEIGHT=//p')
    xdotool mousemove --window "$main" "$((x * 7 / 4))" "$((y * 7 / 4 + height - 403))"
    sleep 0.1
}

click() {
    point_at "$1"
    xdotool click 1
    sleep 0.2
}

# Keys by their X names, one after the other.
press() {
    local key
    for key; do
        xdotool key "$key"
        sleep 0.1
    done
}

# choose_log NAME: chooses the log in the file dialog, and does not look what comes of it.
choose_log() {
    click load
    await '^Choose a log file$'
    xdotool type "$(windows_path "LOGS/$1")"
    press Return
    await_end '^Choose a log file$'
}

# menu KEY...: opens the system menu and presses these keys in it.
menu() {
    xdotool windowfocus --sync "$main"
    press alt+space "$@"
    sleep 0.3
}

open_preferences() {
    menu p
    await '^Preferences$'
}

# --- pictures --------------------------------------------------------------------------------------------

# shoot STATE: takes a picture of everything on the screen, without the empty part around it.
shoot() {
    sleep 0.4
    import -window root miff:- | convert - -bordercolor "$ground" -border 1 -fuzz 0 -trim +repage \
        -bordercolor "$ground" -border 12 -strip "$pictures/$scene-$1$suffix.png"
}

# shoot_part NAME LEFT TOP WIDTH HEIGHT [OPTION...]: takes a picture of a part of the main window, in dialog units as
# above. The options are those of convert.
shoot_part() {
    local name=$1 left=$2 top=$3 width=$4 height=$5 window_height
    shift 5
    xdotool mousemove 0 0 # a tip would lie over the part
    sleep 0.4
    window_height=$(xdotool getwindowgeometry --shell "$main" | sed -n 's/^HEIGHT=//p')
    import -window "$main" miff:- | convert - \
        -crop "$((width * 7 / 4))x$((height * 7 / 4))+$((left * 7 / 4))+$((top * 7 / 4 + window_height - 403))" \
        +repage "$@" -strip "$pictures/$scene-$name$suffix.png"
}

# shoot_window NAME: takes a picture of the window $found with its frame.
shoot_window() {
    sleep 0.4
    import -frame -window "$found" -strip "$pictures/$scene-$1$suffix.png"
}

# shoot_menu NAME WIDTH HEIGHT: takes a picture of the open menu: this part of the screen, from the corner of the window
# $found.
shoot_menu() {
    local x y
    sleep 0.4
    read -r x y < <(xdotool getwindowgeometry --shell "$found" | sed -nE 's/^(X|Y)=//p' | xargs)
    import -window root miff:- | convert - -crop "$2x$3+$x+$y" +repage -strip "$pictures/$scene-$1$suffix.png"
}

show_start() {
    make_folder
    open_program
    shoot hint
    await '^Plotvane v'
    shoot waiting
    click load
    await '^Choose a log file$'
    shoot file-dialog
    press Escape
    menu
    shoot system-menu
    press Escape Escape
    close_program
}

show_replay() {
    make_folder
    open_program
    remote load "$(windows_path LOGS/drive.csv)"
    remote faster
    sleep 6
    shoot running
    click pause
    shoot paused
    click pause
    sleep 1
    click stop
    shoot stopped
    close_program

    make_folder
    head -n 40 samples/LOGS/drive.csv >"$folder/LOGS/short.csv"
    open_program
    remote load "$(windows_path LOGS/short.csv)"
    remote faster
    sleep 5
    shoot ended
    remote load "$(windows_path LOGS/ten-channels.csv)"
    sleep 5
    shoot ten-channels
    close_program
}

show_live() {
    make_folder
    play 8
    shoot running
    for slot in 0 1 4 8; do remote meter "$slot"; done
    sleep 4
    shoot meters
    click af-c1
    click af-c2
    sleep 4
    shoot air-fuel
    click mileage
    put_beside 20 '^Mileage'
    click consumption
    put_beside 250 '^Consumption'
    sleep 3
    shoot fuel
    close_program
}

show_meter() {
    make_folder
    play 5
    remote meter 0
    await '^ Engine speed'
    xdotool mousemove --window "$found" 100 90 click 3
    shoot menu
    press Down Down Down Down Return
    shoot rice
    xdotool click 3
    press Down Down Down Down Down Return
    await '^Color$'
    shoot colour-dialog
    press Escape
    close_program
}

show_obd() {
    make_folder
    play 8 --form obd
    shoot ten-channels
    close_program
    make_folder
    play 8 --form obd-pid
    shoot identifiers
    close_program
}

show_preferences() {
    make_folder
    play 5
    open_preferences
    shoot open
    press Tab Tab Tab alt+Down Down Down Down
    shoot presets
    press Return Tab
    shoot chosen
    press Escape
    await_end '^Preferences$'
    menu Up Return
    await '^About'
    shoot about
    press Return
    await_end '^About'
    close_program
}

# message CAPTION STATE [KEY]: takes a picture of the box with that caption, then closes it with that key (Return).
message() {
    await "^$1"
    shoot "$2"
    press "${3:-Return}"
}

show_messages() {
    make_folder
    echo 'a log of another program' >"$folder/LOGS/other.csv"
    { head -n 12 samples/LOGS/drive.csv; printf '12,3.9,\r\n'; } >"$folder/LOGS/appended.csv"
    chmod a-w "$folder"/Scaling/*.SCL
    open_program
    choose_log other.csv
    message 'Doh! ;-\)' not-a-log
    choose_log appended.csv
    message 'Uh oh' appended-log
    message 'Error' not-saved

    open_preferences
    go_to_thickness
    xdotool type 11
    press Tab
    message 'Incorrect value' number
    close_preferences

    open_preferences
    go_to_new
    press space space # there is none after an empty one
    message 'Error' incomplete-row
    xdotool type Nm
    press Tab
    xdotool type 500
    press Tab
    xdotool type 100
    press shift+Tab shift+Tab shift+Tab space
    message 'Doh! ;-\)' max-below-min
    close_preferences
    close_program

    # A host, but no file that says where its pipe is.
    make_folder
    mkdir "$folder/elsewhere"
    start bash -c 'sleep 60 | exec wine "$@"' - "$build/windows/diagnel-sim.exe" \
        --folder "$(windows_path elsewhere)" 'C:\windows\system32\cmd.exe'
    local host=$program
    wait_for 20 test -e "$folder/elsewhere/MB-PIPE.TXT" || die "$scene: the stand-in host did not start"
    start wine "$build/windows/plotvane.exe"
    message 'Impossible to run the graphs' no-pipe
    wait "$program" || die "$scene: the program failed"
    unset 'groups[-1]'
    kill -TERM -- "-$host"
    unset 'groups[-1]'
}

# The preferences by the keyboard: as many stops of Tab as the dialog has before these controls.
go_to_thickness() { press_often Tab 17; }
go_to_new() { press_often Tab 23; }
press_often() {
    local i
    for ((i = 0; i < $2; i++)); do press "$1"; done
}
close_preferences() {
    press Escape
    await_end '^Preferences$'
}

show_colours() {
    make_folder BackColor=400000 GridColor=808080 Line0Color=4040ff Line7Color=ff8040 Thickness=2
    play 8
    remote meter 0
    remote meter 1
    sleep 1
    shoot blue
    close_program
}

show_sizes() {
    make_folder "Width=$(printf %x 634)" "Height=$(printf %x 200)"
    play 8
    shoot smallest
    menu x
    sleep 8
    shoot largest
    close_program
    make_folder "Width=$(printf %x 634)" "Height=$(printf %x 200)"
    open_program
    remote load "$(windows_path LOGS/drive.csv)"
    remote faster
    sleep 3
    shoot smallest-replay
    close_program
}

# --- the manual's ----------------------------------------------------------------------------------------

# The parts of the main window that docs/manual/main-window.md numbers: left and top of each in dialog units.
part_places=("180 90" "8 70" "62 190" "116 178" "178 198" "141 221" "287 195" "287 222" "4 198" "16 222")

# The options of convert that write the numbers there.
marks=()
mark_parts() {
    local number=0 x y place
    for place in "${part_places[@]}"; do
        number=$((number + 1))
        x=$((${place% *} * 7 / 4)) y=$((${place#* } * 7 / 4))
        marks+=(-fill '#ffe000' -stroke black -draw "circle $x,$y $((x + 9)),$y")
        marks+=(-fill black -stroke none -draw "text $((x - 4 * ${#number})),$((y + 5)) '$number'")
    done
}

# put_beside TOP TITLE: moves a meter to the right of the main window.
put_beside() {
    local x width
    await "$2"
    read -r x width < <(xdotool getwindowgeometry --shell "$main" | sed -nE 's/^(X|WIDTH)=//p' | xargs)
    xdotool windowmove "$found" "$((x + width + 16))" "$1"
}

show_manual() {
    make_folder
    open_program
    await '^Plotvane v'
    shoot start
    remote load "$(windows_path LOGS/drive.csv)"
    remote faster
    remote meter 0
    sleep 6
    shoot replay
    shoot_part replay-buttons 0 177 62 53
    close_program

    make_folder
    play 8
    remote meter 0
    remote meter 1
    sleep 3
    shoot live
    mark_parts
    shoot_part parts 0 0 362 230 -font Liberation-Sans-Bold -pointsize 14 "${marks[@]}"
    click af-c2
    sleep 2
    shoot_part air-fuel 62 213 224 17
    close_program

    make_folder
    play 5
    click value-a2
    sleep 1
    shoot_part scale 60 177 302 53
    close_program

    make_folder
    play 8
    remote meter 0
    await '^ Engine speed'
    sleep 1
    shoot_window meter
    xdotool mousemove --window "$found" 100 90 click 3
    shoot_menu meter-menu 200 248
    press Escape
    close_program

    make_folder
    play 8
    click mileage
    put_beside 20 '^Mileage'
    click consumption
    put_beside 250 '^Consumption'
    sleep 3
    shoot fuel
    close_program

    show_dip
    show_tip

    make_folder
    play 8 --form obd
    shoot ten-values
    close_program

    make_folder
    play 5
    open_preferences
    shoot preferences
    press Escape
    await_end '^Preferences$'
    close_program

    make_folder
    mapfile -t colours < <(sed -n '/^```text Prefs.cfg/,/^```$/{/^```/!p}' docs/manual/preferences.md)
    make_folder "${colours[@]}"
    play 8
    remote meter 0
    shoot colours
    close_program

    make_folder
    echo 'a log of another program' >"$folder/LOGS/other.csv"
    open_program
    await '^Plotvane v'
    choose_log other.csv
    await '^Doh! ;-\)'
    shoot_window message
    press Return
    close_program
}

# The drive up to shortly after a gear change, and the cursor on the sample in which the air mass is lowest there.
show_dip() {
    local step
    make_folder
    head -n 161 samples/LOGS/drive.csv >"$folder/LOGS/dip.csv"
    open_program
    await '^Plotvane v'
    remote load "$(windows_path LOGS/dip.csv)"
    remote faster
    remote ended
    xdotool mousemove --window "$main" 300 100 click --repeat 2 --delay 50 1
    await '^Plotvane - looking back'
    xdotool windowfocus --sync "$found" mousemove --window "$found" 10 10
    for ((step = 0; step <= 20; step++)); do press ctrl+Left; done
    press ctrl+plus
    shoot_window looking-back
    press Escape
    await_end '^Plotvane - looking back'
    close_program
}

# The tip over the chart, which stands still.
show_tip() {
    make_folder
    play 10
    click pause
    xdotool mousemove --window "$main" 300 150
    sleep 1.5
    shoot tip
    xdotool mousemove --window "$main" 10 10
    close_program
}

# keep_for_manual: makes the picture files smaller without a visible difference, and moves them into the manual.
keep_for_manual() {
    local picture manual=docs/manual/pictures
    rm -f "$manual"/*.png
    for picture in "$pictures"/manual-*.png; do
        optipng -quiet -strip all -o4 "$picture"
        mv "$picture" "$manual/$(basename "${picture#*/manual-}")"
    done
    scripts/picture-sources.sh note
    say "$(find "$manual" -name '*.png' | wc -l) pictures in $manual"
}

# --- all of it -------------------------------------------------------------------------------------------

all_scenes=(start replay live meter obd preferences messages colours sizes dip tip)
scenes=("$@")
((${#scenes[@]})) || scenes=("${all_scenes[@]}")
for scene in "${scenes[@]}"; do
    [[ " ${all_scenes[*]} manual " == *" $scene "* ]] || die "there is no scene $scene; there are: ${all_scenes[*]} manual"
done

need_packages "${build_packages[@]}" "${run_packages[@]}" xdotool optipng
take_turn
say "building (build/windows)"
build_preset windows plotvane diagnel-sim plotvane-remote

# Alt+Space must open the program's own system menu, not the window manager's.
export XDG_CONFIG_HOME=$build/run/pictures-config
mkdir -p "$XDG_CONFIG_HOME/openbox"
sed '/<keybind key="A-space">/,/<\/keybind>/d' /etc/xdg/openbox/rc.xml >"$XDG_CONFIG_HOME/openbox/rc.xml"
start_display 1920x1080
display -window root "xc:$ground" || true # exits with 1 although it has done it
prepare_wine wine-pictures

# set_theme on|off: turns what Windows calls visual styles on or off, for programs that start later.
set_theme() {
    local active=1
    [[ $1 == on ]] || active=0
    watched wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager' \
        /v ThemeActive /d "$active" /f >"$logs/pictures-theme.log" 2>&1 || die "see $logs/pictures-theme.log"
    timeout 20 wineserver -w || true
}

mkdir -p "$pictures"
(($#)) || rm -f "$pictures"/*.png
themes=(on off)
[[ ${scenes[*]} != manual ]] || themes=(on)
for theme in "${themes[@]}"; do
    set_theme "$theme"
    [[ $theme == on ]] || suffix=-classic
    for scene in "${scenes[@]}"; do
        say "$scene, theme $theme"
        "show_$scene"
    done
done
set_theme on
[[ ${scenes[*]} != manual ]] || { keep_for_manual; exit; }
say "$(find "$pictures" -name '*.png' | wc -l) pictures in $pictures"
