#!/usr/bin/env bash
# Installs the Debian 12 packages that a task needs, by group; idempotent: does nothing when
# every package is already present.
#   scripts/install-deps.sh GROUP...   GROUP: run, build, test, bench, package (none: all)
set -euo pipefail

declare -A groups
# Running the calendar: the X11 platform plugin and the fonts its "Arial" maps to. Without a
# display, `make run` shows it under Xvfb and saves a screenshot.
groups[run]="qt6-qpa-plugins fonts-liberation fonts-dejavu-core"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  groups[run]+=" xvfb xdotool imagemagick"
fi
groups[build]="cmake ninja-build g++ make pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl-dev libxcb1-dev"
# The test tree (it builds the benchmarks too), sanitizers, fuzzing, lint; the end-to-end tests
# and screenshots; window managers with different stacking rules.
groups[test]="googletest libgtest-dev libgmock-dev libbenchmark-dev
  clang clang-format clang-tidy libclang-rt-14-dev
  xvfb xdotool x11-utils x11-xserver-utils xclip xcompmgr imagemagick
  openbox icewm fluxbox
  qt6-qpa-plugins fonts-liberation fonts-dejavu-core strace util-linux locales python3
  weston qt6-wayland"
# The reference programs the start-up benchmark measures against, and a session bus.
groups[bench]="gsimplecal yad dbus-daemon"
# Building the Debian package and checking it, the installed calendar under Xvfb included.
groups[package]="dpkg-dev file lintian desktop-file-utils appstream xvfb xdotool x11-utils"

wanted=("$@")
[ ${#wanted[@]} -eq 0 ] && wanted=(run build test bench package)

packages=()
need_locale=0
for group in "${wanted[@]}"; do
  if [ -z "${groups[$group]+set}" ]; then
    echo "install-deps: no group '$group' (run, build, test, bench, package)" >&2
    exit 2
  fi
  # shellcheck disable=SC2206 # the lists are split on white space on purpose
  packages+=(${groups[$group]})
  # The tests pin en_US and ru_RU.
  [ "$group" = test ] && need_locale=1
done

missing=()
for p in $(printf '%s\n' "${packages[@]}" | sort -u); do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ $need_locale -eq 1 ] && locale -a 2>/dev/null | grep -qi '^ru_RU\.utf8$' \
  && locale -a 2>/dev/null | grep -qi '^en_US\.utf8$'; then
  need_locale=0
fi

if [ ${#missing[@]} -eq 0 ] && [ $need_locale -eq 0 ]; then
  exit 0
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

if [ $need_locale -eq 1 ]; then
  for l in "en_US.UTF-8 UTF-8" "ru_RU.UTF-8 UTF-8"; do
    grep -qxF "$l" /etc/locale.gen 2>/dev/null || echo "$l" | $SUDO tee -a /etc/locale.gen >/dev/null
  done
  $SUDO locale-gen >/dev/null
fi
