#!/usr/bin/env bash
# Screenshots of two tooltips of the Main window: the F9 tooltip of "Settings" in English, and
# a Russian tooltip with its shadow under a compositing manager.
# Usage: scripts/tooltip-screenshots.sh build/release docs/screenshots
set -euo pipefail
build=${1:-build/release}
out=${2:-docs/screenshots}
mkdir -p "$out"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"

shoot() { # name language locale compositor(0/1) control-x control-y
  local name=$1 language=$2 locale=$3 compositor=$4 x=$5 y=$6
  xvfb_start 800x560x24
  local work=$XVFB_WORK
  export XDG_CONFIG_HOME=$work/config
  mkdir -p "$XDG_CONFIG_HOME/QLVCalendarLite"
  printf '[Appearance]\r\nLanguage=%s\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n' "$language" \
    >"$XDG_CONFIG_HOME/QLVCalendarLite/qlvcal.ini"
  if [ "$compositor" = 1 ]; then
    xsetroot -solid '#e8e8e2'
    xcompmgr -n >/dev/null 2>&1 &
    xvfb_track $!
    sleep 0.5
  fi
  LANG=$locale LC_ALL=$locale env -u QT_QPA_PLATFORM "$build/qlvcallt" >/dev/null 2>&1 &
  local app=$!
  xvfb_track "$app"
  xdotool search --sync --onlyvisible --pid "$app" >/dev/null
  sleep 1
  # The window's top-left corner is at (100, 100); rest the pointer on the control.
  xdotool mousemove 60 60
  sleep 0.3
  xdotool mousemove $((100 + x)) $((100 + y))
  # The tooltip shows one second after the pointer came to rest.
  sleep 1.8
  import -window root -crop 560x420+40+60 +repage "$out/$name.png"
  echo "$out/$name.png"
  xvfb_stop
}

# LabelSettings, and ListMonth so that the shadow falls on the window body.
shoot tooltip-f9-english English en_US.UTF-8 0 63 257
shoot tooltip-russian-shadow Russian ru_RU.UTF-8 1 147 48
