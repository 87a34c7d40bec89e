#!/usr/bin/env bash
# Checks the Windows installer under Wine: a silent install puts the files,
# shortcuts and uninstall entry in place, the installed program runs a
# command-line job, a silent uninstall gives up while the program runs, and
# removes everything once it has ended.
#
#   packaging/windows/test_install.sh [BUILD]   (default build/windows; run
#                                               make_dist.sh first)
set -uo pipefail
. "$(dirname "$0")/../../scripts/wine_fixed_layout.sh"
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build/windows}" && pwd)
export WINEPREFIX=$build/wineprefix-install WINEDEBUG=-all
rm -rf "$WINEPREFIX"
wine cmd /c exit >/dev/null 2>&1
failed=0
check() { local what=$1; shift; if "$@"; then echo "ok   $what"; else echo "FAIL $what"; failed=1; fi; }

program_files=$(winepath -u "$(wine cmd /c echo %ProgramFiles% 2>/dev/null | tr -d '\r')")
start_menu=$(winepath -u "$(wine cmd /c echo %ProgramData% 2>/dev/null | tr -d '\r')")/Microsoft/Windows/Start\ Menu/Programs
home=$program_files/Scrivolt

wine "$build/dist/Scrivolt-11.3.3-setup.exe" /S >/dev/null 2>&1
timeout 60 wineserver -w
check "the program is installed" test -f "$home/Scrivolt.exe"
check "the help file is installed" test -f "$home/Help/Scrivolt_EN.chm"
check "the Dutch language module and its help file are installed" \
  test -f "$home/Scrivolt_NL.dll" -a -f "$home/Help/Scrivolt_NL.chm"
check "the licence and README are installed" test -f "$home/LICENSE" -a -f "$home/README.md"
check "the uninstaller is installed" test -f "$home/Uninstall.exe"
check "Start-menu shortcuts to the program and its help" \
  test -f "$start_menu/Scrivolt/Scrivolt.lnk" -a -f "$start_menu/Scrivolt/Scrivolt Help.lnk"
check "the uninstaller is registered" \
  bash -c "wine reg query 'HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Scrivolt' /v UninstallString 2>/dev/null | grep -q Uninstall.exe"

job=$(mktemp -d)
printf 'Hello <# use param: "Name" #>!' >"$job/t.txt"
# The box driver answers the beta notice that greets every start.
(cd "$job" && timeout 120 wine "$build/tests/box_driver.exe" --timeout 60 "$home/Scrivolt.exe" \
  /feedbackdest file fb.txt /set Name World /in t.txt /out out.txt /go >/dev/null 2>&1)
check "the installed program runs a job" grep -q 'Hello World!' "$job/out.txt"
rm -rf "$job"

# A running Scrivolt holds the uninstaller back: a silent uninstall gives up
# while the main window is open, and removes nothing. The window driver keeps
# the window open for 20 seconds; waiting for every process of the prefix
# waits for the uninstaller's copy and for the window.
hold=$(mktemp -d)
printf 'box OK\nwindow Scrivolt\nsleep 20000\nclose\nexit\n' >"$hold/hold.script"
(cd "$hold" && timeout 120 wine "$build/tests/win_driver.exe" --timeout 60 \
  "$(winepath -w "$hold/hold.script" 2>/dev/null)" "$home/Scrivolt.exe" >"$hold/transcript" 2>/dev/null) &
for _ in $(seq 1 60); do grep -q '^window' "$hold/transcript" 2>/dev/null && break; sleep 1; done
check "the main window is open" grep -q '^window' "$hold/transcript"
wine "$home/Uninstall.exe" /S >/dev/null 2>&1
timeout 90 wineserver -w
wait
check "a silent uninstall leaves a running Scrivolt in place" test -f "$home/Scrivolt.exe" -a -f "$home/Uninstall.exe"
rm -rf "$hold"

# The uninstaller runs a copy of itself from the temporary folder: wait
# until every process of the prefix has ended.
wine "$home/Uninstall.exe" /S >/dev/null 2>&1
timeout 60 wineserver -w
check "uninstalling removes the program folder" test ! -e "$home"
check "uninstalling removes the shortcuts" test ! -e "$start_menu/Scrivolt"
wineserver -k 2>/dev/null
rm -rf "$WINEPREFIX"
exit $failed
