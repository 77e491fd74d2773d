#!/usr/bin/env bash
# Screenshots of the Main window and its shadow under a compositing manager, on a light and on a
# dark desktop. Usage: scripts/shadow-screenshots.sh build/release docs/screenshots
set -euo pipefail
build=${1:-build/release}
out=${2:-docs/screenshots}
mkdir -p "$out"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"

shoot() { # colour name
  # A fresh server, desktop and settings for each shot.
  xvfb_start 800x560x24
  local work=$XVFB_WORK
  export XDG_CONFIG_HOME=$work/config LANG=en_US.UTF-8
  mkdir -p "$XDG_CONFIG_HOME"
  xcompmgr -n >/dev/null 2>&1 &
  xvfb_track $!
  # The desktop: a full-screen backdrop of the colour, under everything mapped after it.
  convert -size 1x1 "xc:$1" "$work/dot.png"
  display -backdrop -background "$1" -geometry +0+0 "$work/dot.png" >/dev/null 2>&1 &
  xvfb_track $!
  sleep 1
  env -u QT_QPA_PLATFORM "$build/qlvcallt" >/dev/null 2>&1 &
  xvfb_track $!
  xdotool search --sync --onlyvisible --name '^Shadow$' >/dev/null
  sleep 0.7
  import -window root "$out/shadow-$2.png"
  echo "$out/shadow-$2.png"
  xvfb_stop
}

shoot '#f2f2ee' light
shoot '#1d2330' dark
