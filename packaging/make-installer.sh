#!/usr/bin/env bash
# make-installer.sh VERSION FOLDER FILE: packs the contents of the folder into the installer FILE.
set -euo pipefail
cd "$(dirname "$0")/.."

# The picture beside the last page: the program's icon on black, the colour of its chart, in the size of that place.
picture=$(mktemp --suffix .bmp)
trap 'rm -f "$picture"' EXIT
largest=$(identify -format '%w %s\n' res/icons/plotvane.ico | sort -n | tail -n 1)
convert -size 164x314 xc:black \( "res/icons/plotvane.ico[${largest#* }]" -resize 96x96 \) -gravity north -geometry +0+60 \
    -composite -colors 128 -type palette "BMP3:$picture"
touch -r "$2" "$picture" # the installer stores the picture's time

makensis -V2 "-DVERSION=$1" "-DSOURCE=$2" "-DOUTPUT=$3" "-DPICTURE=$picture" \
    "-DICON=$PWD/res/icons/plotvane.ico" packaging/installer.nsi
