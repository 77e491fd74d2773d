#!/usr/bin/env bash
# Runs every libFuzzer target for a while on a scratch copy of its corpus; a crash input is
# kept under fuzz/corpus/<target>/crashes so that ctest replays it from then on.
set -euo pipefail
build=${1:-build/fuzz}
seconds=${2:-20}
status=0
for target in "$build"/fuzz/fuzz_*; do
  [ -f "$target" ] && [ -x "$target" ] || continue
  name=$(basename "$target")
  seeds="fuzz/corpus/$name"
  work=$(mktemp -d)
  [ -d "$seeds" ] && cp -r "$seeds"/. "$work"/
  mkdir -p "$seeds/crashes"
  echo "== $name for ${seconds}s"
  if ! "$target" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=30 \
      -artifact_prefix="$seeds/crashes/" -print_final_stats=1 "$work" 2>&1 | tail -n 12; then
    status=1
  fi
  rm -rf "$work"
done
exit $status
