#!/usr/bin/env bash
# bench.sh [option of Google Benchmark]...
# Builds the benchmarks in Release, runs them and prints how we compare with the peers, row by row.
# For one row: scripts/bench.sh --benchmark_filter=soap/
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/setup.sh --all
build=${NOLK_BENCH_DIR:-build/benchmarks}
cmake -S . -B "$build" -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_TESTING=OFF -DNOLK_BUILD_EXAMPLES=OFF -DNOLK_BUILD_BENCHMARKS=ON >/dev/null
cmake --build "$build" --target xml_benchmarks -- --quiet

# Short repetitions in random order: what else the machine does then hits all alike.
"$build/bin/xml_benchmarks" --benchmark_repetitions=5 --benchmark_min_time=0.1 \
    --benchmark_enable_random_interleaving=true --benchmark_out="$build/results.json" \
    --benchmark_out_format=json "$@" >/dev/null
python3 benchmarks/ratios.py "$build/results.json"
