#!/usr/bin/env bash
# fuzz.sh [SECONDS [TARGET...]]: runs the fuzzers of all readers of foreign bytes (fuzz/), or the named ones, one after
# the other, for SECONDS (60) each. Prints how many inputs each has run, how much code it has reached and what it has
# found. What it learns stays in build/fuzz/corpus, and the next run continues from there.
#
# A find is an input that made the code crash, hang or break a promise. The script minimises it, stores it in
# fuzz/finds/TARGET beside the earlier ones, where the unit tests run it from then on, and fails.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

seconds=60
if (($#)); then
    seconds=$1
    shift
fi
[[ $seconds =~ ^[1-9][0-9]*$ ]] || die "fuzz.sh [SECONDS [TARGET...]]"
targets=("$@")

need_packages g++ cmake ninja-build "${clang_packages[@]}"
exec 8>"$build/.fuzz-lock"
flock -n 8 || die "another fuzz.sh is running in $root"
say "building the fuzzers (build/fuzz)"
build_preset fuzz fuzzers
if ((${#targets[@]} == 0)); then
    for folder in fuzz/seeds/*/; do targets+=("$(basename "$folder")"); done
fi

# Files go to memory, because the fuzzers write thousands of them a second.
memory=/dev/shm
[[ -d $memory && -w $memory ]] || memory=/tmp
scratch=$(mktemp -d "$memory/plotvane-fuzz-XXXXXX")
export TMPDIR=$scratch
export UBSAN_OPTIONS=print_stacktrace=1

corpus=$build/fuzz/corpus
# fuzz TARGET OPTION... [-- CORPUS...]: an input that takes five seconds counts as a hang.
fuzz() {
    local target=$1
    shift
    watched nice -n 15 "$build/fuzz/fuzz_$target" -timeout=5 "$@"
}

# number NAME FILE: the last number of that name in a fuzzer's output; 0 if it has none.
number() {
    local found
    found=$(grep -oE "$1:? +[0-9]+" "$2" | tail -n 1 | grep -oE '[0-9]+$') || true
    printf '%s' "${found:-0}"
}

# keep TARGET FIND: minimises the find and stores it in the tree.
keep() {
    local target=$1 find=$2 small=$scratch/small
    rm -f "$small"
    fuzz "$target" -minimize_crash=1 -runs=20000 -max_total_time=60 -exact_artifact_path="$small" "$find" \
        >"$logs/fuzz-$target-minimize.log" 2>&1 || true
    [[ -s $small ]] || cp "$find" "$small"
    mkdir -p "fuzz/finds/$target"
    local name
    name=fuzz/finds/$target/$(sha1sum "$small" | cut -c 1-12)
    cp "$small" "$name"
    printf '%s' "$name"
}

finds=0
printf '\n%-16s %12s %8s %8s %8s %6s\n' target executions a-second edges inputs finds
for target in "${targets[@]}"; do
    [[ -x $build/fuzz/fuzz_$target ]] || die "there is no target $target"
    mkdir -p "$corpus/$target"
    kept=("$root/fuzz/seeds/$target")
    [[ ! -d fuzz/finds/$target ]] || kept+=("$root/fuzz/finds/$target")
    log=$logs/fuzz-$target.log
    artifacts=$scratch/artifacts-$target
    mkdir "$artifacts"

    status=0
    fuzz "$target" -max_total_time="$seconds" -max_len=8192 -print_final_stats=1 -artifact_prefix="$artifacts/" \
        "$corpus/$target" "${kept[@]}" >"$log" 2>&1 || status=$?
    found=$(find "$artifacts" -type f | wc -l)
    if ((status != 0 && found == 0)); then
        tail -n 20 "$log" >&2
        die "fuzz_$target ended with status $status, see $log"
    fi
    for artifact in "$artifacts"/*; do
        [[ -f $artifact ]] || continue
        say "a find: $(keep "$target" "$artifact"); see $log"
        grep -m 3 -E 'what\(\)|ERROR: |runtime error' "$log" >&2 || true
    done
    finds=$((finds + found))
    executions=$(number 'stat::number_of_executed_units' "$log")
    # Row by row, so that an interrupted run has printed what it knows.
    printf '%-16s %12d %8d %8d %8d %6d\n' "$target" "$executions" "$((executions / seconds))" \
        "$(number cov "$log")" "$(find "$corpus/$target" -type f | wc -l)" "$found"
done

printf '\n'
((finds == 0)) || die "$finds finds"
say "no finds"
