#!/usr/bin/env bash
# Builds with sanitizers and runs the tests there. Slower than scripts/test.sh.
#   scripts/test-sanitized.sh          AddressSanitizer and UndefinedBehaviorSanitizer,
#                                      every test, in build-asan/
#   scripts/test-sanitized.sh thread   ThreadSanitizer, the tests of the threaded parts
#                                      (scanning, copying, playback), in build-tsan/
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
jobs=$(nproc 2>/dev/null || echo 2)

if [ "${1:-address}" = thread ]; then
  build=build-tsan
  targets=(vantrelle_scan_tests vantrelle_playlists_tests vantrelle_playback_tests vantrelle_mci_tests)
  if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTRELLE_WERROR=ON \
      -DVANTRELLE_SANITIZE=thread >/dev/null
  fi
  cmake --build "$build" -j "$jobs" --target "${targets[@]}"
  export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 suppressions=$PWD/tests/tsan.supp"
  ctest --test-dir "$build" --output-on-failure -j "$jobs" -L '^(scan|playlists|playback|platform/mci)$'
else
  VANTRELLE_BUILD=build-asan scripts/build.sh -DCMAKE_BUILD_TYPE=Debug -DVANTRELLE_SANITIZE=address
  export ASAN_OPTIONS=detect_leaks=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  # GLib, GStreamer and the decoders they load keep allocations until exit.
  export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp
  ctest --test-dir build-asan --output-on-failure -j "$jobs"
fi
