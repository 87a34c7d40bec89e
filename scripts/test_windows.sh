#!/usr/bin/env bash
# Runs the Windows unit tests, or with --e2e the end-to-end cases against
# Scrivolt.exe, the tests of the shell's services (tests/windows_shell) and the
# window tests (tests/windows_gui), under Wine, in a private prefix inside the build folder so the
# run depends on nothing of the user's own Wine set-up.
#
# Usage: test_windows.sh [BUILD_FOLDER] [--e2e]
set -euo pipefail
. "$(dirname "$0")/wine_fixed_layout.sh"

build=${1:-build/windows}
what=${2:-unit}
export WINEPREFIX="$(cd "$build" && pwd)/wineprefix"
export WINEDEBUG=-all
export WINEARCH=win64
mkdir -p "$WINEPREFIX"
# Windows and message boxes need a display: a private virtual one unless one
# is given. Xvfb picks a free display number itself and writes it to the pipe.
if [ -z "${DISPLAY:-}" ]; then
  exec 3< <(exec Xvfb -displayfd 1 -screen 0 1024x768x24 -nolisten tcp 2>/dev/null)
  xvfb=$!
  trap 'kill $xvfb 2>/dev/null || true' EXIT
  read -r -t 20 number <&3 || { echo "Xvfb did not start" >&2; exit 1; }
  export DISPLAY=:$number
fi
# The first start creates the prefix; do it apart, with the display, and wait
# until Wine has finished setting it up, so its noise stays out of the
# results and the first test's windows are not made while it still works.
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  wine cmd /c exit >/dev/null 2>&1 || true
  wineserver -w
fi
if [ "$what" = --e2e ]; then
  status=0
  "$(dirname "$0")/../tests/e2e/run.sh" --windows "$build/Scrivolt.exe" || status=1
  "$(dirname "$0")/../tests/windows_shell/run.sh" "$build" || status=1
  # Wine draws the windows' frames itself, as Windows would, so pictures of
  # windows show their captions.
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Decorated /d N /f >/dev/null 2>&1
  "$(dirname "$0")/../tests/windows_gui/run.sh" "$build" || status=1
  exit $status
else
  wine "$build/tests/scrivolt_tests.exe" --gtest_brief=1
fi
