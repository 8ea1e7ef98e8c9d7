#!/usr/bin/env bash
# Builds the program natively and for Windows and runs all tests: natively with sanitizers, under Wine on a display of
# its own, each fuzzer for some seconds, and the package as its users would. Needs no preparation and leaves nothing
# running.
#
# The last line is "N passed, N failed" (and ", N skipped" if any); the exit status is 0 only if at
# least one test ran and none failed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${run_packages[@]}" "${clang_packages[@]}" "${package_packages[@]}"
take_turn

say "building the portable code with sanitizers (build/native)"
build_preset native
say "building the fuzzers (build/fuzz)"
build_preset fuzz fuzzers
say "building the Win64 program and its tests (build/windows)"
build_preset windows

# Print only failures; the summary counts the rest.
export GTEST_BRIEF=1 GTEST_COLOR=no

# run_tests PRESET JOBS [OPTION...]: each test program writes its cases to build/PRESET/NAME.xml, and ctest writes its view of the
# programs to ctest.xml. Files of an earlier run are deleted first.
run_tests() {
    find "$build/$1" -maxdepth 1 -name '*.xml' -delete
    watched ctest --test-dir "$build/$1" --output-on-failure --no-tests=error --timeout 600 -j "$2" \
        --output-junit "$build/$1/ctest.xml" "${@:3}" || true  # judged by the summary, which reads the files
}

say "running the native tests"
run_tests native "$(nproc)"
say "running the fuzzers"
run_tests fuzz "$(nproc)"
say "running the tests under Wine"
start_display
prepare_wine
run_tests windows 1 --label-exclude kit # the test windows-kit runs these, just as another machine would

scripts/picture-sources.sh || true  # for its note; the test of that name judges the rest
scripts/test-summary.sh native fuzz windows
