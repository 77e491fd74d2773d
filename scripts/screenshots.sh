#!/usr/bin/env bash
# Takes screenshots of the Main window under Xvfb, one per language/first-weekday pair and one
# at twice the scale, into docs/screenshots/ (or the folder given second).
set -euo pipefail
exe=${1:-build/release/qlvcallt}
out=${2:-docs/screenshots}
mkdir -p "$out"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK

shoot() { # name language firstweekday locale scale
  local name=$1 language=$2 first=$3 locale=$4 scale=$5
  local config="$work/config-$name"
  mkdir -p "$config/QLVCalendarLite"
  printf '[Appearance]\r\nLanguage=%s\r\nFirstWeekDay=%s\r\nCalendarAlignToCenter=Yes\r\n' \
    "$language" "$first" >"$config/QLVCalendarLite/qlvcal.ini"
  XDG_CONFIG_HOME="$config" LANG="$locale" LC_ALL="$locale" QT_SCALE_FACTOR="$scale" "$exe" &
  local app=$!
  xvfb_track "$app"
  local window
  window=$(xdotool search --sync --onlyvisible --pid "$app" | head -n1)
  sleep 1.5
  import -window "$window" "$out/$name.png"
  kill "$app" 2>/dev/null || true
  wait "$app" 2>/dev/null || true
  echo "$out/$name.png"
}

shoot main-english-sunday English Sunday en_US.UTF-8 1
shoot main-russian-monday Russian Monday ru_RU.UTF-8 1
shoot main-english-sunday-2x English Sunday en_US.UTF-8 2
