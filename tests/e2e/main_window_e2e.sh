#!/usr/bin/env bash
# The real calendar under its own Xvfb: the copy button fills the clipboard, Ctrl+N starts a
# second calendar, Alt+Q closes and saves the window position. Every process started here is
# ended by its PID.
set -euo pipefail
exe=$(realpath "$1")
work=$(mktemp -d)
chmod 700 "$work"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
fail() {
  echo "FAIL: $*" >&2
  exit 1
}

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.05; done
export DISPLAY=":$(cat "$work/display")"
export XDG_RUNTIME_DIR="$work"
export XDG_CONFIG_HOME="$work/config"
export LC_ALL=en_US.UTF-8 LANG=en_US.UTF-8
unset QT_QPA_PLATFORM
ini="$XDG_CONFIG_HOME/QLVCalendarLite/qlvcal.ini"
mkdir -p "$(dirname "$ini")"
printf '[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n' >"$ini"

wait_windows() { # count -> prints the window ids once that many calendars are visible
  for _ in $(seq 200); do
    ids=$(xdotool search --onlyvisible --classname qlvcallt 2>/dev/null || true)
    if [ "$(echo "$ids" | grep -c .)" -ge "$1" ]; then
      echo "$ids"
      return 0
    fi
    sleep 0.05
  done
  return 1
}

"$exe" &
first=$!
pids+=("$first")
win=$(wait_windows 1) || fail "no calendar window"
sleep 0.5

echo "== copy"
# KnCopy's centre in window coordinates.
xdotool mousemove --window "$win" 329 17 click 1
sleep 0.5
expected="$(date +%-m/%-d/%Y)  $(date '+%A, %B %-d, %Y')"
got=$(xclip -o -selection clipboard)
[ "$got" = "$expected" ] || fail "clipboard held '$got', expected '$expected'"

echo "== Ctrl+N"
xdotool windowfocus --sync "$win"
xdotool key --clearmodifiers ctrl+n
ids=$(wait_windows 2) || fail "no second calendar after Ctrl+N"
second_win=$(echo "$ids" | grep -vx "$win" | head -n1)
second=$(xdotool getwindowpid "$second_win")
pids+=("$second")
[ "$second" != "$first" ] || fail "the second window belongs to the first process"
kill "$second"
wait "$second" 2>/dev/null || true

echo "== Alt+Q saves the position"
xdotool windowmove --sync "$win" 300 200
sleep 0.3
xdotool windowfocus --sync "$win"
xdotool key --clearmodifiers alt+q
for _ in $(seq 100); do kill -0 "$first" 2>/dev/null || break; sleep 0.05; done
kill -0 "$first" 2>/dev/null && fail "Alt+Q did not close the calendar"
grep -q $'^CalendarLeft=4500\r$' "$ini" || fail "CalendarLeft not saved: $(grep CalendarLeft "$ini")"
grep -q $'^CalendarTop=3000\r$' "$ini" || fail "CalendarTop not saved: $(grep CalendarTop "$ini")"
echo "all passed"
