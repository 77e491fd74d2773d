#!/usr/bin/env bash
# Shoots the program's icon at 16, 32 and 256 pixels, as a built tree installs it, on a light and
# a dark panel; the small sizes also magnified, so that every pixel can be checked.
#   scripts/icon-screenshots.sh [build dir]   -> docs/screenshots/icon-{16,32,256}.png
set -euo pipefail
build=${1:-build/app}
out=docs/screenshots
icons=$build/data/hicolor
mkdir -p "$out"
for size in 16 32 256; do
  icon=$(echo "$icons/${size}x$size"/apps/*.png)
  pad=$((size / 2 + 8))
  tiles=()
  for panel in '#f0f0f0' '#2b2b2b'; do
    tiles+=(\( "$icon" -background "$panel" -gravity center -extent $((size + 2 * pad))x$((size + 2 * pad)) \))
  done
  if [ "$size" -le 32 ]; then
    zoom=$((256 / size))
    tiles+=(\( "$icon" -filter point -resize $((zoom * 100))% -background '#f0f0f0' -gravity center
      -extent $((size * zoom + 16))x$((size * zoom + 16)) \))
  fi
  convert "${tiles[@]}" -background white -gravity center +append "$out/icon-$size.png"
  echo "$out/icon-$size.png"
done
