#!/usr/bin/env bash
# The Windows distribution from a Windows build folder: a zip of the program,
# its language modules, Help\ with the help files, README and licence, and an
# NSIS installer of the same files.
#
#   packaging/windows/make_dist.sh [BUILD]      (default build/windows)
#
# Writes BUILD/dist/Scrivolt-11.3.3-windows.zip and
# BUILD/dist/Scrivolt-11.3.3-setup.exe.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build/windows}" && pwd)
stage=$build/dist/Scrivolt
rm -rf "$build/dist" && mkdir -p "$stage/Help"
cp "$build/Scrivolt.exe" "$root/README.md" "$root/LICENSE" "$stage/"
cp "$build"/Help/*.chm "$stage/Help/"
for module in "$build"/Scrivolt_*.dll; do [ -f "$module" ] && cp "$module" "$stage/"; done
(cd "$build/dist" && zip -qr Scrivolt-11.3.3-windows.zip Scrivolt)
makensis -V2 -DSOURCE="$stage" -DOUTFILE="$build/dist/Scrivolt-11.3.3-setup.exe" "$root/packaging/windows/scrivolt.nsi"
ls -l "$build/dist"
