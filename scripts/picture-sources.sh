#!/usr/bin/env bash
# picture-sources.sh: says whether what the manual's pictures show has changed since they were taken. Times mean
# nothing in a fresh clone, so pictures.sh notes the sums of the files instead (picture-sources.sh note).
#
# Fails when a dialog, a text, an icon or a sample has changed: a picture shows it, so
#
#   scripts/pictures.sh manual
#
# takes them again. Code that draws often changes without any visible difference, so that only gives a note.
set -euo pipefail
cd "$(dirname "$0")/.."
notes=docs/manual/pictures

# Of each kind the files in the order of their names, with their sums.
shown() { find res samples -type f ! -name 'README.md' ! -name '*.svg' | LC_ALL=C sort | xargs -d '\n' sha256sum; }
drawing() {
    find app controls framework meter plot scaling -type f -name '*.cpp' | LC_ALL=C sort | xargs -d '\n' sha256sum
}

# changed KIND: the names of the files that are not as noted, one a line.
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
    echo "the manual's pictures show what has changed since (scripts/pictures.sh manual takes them again): ${looks[*]}"
    exit 1
fi
