#!/usr/bin/env bash
# Every benchmark, under a session bus as on a desktop, then bench/results.md written from what
# was measured (bench/results.py). Usage: bench/run.sh [build dir]
#   QLV_BENCH_1GB=1 also reads 1 GB files; QLV_STARTUP_ROUNDS sets the start-up rounds (15);
#   QLV_BENCH_IDLE=0 leaves out the idle measurement (60 s with the pointer away, 60 s over);
#   QLV_BENCH_OUT sets the folder of the raw results (default <build dir>/bench/results).
set -euo pipefail
if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]; then
  exec dbus-run-session -- bash "$0" "$@"
fi
build=${1:-build/release}
here=$(dirname "$0")
export QLV_BENCH_OUT=${QLV_BENCH_OUT:-$build/bench/results}
rm -rf "$QLV_BENCH_OUT"
mkdir -p "$QLV_BENCH_OUT"
QLV_BENCH_OUT=$(realpath "$QLV_BENCH_OUT")
# Google Benchmark's JSON beside its usual table: `gbench name program [arguments]`.
gbench() {
  local name=$1
  shift
  "$@" --benchmark_out="$QLV_BENCH_OUT/$name.json" --benchmark_out_format=json
}
filter='Thirteen|100MB'
[ "${QLV_BENCH_1GB:-0}" = 1 ] && filter='.'
echo "== settings reader"
gbench settings_read "$build/bench/settings_read_bench" --benchmark_filter="$filter"
echo "== one drag move"
QT_QPA_PLATFORM=offscreen gbench drag "$build/bench/qlvcal_drag_bench"
echo "== tooltip layout, longest tip and 1 MB of mark-up"
gbench tip_layout "$build/bench/tip_layout_bench"
echo "== background pictures at 1x and 2x"
gbench picture "$build/bench/picture_bench"
echo "== month step, January 1900 to December 2099"
QT_QPA_PLATFORM=offscreen gbench month_step "$build/bench/month_step_bench"
echo "== Settings window: a choice to both windows repainted, F9 to the window painted"
QT_QPA_PLATFORM=offscreen gbench settings_window "$build/bench/settings_window_bench" \
  --benchmark_repetitions=3 --benchmark_enable_random_interleaving=true
echo "== F1 to the About window painted, on an X server"
(
  # shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
  source "$here/../scripts/xvfb.sh"
  xvfb_start
  QT_QPA_PLATFORM=xcb gbench about_open "$build/bench/about_open_bench"
)
echo "== start-up"
bash "$here/startup.sh" "$build" "${QLV_STARTUP_ROUNDS:-15}"
echo "== start-up with a compositor"
QLV_BENCH_COMPOSITOR=1 bash "$here/startup.sh" "$build" "${QLV_STARTUP_ROUNDS:-15}"
echo "== new instance and simultaneous closes"
bash "$here/instances.sh" "$build/qlvcallt"
if [ "${QLV_BENCH_IDLE:-1}" = 1 ]; then
  echo "== idle"
  bash "$here/idle.sh" "$build/qlvcallt"
fi
python3 "$here/results.py" "$QLV_BENCH_OUT" >"$here/results.md"
echo "== written: $here/results.md"
