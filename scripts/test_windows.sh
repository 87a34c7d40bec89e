#!/usr/bin/env bash
# Runs the Windows unit tests under Wine, in a private prefix inside the build
# folder so the run depends on nothing of the user's own Wine set-up.
set -euo pipefail

build=${1:-build/windows}
export WINEPREFIX="$(cd "$build" && pwd)/wineprefix"
export WINEDEBUG=-all
export WINEARCH=win64
mkdir -p "$WINEPREFIX"
# The first start creates the prefix; do it apart so its noise stays out of the results.
[ -f "$WINEPREFIX/system.reg" ] || wine cmd /c exit >/dev/null 2>&1 || true
wine "$build/tests/scrivolt_tests.exe" --gtest_brief=1
