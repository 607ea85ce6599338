#!/usr/bin/env bash
# check.sh [--windows] <work directory>
# Installs the library with nothing but itself built, moves it to another place, and builds and runs
# a program against it there: found by find_package, and by pkg-config with a plain compiler call.
# With --windows it installs what build/windows holds, and runs the program under Wine.
set -euo pipefail

windows=
if [ "${1:-}" = --windows ]; then
    windows=yes
    shift
fi
consumer=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tree=$(cd "$consumer/../.." && pwd)
mkdir -p "$1"
work=$(cd "$1" && pwd)

quietly() {
    "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; return 1; }
}

# No test framework, no peers, no conversion library: the library alone.
install_alone() {
    quietly cmake -S "$tree" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DBUILD_TESTING=OFF -DNOLK_BUILD_EXAMPLES=OFF -DNOLK_GOOGLETEST_DIR=/nonexistent \
        -DCMAKE_INSTALL_PREFIX="$work/installed"
    quietly cmake --build "$work/build"
    quietly cmake --install "$work/build"
}

# build_consumer <name> <cmake option>...
build_consumer() {
    quietly cmake -S "$consumer" -B "$work/$1" -G Ninja -DCMAKE_BUILD_TYPE=Release "${@:2}"
    quietly cmake --build "$work/$1"
}

check_linux() {
    rm -rf "$work/installed" "$work/moved" "$work/by-cmake"
    install_alone
    mv "$work/installed" "$work/moved"
    if grep -rl "$work" "$work/moved"; then
        echo "the installed files above name the place they were built in" >&2
        return 1
    fi

    echo "-- find_package"
    build_consumer by-cmake -DCMAKE_PREFIX_PATH="$work/moved"
    "$work/by-cmake/consumer"

    echo "-- pkg-config"
    local flags library_dir
    export PKG_CONFIG_PATH=$work/moved/lib/pkgconfig
    read -ra flags <<<"$(pkg-config --cflags --libs nolk_core)"
    library_dir=$(pkg-config --variable=libdir nolk_core)
    g++ -std=c++20 "$consumer/main.cpp" "${flags[@]}" -o "$work/by-pkg-config"
    LD_LIBRARY_PATH=$library_dir "$work/by-pkg-config"
}

check_windows() {
    rm -rf "$work/windows" "$work/windows-consumer"
    quietly cmake --install "$tree/build/windows" --prefix "$work/windows"
    echo "-- find_package"
    build_consumer windows-consumer -DCMAKE_FIND_ROOT_PATH="$work/windows" \
        -DCMAKE_TOOLCHAIN_FILE="$tree/cmake/windows-toolchain.cmake"
    WINEPATH=Z:${work//\//\\}\\windows\\bin "$tree/cmake/wine-run.sh" "$tree/build/windows/wine" \
        "$work/windows-consumer/consumer.exe"
    WINEPREFIX=$tree/build/windows/wine wineserver -k >/dev/null 2>&1 || true
}

if [ -n "$windows" ]; then
    check_windows
else
    check_linux
fi
