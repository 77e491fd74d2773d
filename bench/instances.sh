#!/usr/bin/env bash
# Two figures about a second calendar, under one Xvfb:
#  1. time from Ctrl+N in the first calendar to the second window on screen (median of RUNS);
#  2. both calendars closing at the same moment, CLOSES times: the settings file must always
#     parse and hold one of the two windows' positions.
set -euo pipefail
exe=$(realpath "${1:-build/release/qlvcallt}")
runs=${RUNS:-10}
closes=${CLOSES:-50}
# shellcheck source=SCRIPTDIR/../scripts/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../scripts/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
export XDG_CONFIG_HOME="$work/config"
export LC_ALL=en_US.UTF-8
ini="$XDG_CONFIG_HOME/QLVCalendarLite/qlvcal.ini"
mkdir -p "$(dirname "$ini")"

visible() { xdotool search --onlyvisible --classname qlvcallt 2>/dev/null | grep -c . || true; }
wait_count() {
  for _ in $(seq 400); do [ "$(visible)" -ge "$1" ] && return 0; sleep 0.005; done
  return 1
}
wait_gone() { for _ in $(seq 400); do kill -0 "$1" 2>/dev/null || return 0; sleep 0.01; done; }

printf '[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\n' >"$ini"
"$exe" &
first=$!
xvfb_track "$first"
wait_count 1
win=$(xdotool search --onlyvisible --pid "$first" | head -n1)
sleep 0.5
times=()
for _ in $(seq "$runs"); do
  xdotool windowfocus --sync "$win"
  t0=$(date +%s%N)
  xdotool key --clearmodifiers ctrl+n
  wait_count 2
  t1=$(date +%s%N)
  times+=($(((t1 - t0) / 1000000)))
  other=$(xdotool search --onlyvisible --classname qlvcallt | grep -vx "$win" | head -n1)
  pid=$(xdotool getwindowpid "$other")
  kill "$pid"
  wait_gone "$pid"
done
kill "$first"
wait_gone "$first"
median=$(printf '%s\n' "${times[@]}" | sort -n | awk '{ a[NR] = $1 } END { print a[int((NR + 1) / 2)] }')
echo "Ctrl+N to second window visible: median ${median} ms over $runs runs (all: ${times[*]})"

bad=0
for i in $(seq "$closes"); do
  "$exe" &
  a=$!
  "$exe" &
  b=$!
  xvfb_track "$a" "$b"
  for _ in $(seq 400); do
    wa=$(xdotool search --onlyvisible --pid "$a" 2>/dev/null | head -n1 || true)
    wb=$(xdotool search --onlyvisible --pid "$b" 2>/dev/null | head -n1 || true)
    [ -n "$wa" ] && [ -n "$wb" ] && break
    sleep 0.01
  done
  xdotool windowmove --sync "$wa" 100 100
  xdotool windowmove --sync "$wb" 500 300
  sleep 0.2
  # Both told to close at the same moment, as at the end of a session: one SIGTERM to the two.
  # (Alt+Q through xdotool cannot do this: Qt hands a key to its focused window, so both
  # presses would reach the same calendar.)
  kill -TERM "$a" "$b"
  wait_gone "$a"
  wait_gone "$b"
  if kill -0 "$a" 2>/dev/null || kill -0 "$b" 2>/dev/null; then
    echo "run $i: a calendar did not close within 4 s"
    bad=$((bad + 1))
    kill -KILL "$a" "$b" 2>/dev/null || true
    continue
  fi
  # One read of the file, so that the check itself never straddles two versions of it.
  content=$(tr -d '\r' <"$ini")
  left=$(grep -a '^CalendarLeft=' <<<"$content" | cut -d= -f2)
  top=$(grep -a '^CalendarTop=' <<<"$content" | cut -d= -f2)
  lines=$(grep -c . <<<"$content")
  keys=0
  for key in Language ColorScheme FirstWeekDay CalendarBorderWidth CalendarPicture CalendarLeft \
    CalendarTop CalendarAlignToCenter CalendarTopmost; do
    [ "$(grep -ac "^$key=" <<<"$content")" = 1 ] && keys=$((keys + 1))
  done
  if [ "$(grep -ac '^\[Appearance\]$' <<<"$content")" != 1 ] || [ "$keys" != 9 ] ||
    ! { [ "$left/$top" = "1500/1500" ] || [ "$left/$top" = "7500/4500" ]; }; then
    bad=$((bad + 1))
    echo "run $i: file not as expected (position $left/$top, $lines lines)"
  fi
done
echo "simultaneous closes: $closes runs, $bad with a bad settings file"
