#!/usr/bin/env bash
# Measures which lines and branches of the portable code the native tests run, and prints a table of both.
# build/coverage/report/index.html shows them line by line. Fails below 95 % of the lines.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

least=95
coverage=$build/coverage

need_packages g++ cmake ninja-build gcovr "${test_packages[@]}"
exec 8>"$build/.coverage-lock"
flock -n 8 || die "another coverage.sh is running in $root"

say "building the tests with counters (build/coverage)"
build_preset coverage

say "running the native tests"
find "$coverage" -name '*.gcda' -delete  # counters add up from run to run
watched ctest --test-dir "$coverage" --output-on-failure --no-tests=error --timeout 600 \
    >"$logs/test-coverage.log" 2>&1 || {
    tail -n 40 "$logs/test-coverage.log" >&2
    die "a test failed"
}

say "counting"
# Leaves out branches that only an exception takes, because no source line contains them.
counts=$coverage/counts.json
gcovr --root "$root" --exclude-throw-branches --exclude-unreachable-branches \
    --filter '(base|model|scaling|logs|plot|meter|link|app|tools)/' --json "$counts" "$coverage" \
    >"$logs/gcovr.log" 2>&1 || { cat "$logs/gcovr.log" >&2; die "gcovr failed"; }
mkdir -p "$coverage/report"
gcovr --root "$root" -a "$counts" --branches --txt -
gcovr --root "$root" -a "$counts" --html-details "$coverage/report/index.html"
gcovr --root "$root" -a "$counts" --txt - --print-summary --fail-under-line "$least" ||
    die "less than $least % of the lines are tested"
