#!/usr/bin/env bash
# Makes the README's picture of the home page: builds the demo family into a throw-away
# program home, starts kvl-r on it under a virtual display of a fixed size, chooses the first
# swimmer in the Login box and takes the main window.
# Usage: scripts/screenshot.sh [BUILD] [OUT.png]   (defaults: build docs/home-page.png)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-build}" && pwd)
out=$(realpath -m "${2:-$here/../docs/home-page.png}")

if [ "${KVLR_SHOT_INNER:-}" != 1 ]; then
  # Only this script needs them, so they are not among the build's packages.
  "$here/install-deps.sh" xvfb xauth xdotool imagemagick
  home=$(mktemp -d)
  trap 'rm -rf "$home"' EXIT
  "$build/cli/kvlr" --home "$home" demo "$home/DemoFamily.mdb" >/dev/null
  KVLR_SHOT_INNER=1 KVLR_SHOT_HOME=$home LC_ALL=C.UTF-8 \
    xvfb-run -a -s "-screen 0 1280x960x24" "$0" "$build" "$out"
  exit
fi

home=$KVLR_SHOT_HOME
"$build/app/kvl-r" --home "$home" "$home/DemoFamily.mdb" > "$home/app.log" 2>&1 &
app=$!
trap 'kill $app 2>/dev/null || true' EXIT
login=$(timeout 20 xdotool search --sync --name '^Login$' | head -1)
[ -n "$login" ] || { cat "$home/app.log"; echo "no Login box" >&2; exit 1; }
# Focus starts on the first swimmer: space checks it, Return presses OK.
xdotool windowfocus --sync "$login" key space Return
main=$(timeout 20 xdotool search --sync --name '^KVL-R for ' | head -1)
[ -n "$main" ] || { echo "no swimmer was logged in" >&2; exit 1; }
sleep 2  # the home page fills after the title changes
eval "$(xdotool getwindowgeometry --shell "$main")"
mkdir -p "$(dirname "$out")"
import -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" +repage -strip "$out"
echo "$out: ${WIDTH}x${HEIGHT}, $(stat -c %s "$out") bytes"
