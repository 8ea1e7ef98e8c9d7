#!/usr/bin/env bash
# lint.sh [quick]: checks the form of the tree: clang-format, the house's own rules, no marks of unfinished work; then,
# unless it is to be quick, clang-tidy and cppcheck on every source and no warning of either compiler. Names its steps
# and prints what it finds.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

case ${1:-} in
    "") need_packages "${build_packages[@]}" "${test_packages[@]}" "${clang_packages[@]}" lld clang-format clang-tidy cppcheck ;;
    quick) need_packages clang-format ;;
    *) die "lint.sh [quick]" ;;
esac
export PLOTVANE_WERROR=ON
failures=0

say "clang-format"
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror || failures=1

say "layers, and lengths of files and functions"
scripts/check-house.sh || failures=1

say "marks of unfinished work"
# Written in halves, so that the search does not find this line.
marks="TO""DO|FIX""ME|XX""X"
git grep -nIE "\b($marks)\b|DISAB""LED_" -- . && failures=1
# A test may be skipped only if the machine lacks what it needs, and it must say what that is.
git grep -nI "GTEST_SK""IP" -- . | grep -v 'GTEST_SK''IP() << "[a-z]' && failures=1

if [[ ${1:-} == quick ]]; then
    ((failures == 0)) || die "see above"
    exit
fi

say "cppcheck"
# .cppcheck lists its false alarms. It does not know the macros of the tests, so clang-tidy checks those alone.
cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability --inline-suppr \
    --library=windows --suppressions-list=.cppcheck --error-exitcode=1 -I . -j "$(nproc)" \
    app base bench controls framework fuzz link logs meter model plot scaling tools || failures=1

# A build gives warnings, which are errors here, the compile commands and, for each source, the files of this tree that
# it reads. A source is checked again only if one of these has changed since it was clean.
clean=$build/tidy
mkdir -p "$clean"
sources_with_files() {
    # Paths are absolute, or relative to the build folder where ccache made them so.
    ninja -C "$build/$1" -t deps | awk -v root="$root/" '
        function finish() { if (line != "") print line; line = "" }
        /^[^ ]/ { finish() }
        /^ / && (sub("^ *" root, "") || sub("^ *[.][.]/[.][.]/", "")) && !/^build[/]/ { line = line (line == "" ? "" : " ") $0 }
        END { finish() }' | sort -u
}
tidy() {
    local preset=$1 source=$2
    shift
    local stamp=$clean/${source//\//_} state
    state=$(cat "$@" .clang-tidy tests/.clang-tidy | sha256sum)
    [[ ! -e $stamp || $(<"$stamp") != "$state" ]] || return 0
    if clang-tidy --quiet -p "$build/$preset" "$source" >"$stamp.log" 2>&1; then
        printf '%s' "$state" >"$stamp"
    else
        grep -v 'warnings generated' "$stamp.log" >&2
        return 1
    fi
}
export -f tidy
export build clean

# The native build comes first. The second build does not check again what the first one has checked.
for preset in native windows-clang; do
    say "building with $preset"
    build_preset "$preset"
    say "clang-tidy on the sources of $preset"
    sources_with_files "$preset" | xargs -r -P "$(nproc)" -L 1 bash -c 'tidy "$0" "$@"' "$preset" || failures=1
done

((failures == 0)) || die "see above"
say "clean"
