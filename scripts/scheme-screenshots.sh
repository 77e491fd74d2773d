#!/usr/bin/env bash
# The contact sheet of the looks: the seven colour schemes on the plain ground and the eight
# background pictures under the default scheme, each in English and in Russian, shot from the real
# program under Xvfb and laid out as docs/screenshots/schemes.png (or the file given second).
set -euo pipefail
exe=${1:-build/release/qlvcallt}
sheet=${2:-docs/screenshots/schemes.png}
mkdir -p "$(dirname "$sheet")"
# shellcheck source=SCRIPTDIR/xvfb.sh
source "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/xvfb.sh"
xvfb_start 1280x800x24
work=$XVFB_WORK
shots=()

shoot() { # language scheme picture locale
  local language=$1 scheme=$2 picture=$3 locale=$4
  local name="$language-$scheme-$picture"
  local config="$work/config-$name"
  mkdir -p "$config/QLVCalendarLite"
  printf '[Appearance]\r\nLanguage=%s\r\nColorScheme=%s\r\nCalendarPicture=%s\r\nCalendarBorderWidth=2\r\nCalendarAlignToCenter=Yes\r\n' \
    "$language" "$scheme" "$picture" >"$config/QLVCalendarLite/qlvcal.ini"
  XDG_CONFIG_HOME="$config" LANG="$locale" LC_ALL="$locale" "$exe" &
  local app=$!
  xvfb_track "$app"
  local window
  window=$(xdotool search --sync --onlyvisible --pid "$app" | head -n1)
  sleep 1.2
  # Park the pointer away from the window so that no control shows its hover look.
  xdotool mousemove 0 0
  import -window "$window" "$work/$name.png"
  kill "$app" 2>/dev/null || true
  wait "$app" 2>/dev/null || true
  shots+=(-label "$scheme / $picture ($language)" "$work/$name.png")
}

for language in English Russian; do
  locale=en_US.UTF-8
  [ "$language" = Russian ] && locale=ru_RU.UTF-8
  for scheme in Blue Black White Yellow Green Pink GrayScale; do
    shoot "$language" "$scheme" None "$locale"
  done
  for picture in Sky Marble Fancy Waves Stars Dandelions Camomiles Landscape; do
    shoot "$language" Blue "$picture" "$locale"
  done
done
montage "${shots[@]}" -tile 5x -geometry +6+6 -background '#d8d8d8' -font DejaVu-Sans \
  -pointsize 13 -depth 8 "$sheet"
echo "$sheet"
