#!/usr/bin/env bash
# Screenshots of the About window (F1 on the calendar) in English and Russian under a light and
# a dark colour scheme, with its shadow under a compositing manager.
# Usage: scripts/about-screenshots.sh build/release docs/screenshots
set -euo pipefail
build=${1:-build/release}
out=${2:-docs/screenshots}
mkdir -p "$out"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"

shoot() { # language scheme file
  xvfb_start 1000x400x24
  local work=$XVFB_WORK
  export XDG_CONFIG_HOME=$work/config LANG=en_US.UTF-8
  mkdir -p "$XDG_CONFIG_HOME/QLVCalendarLite"
  printf '[Appearance]\r\nLanguage=%s\r\nColorScheme=%s\r\nCalendarLeft=300\r\nCalendarTop=900\r\n' \
    "$1" "$2" >"$XDG_CONFIG_HOME/QLVCalendarLite/qlvcal.ini"
  xcompmgr -n >/dev/null 2>&1 &
  xvfb_track $!
  convert -size 1x1 'xc:#d8d8d4' "$work/dot.png"
  display -backdrop -background '#d8d8d4' -geometry +0+0 "$work/dot.png" >/dev/null 2>&1 &
  xvfb_track $!
  sleep 1
  env -u QT_QPA_PLATFORM "$build/qlvcallt" >/dev/null 2>&1 &
  xvfb_track $!
  local main
  main=$(xdotool search --sync --onlyvisible --name '^QLV Calendar Lite$|^Календарь КЛВ Лайт$' | head -n1)
  xdotool windowfocus --sync "$main"
  xdotool key F1
  local about
  about=$(xdotool search --sync --onlyvisible --name '^About QLV|^О программе' | head -n1)
  # The shadow comes up with the window; give both a moment to settle.
  sleep 0.8
  eval "$(xdotool getwindowgeometry --shell "$about")"
  import -window root -crop "$((WIDTH + 20))x$((HEIGHT + 20))+$((X - 8))+$((Y - 8))" +repage \
    "$out/$3"
  echo "$out/$3"
  xvfb_stop
}

shoot English Blue about-english-blue.png
shoot Russian Blue about-russian-blue.png
shoot English Black about-english-black.png
shoot Russian Black about-russian-black.png
