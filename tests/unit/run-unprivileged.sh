#!/usr/bin/env bash
# Runs a test program as an unprivileged user. As root it copies the program where that user can
# reach it and drops to "nobody" with setpriv; as anyone else it runs it directly.
set -euo pipefail
program=$1
shift
if [ "$(id -u)" -ne 0 ]; then
  exec "$program" "$@"
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$program" "$work/"
chmod 755 "$work" "$work/$(basename "$program")"
cd "$work"
# Sanitizer settings (suppressions, leak checking) carry over; nothing else does.
env -i PATH=/usr/bin:/bin HOME="$work" TMPDIR=/tmp \
  ASAN_OPTIONS="${ASAN_OPTIONS:-}" LSAN_OPTIONS="${LSAN_OPTIONS:-}" UBSAN_OPTIONS="${UBSAN_OPTIONS:-}" \
  setpriv --reuid=nobody --regid=nogroup --clear-groups \
  "$work/$(basename "$program")" "$@"
