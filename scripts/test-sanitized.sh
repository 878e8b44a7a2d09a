#!/usr/bin/env bash
# Builds everything with AddressSanitizer and UndefinedBehaviorSanitizer into
# build-asan/ and runs every test there. Slower than scripts/test.sh; run it
# before a change that touches memory or threads lands.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
VANTRELLE_BUILD=build-asan scripts/build.sh -DCMAKE_BUILD_TYPE=Debug -DVANTRELLE_SANITIZE=ON
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# GLib, GStreamer and the decoders they load keep allocations until exit.
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp
ctest --test-dir build-asan --output-on-failure -j "$(nproc 2>/dev/null || echo 2)"
