#!/usr/bin/env bash
# Every benchmark. Usage: bench/run.sh [build dir]
#   QLV_BENCH_1GB=1 also reads 1 GB files; QLV_STARTUP_ROUNDS sets the start-up rounds (15);
#   QLV_BENCH_IDLE=1 also runs the idle measurement (60 s with the pointer away, 60 s over).
set -euo pipefail
build=${1:-build/release}
here=$(dirname "$0")
filter='Thirteen|100MB'
[ "${QLV_BENCH_1GB:-0}" = 1 ] && filter='.'
echo "== settings reader"
"$build/bench/settings_read_bench" --benchmark_filter="$filter"
echo "== one drag move"
QT_QPA_PLATFORM=offscreen "$build/bench/qlvcal_drag_bench"
echo "== tooltip layout, longest tip and 1 MB of mark-up"
"$build/bench/tip_layout_bench"
echo "== month step, January 1900 to December 2099"
QT_QPA_PLATFORM=offscreen "$build/bench/month_step_bench"
echo "== Settings window: a choice to both windows repainted, F9 to the window painted"
QT_QPA_PLATFORM=offscreen "$build/bench/settings_window_bench" --benchmark_repetitions=3 \
  --benchmark_enable_random_interleaving=true
echo "== F1 to the About window painted, on an X server"
(
  # shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
  source "$here/../scripts/xvfb.sh"
  xvfb_start
  QT_QPA_PLATFORM=xcb "$build/bench/about_open_bench"
)
echo "== start-up"
bash "$here/startup.sh" "$build" "${QLV_STARTUP_ROUNDS:-15}"
echo "== start-up with a compositor"
QLV_BENCH_COMPOSITOR=1 bash "$here/startup.sh" "$build" "${QLV_STARTUP_ROUNDS:-15}"
echo "== new instance and simultaneous closes"
bash "$here/instances.sh" "$build/qlvcallt"
if [ "${QLV_BENCH_IDLE:-0}" = 1 ]; then
  echo "== idle"
  bash "$here/idle.sh" "$build/qlvcallt"
fi
