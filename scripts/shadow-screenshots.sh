#!/usr/bin/env bash
# Screenshots of the Main window and its shadow under a compositing manager, on a light and on a
# dark desktop. Usage: scripts/shadow-screenshots.sh build/release docs/screenshots
set -euo pipefail
build=${1:-build/release}
out=${2:-docs/screenshots}
mkdir -p "$out"
work=$(mktemp -d)
pids=()
stop_all() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  pids=()
}
trap 'stop_all; rm -rf "$work"' EXIT

shoot() { # colour name
  rm -f "$work/display"
  exec 3>"$work/display"
  Xvfb -displayfd 3 -screen 0 800x560x24 -nolisten tcp >/dev/null 2>&1 &
  pids+=($!)
  exec 3>&-
  for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
  export DISPLAY=:$(head -1 "$work/display")
  export XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime LANG=en_US.UTF-8
  mkdir -p "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  xcompmgr -n >/dev/null 2>&1 &
  pids+=($!)
  # The desktop: a full-screen backdrop of the colour, under everything mapped after it.
  convert -size 1x1 "xc:$1" "$work/dot.png"
  display -backdrop -background "$1" -geometry +0+0 "$work/dot.png" >/dev/null 2>&1 &
  pids+=($!)
  sleep 1
  env -u QT_QPA_PLATFORM "$build/qlvcallt" >/dev/null 2>&1 &
  pids+=($!)
  xdotool search --sync --onlyvisible --name '^Shadow$' >/dev/null
  sleep 0.7
  import -window root "$out/shadow-$2.png"
  echo "$out/shadow-$2.png"
  stop_all
}

shoot '#f2f2ee' light
shoot '#1d2330' dark
