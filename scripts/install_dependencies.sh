#!/usr/bin/env bash
# Installs what building and testing both targets needs, on Debian 12, when
# something is missing. Runs apt-get only when a tool is absent.
set -euo pipefail

packages=(g++ clang cmake ninja-build libgtest-dev mingw-w64 wine wine64 xvfb x11-apps x11-utils imagemagick fp-utils scdoc dpkg-dev python3 nsis zip)
tools=(g++ clang++ cmake ninja x86_64-w64-mingw32-g++-posix wine xvfb-run xwd xwininfo convert chmcmd scdoc dpkg-shlibdeps python3 makensis zip)

missing=0
for tool in "${tools[@]}"; do
  command -v "$tool" >/dev/null 2>&1 || missing=1
done
[ -f /usr/src/googletest/CMakeLists.txt ] || missing=1
[ -f /usr/lib/x86_64-linux-gnu/cmake/GTest/GTestConfig.cmake ] || missing=1

if [ "$missing" = 0 ]; then
  exit 0
fi

if [ "$(id -u)" != 0 ]; then
  echo "Missing build tools; run as root to install: ${packages[*]}" >&2
  exit 1
fi

echo "Installing build and test tools..."
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${packages[@]}" >/dev/null
