#!/usr/bin/env bash
# test.sh [--all]
# Builds everything and runs all tests on Linux. With --all also under the sanitizers and on Windows
# (under Wine), the programs that use an installed package, the format check, and each fuzz target
# for a little while. Installs what that needs first.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh

all=
case "${1:-}" in
'') ;;
--all) all=--all ;;
*)
    echo "usage: test.sh [--all]" >&2
    exit 2
    ;;
esac

jobs=$(nproc)
export CMAKE_BUILD_PARALLEL_LEVEL=$jobs

# What runs the programs that were built, at the end of a build too, where they list their tests.
launcher=()

# build <preset>: silent but for warnings, errors and, on a terminal, progress.
build() {
    local quiet=(-- --quiet)
    [ ! -t 0 ] || quiet=()
    cmake --preset "$1" --log-level=WARNING >/dev/null &&
        "${launcher[@]}" cmake --build --preset "$1" "${quiet[@]}"
}

# run_tests <preset>: says which tests failed, and how many ran.
run_tests() {
    "${launcher[@]}" ctest --preset "$1" -j "$jobs" | grep -vE '^ +Start +[0-9]+: | Passed +[0-9.]+ sec$'
}

# Wine's server goes by itself when it has been idle; a run that ended leaves nothing behind.
run_windows_tests() {
    local status=0
    run_tests windows || status=$?
    WINEPREFIX=$PWD/build/windows/wine wineserver -k >/dev/null 2>&1 || true
    return "$status"
}

step "Set-up" scripts/setup.sh $all
if [ -n "$all" ]; then
    step "Format" scripts/format.sh --check
fi
step "Linux: build" build dev
step "Linux: tests" run_tests dev
if [ -n "$all" ]; then
    step "Installed package and its consumers" tests/package/check.sh build/package
    step "Address and undefined sanitizers: build" build asan
    step "Address and undefined sanitizers: tests" run_tests asan
    # Where the kernel scatters addresses widely, this compiler's thread sanitizer does not start.
    if [ "$(cat /proc/sys/vm/mmap_rnd_bits 2>/dev/null || echo 0)" -gt 28 ]; then
        launcher=(setarch "$(uname -m)" --addr-no-randomize)
    fi
    step "Thread sanitizer: build" build tsan
    step "Thread sanitizer: tests" run_tests tsan
    launcher=()
    step "Windows: build" build windows
    step "Windows: tests under Wine" run_windows_tests
    step "Windows: installed package and its consumer" tests/package/check.sh --windows build/package
    step "Fuzz targets: build" build fuzz
    step "Fuzz targets: search" run_tests fuzz
fi
finish_steps
