#!/usr/bin/env bash
# Runs the Windows unit tests, or with --e2e the end-to-end cases against
# Scrivolt.exe, under Wine, in a private prefix inside the build folder so the
# run depends on nothing of the user's own Wine set-up.
#
# Usage: test_windows.sh [BUILD_FOLDER] [--e2e]
set -euo pipefail

build=${1:-build/windows}
what=${2:-unit}
export WINEPREFIX="$(cd "$build" && pwd)/wineprefix"
export WINEDEBUG=-all
export WINEARCH=win64
mkdir -p "$WINEPREFIX"
# The first start creates the prefix; do it apart so its noise stays out of the results.
[ -f "$WINEPREFIX/system.reg" ] || wine cmd /c exit >/dev/null 2>&1 || true
if [ "$what" = --e2e ]; then
  "$(dirname "$0")/../tests/e2e/run.sh" --windows "$build/Scrivolt.exe"
else
  wine "$build/tests/scrivolt_tests.exe" --gtest_brief=1
fi
