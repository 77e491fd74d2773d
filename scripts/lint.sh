#!/usr/bin/env bash
# clang-format check and clang-tidy over our own sources.
set -euo pipefail
build=${1:-build/release}
files=$(git ls-files '*.cpp' '*.h')
clang-format --dry-run -Werror $files
clang-tidy -p "$build" --quiet $(git ls-files 'src/*.cpp') 2>&1 | grep -v 'warnings generated' || true
echo "lint: clang-format clean; clang-tidy report above"
