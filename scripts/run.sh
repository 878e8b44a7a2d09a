#!/usr/bin/env bash
# Installs what the project needs, builds it and starts the program.
# Arguments are passed to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
build=${VANTRELLE_BUILD:-build}

# Puts the program into the desktop's menu, running from the build folder.
# Safe to repeat: the same files are written again.
install_desktop_entry() {
  local program data entry
  program=$(realpath "$1")
  data=${XDG_DATA_HOME:-$HOME/.local/share}
  mkdir -p "$data/applications" "$data/icons/hicolor/scalable/apps"
  install -m 644 qt/resources/vantrelle.svg "$data/icons/hicolor/scalable/apps/org.vantrelle.Vantrelle.svg"
  entry=$(<dist/org.vantrelle.Vantrelle.desktop.in)
  # The same name as the installed entry, so that this one stands in for it.
  printf '%s\n' "${entry//@PROGRAM@/\"$program\"}" >"$data/applications/org.vantrelle.Vantrelle.desktop"
  rm -f "$data/applications/vantrelle.desktop"  # the name the entry had before
  if command -v update-desktop-database >/dev/null; then
    update-desktop-database -q "$data/applications" || true
  fi
}

install_desktop_entry "$build/bin/vantrelle"
exec "$build/bin/vantrelle" "$@"
