#!/usr/bin/env bash
# After `make install` and for `make uninstall`: the desktop's caches of file types and
# launchers under the prefix, and the removal of what the last install put there.
# Usage: scripts/install-tree.sh refresh PREFIX
#        scripts/install-tree.sh uninstall BUILD PREFIX
set -euo pipefail

refresh() {
  local share=$1/share
  if command -v update-mime-database >/dev/null && [ -d "$share/mime" ]; then
    if compgen -G "$share/mime/packages/*.xml" >/dev/null; then
      update-mime-database "$share/mime"
    else
      rm -rf "$share/mime"  # nothing but the cache of our own type was left
    fi
  fi
  if command -v update-desktop-database >/dev/null && [ -d "$share/applications" ]; then
    if compgen -G "$share/applications/*.desktop" >/dev/null; then
      update-desktop-database "$share/applications"
    else
      rm -f "$share/applications/mimeinfo.cache"
    fi
  fi
}

case $1 in
  refresh) refresh "$2" ;;
  uninstall)
    build=$2 prefix=$3
    manifest=$build/install_manifest.txt
    if [ ! -f "$manifest" ]; then
      echo "Nothing to remove: $manifest is missing (make install writes it)."
      exit 0
    fi
    while IFS= read -r file || [ -n "$file" ]; do  # the last line has no line end
      rm -f -- "$file"
    done < "$manifest"
    rm -rf -- "$prefix/share/doc/kvl-r"
    refresh "$prefix"
    # A prefix of its own is removed whole once no file is left in it.
    if [ -d "$prefix" ] && [ -z "$(find "$prefix" -type f -print -quit)" ]; then
      find "$prefix" -depth -type d -empty -delete
    fi
    rm -f -- "$manifest"
    ;;
  *) echo "usage: $0 refresh PREFIX | uninstall BUILD PREFIX" >&2; exit 2 ;;
esac
