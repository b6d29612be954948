#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those missing.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-charts-dev libqt6opengl6-dev qt6-svg-dev qt6-webengine-dev
  libsqlitecpp-dev libsqlite3-dev sqlite3
  libzip-dev libical-dev
  libfmt-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  poppler-utils python3-icalendar
)
# Extra packages a target asks for (make fuzz asks for clang).
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
