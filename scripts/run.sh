#!/usr/bin/env bash
# Starts the calendar. Without a display it runs it under Xvfb for a few seconds and saves a
# screenshot instead.
set -euo pipefail
exe=${1:-build/app/qlvcallt}

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$exe"
fi

shot_dir=build/screenshots
mkdir -p "$shot_dir"
shot="$shot_dir/qlvcallt.png"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"
xvfb_start 1280x800x24

echo "No display: running the calendar under Xvfb ($DISPLAY) for a few seconds."
"$exe" &
app=$!
xvfb_track "$app"
xdotool search --sync --onlyvisible --pid "$app" >/dev/null 2>&1 || true
sleep 3
import -window root "$shot"
echo "Screenshot saved to $(realpath "$shot")"
