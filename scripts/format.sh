#!/usr/bin/env bash
# format.sh [--check]
# Formats all C++ files of the tree as .clang-format tells; with --check only says which are not.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

case "${1:-}" in
'') mode=(-i) ;;
--check) mode=(--dry-run -Werror) ;;
*)
    echo "usage: format.sh [--check]" >&2
    exit 2
    ;;
esac

# Versions format differently: this tree's is Debian 12's.
formatter=$(command -v clang-format-14 || command -v clang-format) || {
    echo "format.sh: no clang-format here; scripts/setup.sh --all installs it" >&2
    exit 2
}
places=()
for place in include source tests examples benchmarks fuzz tools; do
    [ ! -d "$place" ] || places+=("$place")
done
find "${places[@]}" -name '*.h' -print0 -o -name '*.cpp' -print0 | xargs -0 -P "$(nproc)" -n 16 "$formatter" "${mode[@]}"
