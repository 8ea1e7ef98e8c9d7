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
marks="TO""DO|FIX""ME|XX""X|DISAB""LED_|GTEST_SK""IP"
git grep -nIE "\b($marks)" -- . && failures=1

say "clang-tidy"
# The compile commands of the native build; a file that has not changed since it was clean is left out.
watched cmake -S . --preset native >"$logs/configure-native.log" || die "see $logs/configure-native.log"
clean=$build/tidy
mkdir -p "$clean"
newest_header=$(git ls-files -z '*.h' .clang-tidy | xargs -0 ls -t | head -n 1)
tidy() {
    local stamp
    stamp=$clean/${1//\//_}
    [[ $stamp -nt $1 && $stamp -nt $newest_header ]] && return
    clang-tidy --quiet -p "$build/native" "$1" >"$stamp.log" 2>&1 && touch "$stamp" && return
    grep -v 'warnings generated' "$stamp.log" >&2
    return 1
}
export -f tidy
export build clean newest_header
sed -nE 's/^ *"file": "(.*)",?$/\1/p' "$build/native/compile_commands.json" | grep "^$root/" | sort -u |
    sed "s|^$root/||" | xargs -P "$(nproc)" -I{} bash -c 'tidy "$1"' tidy {} || failures=1

((failures == 0)) || die "see above"
say "clean"
