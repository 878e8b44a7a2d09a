#!/usr/bin/env bash
# Builds the Debian package: a Release build of both programs, packed by CPack
# with its dependencies from dpkg-shlibdeps, then checked by lintian (an error
# fails the build). Prints the package's path.
#   sudo apt install ./<that path>
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh dpkg-dev file lintian
build=${VANTRELLE_PACKAGE_BUILD:-build-package}
jobs=$(nproc 2>/dev/null || echo 2)
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVANTRELLE_TESTS=OFF >/dev/null
fi
cmake --build "$build" -j "$jobs" >&2
rm -f "$build"/vantrelle_*.deb
(cd "$build" && cpack -G DEB >&2)
package=$(realpath "$build"/vantrelle_*.deb)
lintian --fail-on error "$package" >&2
echo "$package"
