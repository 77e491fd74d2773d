#!/usr/bin/env bash
# Idle cost of a running calendar next to gsimplecal, both under one Xvfb and a session bus: time
# to a visible window, resident memory, then CPU time and wake-ups (context switches) over
# SECONDS_TO_MEASURE (default 60), twice: with the pointer away from both windows, and with it
# resting over the calendar, where its tooltip requests poll every 200 ms.
# QLV_BENCH_OUT=folder also writes idle.tsv there (program, pointer, CPU %, wake-ups/s).
set -euo pipefail
if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]; then
  exec dbus-run-session -- bash "$0" "$@"
fi
exe=${1:-build/release/qlvcallt}
seconds=${SECONDS_TO_MEASURE:-60}
# shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../scripts/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
export XDG_CONFIG_HOME="$work/config"
mkdir -p "$XDG_CONFIG_HOME/QLVCalendarLite"
printf '[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\nCalendarLeft=9000\r\nCalendarTop=3000\r\n' \
  >"$XDG_CONFIG_HOME/QLVCalendarLite/qlvcal.ini"
ticks=$(getconf CLK_TCK)

now_ms() { date +%s%3N; }
cpu_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
# Every thread's switches count: toolkits wake helper threads as well as the main one.
switches() {
  cat "/proc/$1"/task/*/status |
    awk '/^voluntary_ctxt_switches|^nonvoluntary_ctxt_switches/ { s += $2 } END { print s }'
}
rss_kib() { awk '/^VmRSS/ { print $2 }' "/proc/$1/status"; }

start_app() { # name command...
  local name=$1
  shift
  local t0
  t0=$(now_ms)
  "$@" >/dev/null 2>&1 &
  local pid=$!
  xvfb_track "$pid"
  # xdotool's own --sync polls only twice a second; poll more finely here.
  until xdotool search --onlyvisible --pid "$pid" >/dev/null 2>&1; do sleep 0.01; done
  echo "$pid $(($(now_ms) - t0))" >"$work/$name"
}

start_app qlvcallt "$exe"
start_app gsimplecal gsimplecal
# Side by side: the calendar at (600, 200), gsimplecal below left, so the pointer rests on one.
xdotool search --onlyvisible --pid "$(cut -d' ' -f1 "$work/gsimplecal")" |
  while read -r w; do xdotool windowmove "$w" 40 420; done
sleep 3 # let both settle after their first paint

declare -A pid startup rss cpu0 sw0
for name in qlvcallt gsimplecal; do
  read -r pid[$name] startup[$name] <"$work/$name"
  rss[$name]=$(rss_kib "${pid[$name]}")
done
printf '%-11s %12s %10s\n' program "startup ms" "RSS KiB"
for name in qlvcallt gsimplecal; do
  printf '%-11s %12d %10d\n' "$name" "${startup[$name]}" "${rss[$name]}"
done

# A third of the way across the calendar and half way down is on the day grid.
window=$(xdotool search --onlyvisible --pid "${pid[qlvcallt]}" | head -n1)
eval "$(xdotool getwindowgeometry --shell "$window")"
over_x=$((X + WIDTH / 3))
over_y=$((Y + HEIGHT / 2))

measure() { # phase
  for name in qlvcallt gsimplecal; do
    cpu0[$name]=$(cpu_ticks "${pid[$name]}")
    sw0[$name]=$(switches "${pid[$name]}")
  done
  sleep "$seconds"
  for name in qlvcallt gsimplecal; do
    local cpu1 sw1
    cpu1=$(cpu_ticks "${pid[$name]}")
    sw1=$(switches "${pid[$name]}")
    awk -v n="$name" -v p="$1" -v c=$((cpu1 - cpu0[$name])) -v w=$((sw1 - sw0[$name])) \
      -v t="$seconds" -v hz="$ticks" \
      'BEGIN { printf "%-11s %-14s %14.3f %12.1f\n", n, p, 100 * c / hz / t, w / t }'
    if [ -n "${QLV_BENCH_OUT:-}" ]; then
      awk -v n="$name" -v p="$1" -v c=$((cpu1 - cpu0[$name])) -v w=$((sw1 - sw0[$name])) \
        -v t="$seconds" -v hz="$ticks" \
        'BEGIN { printf "%s\t%s\t%.4f\t%.2f\n", n, p, 100 * c / hz / t, w / t }' \
        >>"$QLV_BENCH_OUT/idle.tsv"
    fi
  done
}

printf '%-11s %-14s %14s %12s\n' program pointer "CPU % (1 core)" "wake-ups/s"
xdotool mousemove 5 795
sleep 1
measure away
# Come in from outside, as a person would, and rest.
xdotool mousemove "$((X - 20))" "$over_y"
sleep 0.2
xdotool mousemove "$over_x" "$over_y"
sleep 1
measure "over calendar"
