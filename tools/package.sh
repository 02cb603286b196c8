#!/usr/bin/env bash
# Makes the packages to install, the Debian package and the portable archive, in build/packages. The program is built in
# a tree of its own, which is begun anew each time, so that nothing that somebody did there gets into them.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
install_packages run package
export LC_ALL=C.UTF-8
umask 022
# The same sources give the same dates.
export SOURCE_DATE_EPOCH="${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}"
tree=build/package
made=build/packages

rm -rf "$tree"
cmake --preset package >/dev/null
cmake --build --preset package
rm -rf "$made"
(cd "$tree" && cpack -B "$OLDPWD/$made" -G "DEB;TGZ")

echo "== Checking"
cd "$made"
# What cpack put together before it packed it is as good as the packages unpacked.
files=_CPack_Packages
if found=$(grep -rlF "$OLDPWD" "$files" --include='*' | grep -v -e '\.deb$' -e '/control/' -e '/DEBIAN/'); then
  printf 'These files name the folder they were built in:\n%s\n' "$found" >&2
  exit 1
fi
entries=$(find "$files" -path '*/share/applications' -path '*/usr/*' -print -quit)
share=$(dirname "$entries")
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate-tree --no-net "$(dirname "$(dirname "$share")")"
lintian --fail-on error --allow-root ./*.deb
rm -rf "$files"
ls -l "$PWD"/*
