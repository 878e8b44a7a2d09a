#!/usr/bin/env bash
# Builds with sanitizers and runs the tests there. Slower than scripts/test.sh.
#   scripts/test-sanitized.sh          AddressSanitizer and UndefinedBehaviorSanitizer,
#                                      every test, in build-asan/
#   scripts/test-sanitized.sh thread   ThreadSanitizer, every test folder, in build-tsan/
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
jobs=$(nproc 2>/dev/null || echo 2)

if [ "${1:-address}" = thread ]; then
  # Only the test programs and what they run (the two programs), optimised
  # with line tables only (-g1): the tools and the package are not built.
  build=build-tsan
  if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTRELLE_WERROR=ON \
      -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g1" -DVANTRELLE_SANITIZE=thread >/dev/null
  fi
  mapfile -t targets < <(cmake --build "$build" --target help | sed -n 's/^\(vantrelle_[a-z_]*_tests\):.*/\1/p')
  cmake --build "$build" -j "$jobs" --target "${targets[@]}"
  export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 suppressions=$PWD/tests/tsan.supp"
  # Every test folder; the install and include checks run no threads of ours.
  ctest --test-dir "$build" --output-on-failure -j "$jobs" -LE '^(install|layers)$'
else
  VANTRELLE_BUILD=build-asan scripts/build.sh -DCMAKE_BUILD_TYPE=Debug -DVANTRELLE_SANITIZE=address
  export ASAN_OPTIONS=detect_leaks=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  # GLib, GStreamer and the decoders they load keep allocations until exit.
  export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp
  ctest --test-dir build-asan --output-on-failure -j "$jobs"
fi
