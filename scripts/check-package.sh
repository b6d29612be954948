#!/usr/bin/env bash
# Checks a Debian package of ours (`make package-check` makes and checks it): dependencies read
# from the shared libraries, the files, `kvlr demo` and `kvl-r` (offscreen) run from it, and,
# as root, a clean removal. As root it is installed with dpkg into a throw-away root whose
# package database is a copy of this machine's, so dpkg checks the dependencies and file
# clashes against what is installed here, and the machine itself is left alone; otherwise
# it is unpacked with dpkg -x.
# Usage: scripts/check-package.sh PACKAGE.deb
set -euo pipefail
[ $# -eq 1 ] && [ -f "$1" ] || { echo "usage: $0 PACKAGE.deb" >&2; exit 2; }
deb=$(realpath "$1")
export PATH=$PATH:/usr/sbin:/sbin  # dpkg looks for ldconfig
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
fail() { echo "check-package: FAILED: $*" >&2; exit 1; }

name=$(dpkg-deb -f "$deb" Package)
depends=$(dpkg-deb -f "$deb" Depends)
echo "$name $(dpkg-deb -f "$deb" Version): $(stat -c %s "$deb") bytes"
echo "Depends: $depends"
# Without these, dpkg-shlibdeps did not read the programs.
for lib in libc6 libstdc++6 libqt6widgets6 libsqlite3-0; do
  [[ ", $depends" == *", $lib "* ]] || fail "Depends lacks $lib"
done

dpkg-deb -c "$deb" | awk '{print $6}' > "$work/files"
grep -vx '\./' "$work/files" | grep -v '^\./usr/' && fail "files outside /usr"
for f in bin/kvl-r bin/kvlr share/applications/kvl-r.desktop share/mime/packages/kvl-r.xml \
         share/icons/hicolor/scalable/apps/kvl-r.svg share/man/man1/kvlr.1 \
         share/bash-completion/completions/kvlr; do
  grep -qx "\./usr/$f" "$work/files" || fail "/usr/$f is missing"
done

as_root=$([ "$(id -u)" -eq 0 ] && echo yes || echo no)
if [ "$as_root" = yes ]; then
  admin=$root/var/lib/dpkg
  mkdir -p "$admin/info" "$admin/updates"
  cp /var/lib/dpkg/status "$admin/"
  cp /var/lib/dpkg/info/*.list "$admin/info/"  # file clashes are checked too
  dpkg --root="$root" -i "$deb" > "$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log"; fail "dpkg -i"; }
  dpkg --root="$root" -s "$name" | grep -qx 'Status: install ok installed' || fail "not installed"
  echo "Installed with dpkg -i into a throw-away root."
else
  dpkg -x "$deb" "$root"
  echo "Not root: unpacked with dpkg -x."
fi

ldd "$root/usr/bin/kvl-r" "$root/usr/bin/kvlr" | grep 'not found' && fail "shared libraries missing"
home=$work/home
db=$home/DemoFamily.mdb
"$root/usr/bin/kvlr" --home "$home" demo "$db" > "$work/demo.log" 2>&1 ||
  { cat "$work/demo.log"; fail "kvlr demo"; }
meets=$("$root/usr/bin/kvlr" --home "$home" meets --db "$db" | wc -l)
[ "$meets" -gt 1 ] || fail "kvlr meets lists no meet"
echo "kvlr demo built $db; kvlr meets lists $((meets - 1)) meets."
# Still running after a few seconds means it started and waits for the user.
rc=0
QT_QPA_PLATFORM=offscreen timeout 5 "$root/usr/bin/kvl-r" --home "$home" "$db" \
  > "$work/app.log" 2>&1 || rc=$?
[ $rc -eq 124 ] || { cat "$work/app.log"; fail "kvl-r ended with status $rc"; }
echo "kvl-r started on it (offscreen) and was still running after 5 seconds."

if [ "$as_root" = yes ]; then
  dpkg --root="$root" -r "$name" > "$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log"; fail "dpkg -r"; }
  dpkg --root="$root" -s "$name" 2>/dev/null | grep -q 'Status: install ok' && fail "still installed"
  left=$(find "$root" -mindepth 1 -path "$root/var" -prune -o -print)
  [ -z "$left" ] || { echo "$left"; fail "dpkg -r left files behind"; }
  echo "Removed with dpkg -r: nothing left."
fi
echo "check-package: passed"
