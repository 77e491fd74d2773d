#!/usr/bin/env bash
# Idle cost of a running calendar next to gsimplecal, both under one Xvfb: time to a visible
# window, resident memory, then CPU time and wake-ups (context switches) over a window of
# SECONDS (default 60) while the clock ticks.
set -euo pipefail
exe=${1:-build/release/qlvcallt}
seconds=${SECONDS_TO_MEASURE:-60}
# shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../scripts/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
export XDG_CONFIG_HOME="$work/config"
mkdir -p "$XDG_CONFIG_HOME/QLVCalendarLite"
printf '[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\n' \
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
sleep 3 # let both settle after their first paint

declare -A pid startup rss cpu0 sw0
for name in qlvcallt gsimplecal; do
  read -r pid[$name] startup[$name] <"$work/$name"
  rss[$name]=$(rss_kib "${pid[$name]}")
  cpu0[$name]=$(cpu_ticks "${pid[$name]}")
  sw0[$name]=$(switches "${pid[$name]}")
done
sleep "$seconds"
printf '%-11s %12s %10s %14s %12s\n' program "startup ms" "RSS KiB" "CPU % (1 core)" "wake-ups/s"
for name in qlvcallt gsimplecal; do
  cpu1=$(cpu_ticks "${pid[$name]}")
  sw1=$(switches "${pid[$name]}")
  awk -v n="$name" -v s="${startup[$name]}" -v r="${rss[$name]}" -v c=$((cpu1 - cpu0[$name])) \
    -v w=$((sw1 - sw0[$name])) -v t="$seconds" -v hz="$ticks" \
    'BEGIN { printf "%-11s %12d %10d %14.3f %12.1f\n", n, s, r, 100 * c / hz / t, w / t }'
done
