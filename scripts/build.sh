#!/usr/bin/env bash
# Configures and builds everything into build/ (or the folder in $VANTRELLE_BUILD).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${VANTRELLE_BUILD:-build}
jobs=$(nproc 2>/dev/null || echo 2)
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTRELLE_WERROR=ON "$@" >/dev/null
fi
cmake --build "$build" -j "$jobs"
