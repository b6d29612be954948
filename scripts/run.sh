#!/usr/bin/env bash
# Starts the desktop program on the demo family's database, in a program home of its own
# under the build folder (made on first run, kept after) so the user's own home is untouched.
# Without a display, says so and shows the kvlr commands and the demo instead.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
home="$build/demo-home"
db="$home/DemoFamily.mdb"
kvlr=("$build/cli/kvlr" --home "$home")

make_demo() {
  if [ ! -f "$db" ]; then
    "${kvlr[@]}" demo "$db"
  else
    echo "The demo database is $db (remove $home to build it afresh)."
  fi
}

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: the desktop program needs one (xvfb-run from the xvfb package gives a virtual one)."
  echo "The command-line tool works without one:"
  echo
  "$build/cli/kvlr" --help
  echo
  echo "The demo family, made by: kvlr --home $home demo $db"
  make_demo
  echo
  echo "Try: $build/cli/kvlr meets --db $db"
  echo "     $build/cli/kvlr results --db $db --athlete 1 --standards"
  exit 0
fi
make_demo >/dev/null
exec "$build/app/kvl-r" --home "$home" "$db"
