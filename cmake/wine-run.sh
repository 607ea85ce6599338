#!/usr/bin/env bash
# wine-run.sh <prefix> <program> [argument]...
# Runs a Windows program under Wine without a display, in a prefix of the build's own, which the
# first call makes.
set -euo pipefail

prefix=$1
shift

export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
unset DISPLAY WAYLAND_DISPLAY

windows_path() { local path=${1//\//\\}; echo "Z:$path"; }

# The compiler's own libraries and, beside the program, ours.
path=$(windows_path "$(dirname "$(readlink -f "$1")")")
for library in libstdc++-6.dll libwinpthread-1.dll; do
    file=$(x86_64-w64-mingw32-g++-posix -print-file-name=$library)
    [ -e "$file" ] || file=/usr/x86_64-w64-mingw32/lib/$library
    path="$path;$(windows_path "$(dirname "$(readlink -f "$file")")")"
done
export WINEPATH="$path${WINEPATH:+;$WINEPATH}"

# Wine's server and services outlive the first program and serve the next ones, until nothing has run
# for a minute. They must not be started by the program itself: they would hold its streams open, and
# ctest waits until these are closed.
mkdir -p "$prefix"
(
    flock 9
    if wineserver -p60 9>&-; then
        [ -e "$prefix/system.reg" ] || wineboot --init 9>&-
        wine cmd /c exit 9>&-
    fi
) 9>"$prefix.lock" </dev/null >/dev/null 2>&1 || echo "wine-run.sh: Wine did not start" >&2

exec wine "$@"
