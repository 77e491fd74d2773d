#!/usr/bin/env bash
# clang-format check over every C++ file we keep, then clang-tidy over the program's sources
# (two at a time). Formatting faults fail the run; clang-tidy findings are listed and counted.
set -euo pipefail
build=${1:-build/release}
[ -f "$build/compile_commands.json" ] || cmake --preset release >/dev/null
mapfile -t files < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run -Werror "${files[@]}"
echo "lint: clang-format clean (${#files[@]} files)"
report=$(mktemp)
trap 'rm -f "$report"' EXIT
git ls-files 'src/*.cpp' | xargs -P 2 -n 4 clang-tidy -p "$build" --quiet >"$report" 2>/dev/null || true
grep -E 'warning:|error:' "$report" || true
echo "lint: clang-tidy findings: $(grep -cE 'warning:|error:' "$report" || true)"
