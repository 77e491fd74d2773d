#!/usr/bin/env bash
# Installs the Debian 12 packages that building, testing and benchmarking need.
# Idempotent: does nothing when every package is already present.
set -euo pipefail

packages=(
  # build
  cmake ninja-build g++ make pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl-dev libxcb1-dev
  # tests, sanitizers, fuzzing, lint
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  clang clang-format clang-tidy libclang-rt-14-dev
  # end-to-end tests and screenshots
  xvfb xdotool x11-utils x11-xserver-utils xclip xcompmgr imagemagick
  # window managers with different stacking rules, for the end-to-end tests
  openbox icewm fluxbox
  fonts-liberation fonts-dejavu-core qt6-qpa-plugins strace util-linux
  locales python3
  # reference programs for the benchmarks
  gsimplecal yad
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

need_locale=0
if ! locale -a 2>/dev/null | grep -qi '^ru_RU\.utf8$' || ! locale -a 2>/dev/null | grep -qi '^en_US\.utf8$'; then
  need_locale=1
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
  # The tests pin en_US and ru_RU; generate both if the system lacks them.
  for l in "en_US.UTF-8 UTF-8" "ru_RU.UTF-8 UTF-8"; do
    grep -qxF "$l" /etc/locale.gen 2>/dev/null || echo "$l" | $SUDO tee -a /etc/locale.gen >/dev/null
  done
  $SUDO locale-gen >/dev/null
fi
