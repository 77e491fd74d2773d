#!/usr/bin/env bash
# Time from exec to the first window mapped, and resident memory one second later, for
# qlvcallt and two reference calendars (gsimplecal, yad --calendar), interleaved round by round
# under one private Xvfb. One warm-up round is not recorded. Prints the medians and the ratios.
# Usage: bench/startup.sh [build dir] [rounds]
# QLV_BENCH_PICTURE=Marble starts the calendar on that background picture. Run the script under
# dbus-run-session to measure with a session bus, as on a desktop: its address is passed on.
# QLV_BENCH_COMPOSITOR=1 runs a compositing manager (xcompmgr) first, so that the calendar comes
# up with its shadow, as on a compositing desktop. Its shadow maps just before the window does.
# QLV_BENCH_OUT=folder keeps every program's rounds there (the lines of qlv_map_wait), as
# startup-<plain|compositor>-<program>.txt, for bench/results.py.
set -euo pipefail
build=${1:-build/release}
rounds=${2:-15}
exe=$(realpath "$build/qlvcallt")
wait_map=$(realpath "$build/bench/qlv_map_wait")

# shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../scripts/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
mkdir -p "$work/home" "$work/config" "$work/runtime"
chmod 700 "$work/runtime"
display=$DISPLAY
if [ "${QLV_BENCH_COMPOSITOR:-0}" = 1 ]; then
  xcompmgr -n >/dev/null 2>&1 &
  xvfb_track $!
  # The compositor owns _NET_WM_CM_S0 once it runs; give it a moment to take it.
  sleep 0.5
  echo "with a compositing manager (xcompmgr -n)"
fi

if [ -n "${QLV_BENCH_PICTURE:-}" ]; then
  mkdir -p "$work/config/QLVCalendarLite"
  printf '[Appearance]\r\nCalendarPicture=%s\r\n' "$QLV_BENCH_PICTURE" \
    >"$work/config/QLVCalendarLite/qlvcal.ini"
  echo "calendar picture: $QLV_BENCH_PICTURE"
fi
bus=()
[ -n "${DBUS_SESSION_BUS_ADDRESS:-}" ] && bus=(DBUS_SESSION_BUS_ADDRESS="$DBUS_SESSION_BUS_ADDRESS")

# Every program sees the same small, private environment.
run() {
  env -i PATH=/usr/bin:/bin HOME="$work/home" DISPLAY="$display" LANG=en_US.UTF-8 \
    XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/runtime" "${bus[@]}" \
    NO_AT_BRIDGE=1 "$wait_map" "$@"
}

names=(qlvcallt gsimplecal yad)
declare -A cmd=(
  [qlvcallt]="$exe"
  [gsimplecal]="gsimplecal"
  [yad]="yad --calendar"
)
for name in "${names[@]}"; do : >"$work/$name.txt"; done

for round in $(seq 0 "$rounds"); do
  for name in "${names[@]}"; do
    # shellcheck disable=SC2086
    result=$(run ${cmd[$name]})
    [ "$round" -eq 0 ] && continue # warm-up
    echo "$result" >>"$work/$name.txt"
  done
done

if [ -n "${QLV_BENCH_OUT:-}" ]; then
  condition=plain
  [ "${QLV_BENCH_COMPOSITOR:-0}" = 1 ] && condition=compositor
  for name in "${names[@]}"; do cp "$work/$name.txt" "$QLV_BENCH_OUT/startup-$condition-$name.txt"; done
fi

median() { sort -n | awk '{v[NR]=$1} END {if (NR % 2) print v[(NR+1)/2]; else print (v[NR/2]+v[NR/2+1])/2}'; }
declare -A ms rss
for name in "${names[@]}"; do
  ms[$name]=$(cut -d' ' -f1 "$work/$name.txt" | median)
  rss[$name]=$(cut -d' ' -f2 "$work/$name.txt" | median)
done

echo "start-up to a mapped window, median of $rounds rounds (after one warm-up round)"
printf '%-12s %10s %12s\n' program "time ms" "RSS KiB"
for name in "${names[@]}"; do
  printf '%-12s %10s %12s\n' "$name" "${ms[$name]}" "${rss[$name]}"
done
awk -v a="${ms[qlvcallt]}" -v b="${ms[gsimplecal]}" -v c="${rss[qlvcallt]}" -v d="${rss[gsimplecal]}" \
  'BEGIN { printf "qlvcallt / gsimplecal: time %.2fx (target <= 0.90x), memory %.2fx (target <= 1.15x)\n", a/b, c/d }'
