#!/usr/bin/env bash
# test-summary.sh PRESET...: adds up the results of the last test run of each preset in build/PRESET: ctest.xml (ctest's
# view: one entry for each test program) and NAME.xml (GoogleTest's view: the cases inside program NAME). An entry that
# has run several programs leaves a folder NAME with an .xml for each. An entry with neither counts as one test. Prints a
# table of the layers, names each failed test and each skipped one with its reason, and in the last line gives the
# totals. Fails if any test failed or none ran.
set -euo pipefail
cd "$(dirname "$0")/../build"

# Program, outcome ("run", "fail", "notrun"...) and seconds, one program a line.
programs() {
    sed -nE 's/.*<testcase name="([^"]*)".* time="([^"]*)" status="([^"]*)".*/\1 \3 \2/p' "$1"
}

# Passed, failed, skipped; then a line for each case that failed or was skipped, which begins with that word.
cases() {
    awk '
        function attribute(name,    text) {
            if (!match($0, " " name "=\"[^\"]*\"")) return ""
            text = substr($0, RSTART, RLENGTH)
            gsub(/^[^"]*"|"$/, "", text)
            return text
        }
        /<testcase / {
            current = attribute("classname") "." attribute("name"); counted = 0; total++
            if (attribute("status") == "notrun" || attribute("result") == "skipped") skipped++
        }
        /<failure / && !counted { counted = 1; failed++; names = names "\nfailed: " current }
        /<skipped / {
            reason = attribute("message")
            sub(/.*&#x0A;/, "", reason) # the place in the source stands before it
            names = names "\nskipped: " current ": " reason
        }
        END { printf "%d %d %d%s\n", total - failed - skipped, failed, skipped, names }' "$1"
}

passed=0 failed=0 skipped=0
table="" complaints=""
for preset in "$@"; do
    [[ -s $preset/ctest.xml ]] || { echo "error: no test ran in build/$preset" >&2; exit 1; }
    while read -r name outcome seconds; do
        p=0 f=0 s=0
        lists=("$preset/$name"/*.xml)
        if [[ -s $preset/$name.xml ]]; then
            lists=("$preset/$name.xml")
        elif [[ ! -e ${lists[0]} ]]; then
            lists=()
            [[ $outcome != run ]] || p=1
        fi
        for list in "${lists[@]}"; do
            { read -r p1 f1 s1; names=$(cat); } < <(cases "$list")
            [[ -z $names ]] || complaints+=$(sed "s/^\([a-z]*\): /  \1: $preset, $(basename "$list" .xml): /" <<<"$names")$'\n'
            p=$((p + p1)) f=$((f + f1)) s=$((s + s1))
        done
        if [[ $outcome != run ]] && ((f == 0)); then
            # A crash, a time-out, or a sanitizer's report after the last case.
            f=1
            complaints+="  failed: $preset, $name: the program itself ($outcome)"$'\n'
        fi
        table+=$(printf '%-9s %-20s %7d %7d %8d %8.1f s' "$preset" "$name" "$p" "$f" "$s" "$seconds")$'\n'
        passed=$((passed + p)) failed=$((failed + f)) skipped=$((skipped + s))
    done < <(programs "$preset/ctest.xml")
done

printf '\n%-9s %-20s %7s %7s %8s %10s\n%s\n' build tests passed failed skipped time "$table"
[[ -z $complaints ]] || printf '%s\n' "$complaints"
((passed + failed > 0)) || { echo "error: no test ran" >&2; failed=1; }
printf '%d passed, %d failed' "$passed" "$failed"
((skipped == 0)) || printf ', %d skipped' "$skipped"
printf '\n'
((failed == 0))
