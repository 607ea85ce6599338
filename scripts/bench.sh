#!/usr/bin/env bash
# bench.sh [xml|strings|values|regex] [option of Google Benchmark]...
# Builds the benchmarks of XML, or of another room, in Release, runs them and prints how we compare
# with the peers, row by row. For one row: scripts/bench.sh xml --benchmark_filter=soap/
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

room=xml
case "${1:-}" in
xml | strings | values | regex)
    room=$1
    shift
    ;;
esac
case "$room" in
xml) programs=(xml_benchmarks) ;;
strings) programs=(cstring_benchmarks ustring_benchmarks transcoding_benchmarks encoder_benchmarks) ;;
values) programs=(date_time_benchmarks decimal_benchmarks iso8601_benchmarks) ;;
regex) programs=(regex_benchmarks) ;;
esac

scripts/setup.sh --all
build=${NOLK_BENCH_DIR:-build/benchmarks}
cmake -S . -B "$build" -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_TESTING=OFF -DNOLK_BUILD_EXAMPLES=OFF -DNOLK_BUILD_BENCHMARKS=ON >/dev/null
cmake --build "$build" --target "${programs[@]}" -- --quiet

# Short repetitions in random order: what else the machine does then hits all alike.
results=()
for program in "${programs[@]}"; do
    results+=("$build/$program.json")
    "$build/bin/$program" --benchmark_repetitions=5 --benchmark_min_time=0.1 \
        --benchmark_enable_random_interleaving=true --benchmark_out="$build/$program.json" \
        --benchmark_out_format=json "$@" >/dev/null
done
python3 benchmarks/ratios.py "$room" "${results[@]}"
