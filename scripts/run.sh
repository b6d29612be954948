#!/usr/bin/env bash
# Starts the desktop program; without a display, says so and shows the kvlr commands.
set -euo pipefail
build=${1:-build}
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: the desktop program needs one (xvfb-run from the xvfb package gives a virtual one)."
  echo "The command-line tool works without one:"
  echo
  "$build/cli/kvlr" --help
  exit 0
fi
exec "$build/app/kvl-r"
