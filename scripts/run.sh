#!/usr/bin/env bash
# Starts the calendar. Without a display it runs it under Xvfb for a few seconds and saves a
# screenshot instead.
set -euo pipefail
exe=${1:-build/release/qlvcallt}

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$exe"
fi

shot_dir=build/screenshots
mkdir -p "$shot_dir"
shot="$shot_dir/qlvcallt.png"
runtime=$(mktemp -d)
chmod 700 "$runtime"

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$runtime/display" >/dev/null 2>&1 &
xvfb=$!
cleanup() {
  # The calendar first (it saves on SIGTERM and needs its display for that), then the server.
  if [ -n "${app:-}" ]; then
    kill "$app" 2>/dev/null || true
    wait "$app" 2>/dev/null || true
  fi
  kill "$xvfb" 2>/dev/null || true
  wait "$xvfb" 2>/dev/null || true
  rm -rf "$runtime"
}
trap cleanup EXIT
for _ in $(seq 50); do [ -s "$runtime/display" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$runtime/display")"
export XDG_RUNTIME_DIR="$runtime"

echo "No display: running the calendar under Xvfb ($DISPLAY) for a few seconds."
"$exe" &
app=$!
xdotool search --sync --onlyvisible --pid "$app" >/dev/null 2>&1 || true
sleep 3
import -window root "$shot"
echo "Screenshot saved to $(realpath "$shot")"
