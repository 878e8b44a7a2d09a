#!/usr/bin/env bash
# Installs what the project needs, builds it and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
build=${VANTRELLE_BUILD:-build}
# No display and no sound card are needed: Qt runs offscreen, audio goes to a silent sink.
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j "$(nproc 2>/dev/null || echo 2)"
