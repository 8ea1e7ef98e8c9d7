#!/usr/bin/env bash
# picture-sources.sh: says whether the manual's pictures are out of date. Times of files mean nothing in a fresh clone,
# so pictures.sh notes the checksums of the files instead (picture-sources.sh note).
#
# Fails when a dialog, a text, an icon or a sample has changed: a picture shows it, so
#
#   scripts/pictures.sh manual
#
# takes them again. Code that draws often changes without a visible difference; then this script only prints a note.
set -euo pipefail
cd "$(dirname "$0")/.."
notes=docs/manual/pictures

# The files of each kind with their checksums, in the order of their names.
shown() { find res samples -type f ! -name 'README.md' ! -name '*.svg' | LC_ALL=C sort | xargs -d '\n' sha256sum; }
drawing() {
    find app controls framework history meter plot scaling -type f -name '*.cpp' | LC_ALL=C sort | xargs -d '\n' sha256sum
}

# changed KIND: prints the names of the files that differ from the notes, one on each line.
changed() {
    { diff "$notes/$1.sha256" <("$1") || true; } | sed -nE 's/^[<>] [0-9a-f]{64}  //p' | sort -u
}

if [[ ${1:-} == note ]]; then
    for kind in shown drawing; do "$kind" >"$notes/$kind.sha256"; done
    exit
fi

mapfile -t code < <(changed drawing)
if ((${#code[@]})); then
    echo "note: since the manual's pictures were taken, code that draws has changed: ${code[*]}"
fi
mapfile -t looks < <(changed shown)
if ((${#looks[@]})); then
    echo "the manual's pictures show files that have changed since (scripts/pictures.sh manual takes them again): ${looks[*]}"
    exit 1
fi
