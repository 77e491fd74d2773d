#!/usr/bin/env bash
# Runs every test of a configured and built tree: unit, widget and end-to-end.
set -euo pipefail
build=${1:-build/release}
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
  XDG_RUNTIME_DIR=$(mktemp -d)
  chmod 700 "$XDG_RUNTIME_DIR"
  export XDG_RUNTIME_DIR
fi
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
ctest --test-dir "$build" --output-on-failure -j2 --timeout 300
