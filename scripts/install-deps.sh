#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, and
# any further packages named as arguments (the packaging tools, say).
# Safe to run again: when everything is present it installs nothing and prints nothing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  libsqlite3-dev libtag1-dev libicu-dev libblkid-dev libmount-dev libcli11-dev
  qt6-base-dev
  libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-ugly
  gstreamer1.0-plugins-bad gstreamer1.0-libav gstreamer1.0-alsa
  libgtest-dev googletest libbenchmark-dev
  dbus-daemon dbus-bin
  bindfs
  desktop-file-utils appstream
  cppcheck
  "$@"
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
