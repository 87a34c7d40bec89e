#!/usr/bin/env bash
# Installs what building and testing both targets needs, on Debian 12: the
# package of every tool that is missing (apt-get runs only when one is).
set -euo pipefail

# "tool package": the command that must exist, and the package that brings it.
needs=(
  "g++ g++" "clang++ clang" "cmake cmake" "ninja ninja-build"
  "x86_64-w64-mingw32-g++-posix mingw-w64" "wine wine"
  "xvfb-run xvfb" "xwd x11-apps" "xwininfo x11-utils" "convert imagemagick"
  "chmcmd fp-utils" "scdoc scdoc" "dpkg-shlibdeps dpkg-dev" "python3 python3"
  "makensis nsis" "zip zip" "node nodejs" "npm npm" "vim vim"
)
# Files that packages bring without a command of their own.
files=(
  "/usr/lib/wine/wine64 wine64"
  "/usr/share/wine/fonts/marlett.ttf fonts-wine"
  "/usr/src/googletest/CMakeLists.txt googletest"
  "/usr/lib/x86_64-linux-gnu/cmake/GTest/GTestConfig.cmake libgtest-dev"
)

packages=()
for need in "${needs[@]}"; do
  command -v "${need%% *}" >/dev/null 2>&1 || packages+=("${need#* }")
done
for need in "${files[@]}"; do
  [ -f "${need%% *}" ] || packages+=("${need#* }")
done
[ ${#packages[@]} -gt 0 ] || exit 0

if [ "$(id -u)" != 0 ]; then
  echo "Missing build tools; run as root to install: ${packages[*]}" >&2
  exit 1
fi

echo "Installing build and test tools: ${packages[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${packages[@]}" >/dev/null
