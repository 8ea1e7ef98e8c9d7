#!/usr/bin/env bash
# Checks the form of the tree: clang-format on every source, clang-tidy on the portable code and its tests,
# and no marks of unfinished work. Prints what it finds; silent apart from its steps when all is well.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" clang-format clang-tidy
failures=0

say "clang-format"
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror || failures=1

say "marks of unfinished work"
# Put together from halves, so that this line is not one of them.
marks="TO""DO|FIX""ME|XX""X|GTEST_SK""IP"
git grep -nIE "\b($marks)\b|DISAB""LED_" -- . && failures=1

say "clang-tidy"
# From the native build come the compile commands and, for each source, the files of this tree that it reads.
# A source stays out while none of them has changed since it was clean.
build_preset native
clean=$build/tidy
mkdir -p "$clean"
sources_with_files() {
    # Paths are absolute, or relative to the build folder where ccache made them so.
    ninja -C "$build/native" -t deps | awk -v root="$root/" '
        function finish() { if (line != "") print line; line = "" }
        /^[^ ]/ { finish() }
        /^ / && (sub("^ *" root, "") || sub("^ *[.][.]/[.][.]/", "")) { line = line (line == "" ? "" : " ") $0 }
        END { finish() }' | sort -u
}
tidy() {
    local stamp=$clean/${1//\//_} state
    state=$(cat "$@" .clang-tidy tests/.clang-tidy | sha256sum)
    [[ ! -e $stamp || $(<"$stamp") != "$state" ]] || return 0
    if clang-tidy --quiet -p "$build/native" "$1" >"$stamp.log" 2>&1; then
        printf '%s' "$state" >"$stamp"
    else
        grep -v 'warnings generated' "$stamp.log" >&2
        return 1
    fi
}
export -f tidy
export build clean
sources_with_files | xargs -r -P "$(nproc)" -L 1 bash -c 'tidy "$@"' tidy || failures=1

((failures == 0)) || die "see above"
say "clean"
