#!/usr/bin/env bash
# run.sh [document]
# Builds the library and shows what it makes of an XML document: the one named, or our own sample.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh"

build() {
    cd "$root"
    cmake --preset release -DBUILD_TESTING=OFF
    cmake --build --preset release --target outline
}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
echo "Building the library and examples/outline" >&2
if ! (build) >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
rm -f "$log"

exec "$root/build/release/bin/outline" "${@:-$root/examples/data/purchase-orders.xml}"
