#!/usr/bin/env bash
# mutation.sh [COUNT [SEED]]: would a unit test notice? Puts COUNT (40) random faults into the portable code, one at a
# time. Each is one token: another relation, operator or constant, a condition turned round, a statement dropped
# (scripts/mutation.awk lists them). Runs the unit tests on each, natively and without sanitizers. Prints the faults
# that no test notices, each with the line before and after it was changed, and at the end how many faults the tests
# noticed.
#
# Look at each fault that lives: a test is missing, or the code can be simpler, or the change means the same. The same
# SEED (today's date) draws the same faults from the same sources. What does not compile does not count. Works on a copy
# in build/mutation; the sources themselves stay as they are.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

count=${1:-40}
seed=${2:-$(date +%F)}
[[ $# -le 2 && $count =~ ^[1-9][0-9]*$ ]] || die "mutation.sh [COUNT [SEED]]"

need_packages "${build_packages[@]}" "${test_packages[@]}" "${clang_packages[@]}" lld
work=$build/mutation
tree=$work/tree        # the copy
objects=$work/objects  # what is built of it
mkdir -p "$work"
exec 8>"$build/.mutation-lock"
flock -n 8 || die "another mutation.sh is running in $root"

say "copying the sources (build/mutation)"
rm -rf "$tree"
mkdir "$tree"
# Gives the files the present time. With their own times, objects built from an earlier copy could pass for new.
git ls-files -z --cached --others --exclude-standard | tar --null --ignore-failed-read -T - -c |
    tar -m -x -C "$tree"

say "building the unit tests without a fault"
if command -v ccache >/dev/null; then
    export CCACHE_BASEDIR=$root CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    export CCACHE_SLOPPINESS=pch_defines,time_macros
fi
# A build that is quick to make. Instead of the sanitizers, the standard library checks its indices.
watched cmake -S "$tree" -B "$objects" -G Ninja -D CMAKE_BUILD_TYPE= -D CMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld \
    -D CMAKE_C_COMPILER=clang -D CMAKE_CXX_COMPILER=clang++ -D CMAKE_CXX_FLAGS="-O0 -D_GLIBCXX_ASSERTIONS" >"$logs/configure-mutation.log" 2>&1 ||
    die "configuring failed, see $logs/configure-mutation.log"
build_tests() { watched ninja -C "$objects" unit_tests kept_input_tests >"$logs/build-mutation.log" 2>&1; }
build_tests || die "the sources do not build, see $logs/build-mutation.log"
export CCACHE_READONLY=1  # nobody needs the faulty objects again

# The tests make their folders here, so that the script can delete whatever a faulty program leaves.
scratch=$(mktemp -d)
export TMPDIR=$scratch
# run_tests SECONDS PROGRAM [FILTER]: returns 0 if every test passes, 124 if the time was over. The limits are there
# because a faulty program may want all memory or disk.
run_tests() {
    local status=0
    watched timeout -k 5 "$1" bash -c 'ulimit -v 4000000 -f 200000 -c 0; cd "$TMPDIR"; exec "$0" "$@"' \
        "$objects/$2" --gtest_fail_fast --gtest_brief=1 --gtest_filter="${3:-*}" \
        >"$logs/test-mutation.log" 2>&1 || status=$?
    find "$scratch" -mindepth 1 -delete
    return "$status"
}
began=$SECONDS
run_tests 600 unit_tests && run_tests 600 kept_input_tests ||
    die "a test fails without any fault, see $logs/test-mutation.log"
limit=$((10 + 5 * (SECONDS - began)))

# All faults: file, line, offset, length, kind, replacement.
list_faults() {
    local object file
    find "$objects/CMakeFiles/plotvane_core.dir" -name '*.cpp.o' -printf '%P\n' | sort | while read -r object; do
        file=${object%.o}
        awk -v OFS='\t' -v file="$file" -f scripts/mutation.awk "$tree/$file" | sed "s|^|$file\t|"
    done
}

tried=0 hung=0 lives=0 uncompiled=0
say "putting in $count faults, seed $seed; each test run may take $limit s"
while ((tried < count)) && IFS=$'\t' read -r file line offset length kind new <&7; do
    cp "$tree/$file" "$work/sound"
    {
        head -c $((offset - 1)) "$work/sound"
        printf '%s' "$new"
        tail -c +$((offset + length)) "$work/sound"
    } >"$tree/$file"
    if build_tests; then
        tried=$((tried + 1))
        status=0
        # The source's own tests first: they are quick, and notice most.
        { run_tests "$limit" unit_tests "$(basename "$file" .cpp)*" && run_tests "$limit" unit_tests &&
            run_tests "$limit" kept_input_tests; } || status=$?
        if ((status == 0)); then
            lives=$((lives + 1))
            printf '%s:%d: no test notices (%s)\n' "$file" "$line" "$kind"
            diff --unchanged-line-format= --old-line-format='  - %L' --new-line-format='  + %L' \
                "$work/sound" "$tree/$file" || true
        elif ((status == 124 || status == 137)); then
            hung=$((hung + 1))
        fi
        ((tried % 20)) || say "$tried faults, $lives live"
    else
        uncompiled=$((uncompiled + 1))
    fi
    cp "$work/sound" "$tree/$file"
done 7< <(list_faults | sort -R --random-source=<(yes "$seed"))

noticed=$((tried - lives))
say "$tried faults: the unit tests notice $noticed ($((100 * noticed / tried)) %), $hung of them by not ending; $lives live." \
    "$uncompiled more did not compile"
