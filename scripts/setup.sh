#!/usr/bin/env bash
# setup.sh [--all]
# Installs what is missing on a Debian machine to build the library and run its tests; with --all
# also what the Windows build, the sanitizers, the fuzz targets, the benchmarks and the format check
# need. Says nothing when nothing is missing.
set -euo pipefail

packages=(g++ cmake ninja-build ccache googletest python3 tzdata locales)
case "${1:-}" in
'') ;;
--all)
    packages+=(
        g++-mingw-w64-x86-64-posix wine wine64       # Windows
        clang-16 libclang-rt-16-dev clang-format     # fuzz targets, format
        pkg-config gcovr                             # package consumer, coverage
        libbenchmark-dev libexpat1-dev libxml2-dev   # benchmarks and their peers
        libpugixml-dev librapidxml-dev qt6-base-dev
        libicu-dev libssl-dev zlib1g-dev
        libboost-dev libboost-regex-dev libpcre2-dev libre2-dev
        gdb                                          # pretty printers
    ) ;;
*)
    echo "usage: setup.sh [--all]" >&2
    exit 2
    ;;
esac

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query --show --showformat '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() {
    "${as_root[@]}" apt-get -q update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get -q install -y --no-install-recommends "${missing[@]}"
}
if ! install >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    exit 1
fi
