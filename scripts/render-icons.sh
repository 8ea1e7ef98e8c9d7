#!/usr/bin/env bash
# Renders res/icons/*.svg into the .ico files beside them. Needed only after a drawing has changed: the .ico
# files are kept with the sources, so that a build needs no drawing tool.
set -euo pipefail
cd "$(dirname "$0")/../res/icons"

for tool in rsvg-convert icotool; do
    if ! command -v "$tool" >/dev/null; then
        echo "render-icons: $tool is missing (Debian: librsvg2-bin icoutils)" >&2
        exit 1
    fi
done
pictures=$(mktemp -d)
trap 'rm -rf "$pictures"' EXIT

# render SOURCE SIZE: one square picture of an icon, named so that the sizes sort.
render() {
    rsvg-convert --width "$2" --height "$2" --output "$pictures/$(printf %03d "$2").png" "$1.svg"
}

# pack ICON: all pictures into one file, the small ones as bitmaps for every reader, from 64 pixels on as PNG:
# bitmaps of that size would be 80 KB of the program.
pack() {
    local arguments=() picture
    for picture in "$pictures"/*.png; do
        case $picture in
            */064.png | */128.png | */256.png) arguments+=(--raw="$picture") ;;
            *) arguments+=("$picture") ;;
        esac
    done
    icotool --create --bit-depth=32 --output "$1.ico" "${arguments[@]}"
    rm "$pictures"/*.png
    echo "res/icons/$1.ico"
}

# In full detail the program icon would be a blur at the size of a title bar, so small sizes have their own drawing.
for size in 16 24; do render plotvane-small "$size"; done
for size in 32 48 64 128 256; do render plotvane "$size"; done
pack plotvane

for source in *.svg; do
    icon=${source%.svg}
    [[ $icon == plotvane* ]] && continue
    for size in 16 24 32; do render "$icon" "$size"; done
    if [[ $icon == fuel ]]; then render fuel 12; fi
    pack "$icon"
done
