#!/usr/bin/env bash
# Every benchmark: the settings reader (Google Benchmark) and the start-up measurement.
# Usage: bench/run.sh [build dir]      QLV_BENCH_1GB=1 also reads 1 GB files.
set -euo pipefail
build=${1:-build/release}
filter='Thirteen|100MB'
[ "${QLV_BENCH_1GB:-0}" = 1 ] && filter='.'
echo "== settings reader"
"$build/bench/settings_read_bench" --benchmark_filter="$filter"
echo "== start-up"
bash "$(dirname "$0")/startup.sh" "$build" "${QLV_STARTUP_ROUNDS:-15}"
