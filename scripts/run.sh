#!/usr/bin/env bash
# Installs what the project needs, builds it and starts the program.
# Arguments are passed to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
build=${VANTRELLE_BUILD:-build}
if [ -x "$build/bin/vantrelle" ]; then
  exec "$build/bin/vantrelle" "$@"
fi
# Until the desktop program is built, the console face is the program.
if [ $# -eq 0 ]; then set -- --help; fi
exec "$build/bin/vantrelle-cli" "$@"
