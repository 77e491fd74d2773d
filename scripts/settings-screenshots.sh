#!/usr/bin/env bash
# The Settings window beside the calendar, opened with F9 from the real program under Xvfb and
# openbox: in English and in Russian, and with the calendar previewing two colour schemes picked
# by keyboard in the open window. Into docs/screenshots/ (or the folder given second).
set -euo pipefail
exe=${1:-build/release/qlvcallt}
out=${2:-docs/screenshots}
mkdir -p "$out"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
openbox >/dev/null 2>&1 &
xvfb_track $!
sleep 1

shoot() { # name language locale picture [keys...]: the keys go to the open Settings window
  local name=$1 language=$2 locale=$3 picture=$4
  shift 4
  local config="$work/config-$name"
  mkdir -p "$config/QLVCalendarLite"
  # 1500 twips: the calendar at 100,100; the Settings window opens on its right.
  printf '[Appearance]\r\nLanguage=%s\r\nCalendarPicture=%s\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n' \
    "$language" "$picture" >"$config/QLVCalendarLite/qlvcal.ini"
  XDG_CONFIG_HOME="$config" LANG="$locale" LC_ALL="$locale" "$exe" &
  local app=$!
  xvfb_track "$app"
  local window
  window=$(xdotool search --sync --onlyvisible --pid "$app" | head -n1)
  xdotool windowactivate --sync "$window"
  xdotool mousemove 0 0
  sleep 0.5
  xdotool key F9
  sleep 1
  [ $# -gt 0 ] && xdotool key --delay 150 "$@"
  sleep 1
  import -window root -crop 750x330+92+92 +repage "$out/$name.png"
  kill "$app" 2>/dev/null || true
  wait "$app" 2>/dev/null || true
  echo "$out/$name.png"
}

shoot settings-english English en_US.UTF-8 Sky
shoot settings-russian Russian ru_RU.UTF-8 Sky
# Tab to the language list, Enter twice to the scheme list, Down through Green to Black.
shoot settings-preview-green English en_US.UTF-8 Sky Tab Return Return Down
shoot settings-preview-black English en_US.UTF-8 Sky Tab Return Return Down Down
