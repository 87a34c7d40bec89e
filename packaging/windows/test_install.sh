#!/usr/bin/env bash
# Checks the Windows installer under Wine: a silent install puts the files,
# shortcuts and uninstall entry in place, the installed program runs a
# command-line job, and a silent uninstall removes everything again.
#
#   packaging/windows/test_install.sh [BUILD]   (default build/windows; run
#                                               make_dist.sh first)
set -uo pipefail
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

# The uninstaller runs a copy of itself from the temporary folder: wait
# until every process of the prefix has ended.
wine "$home/Uninstall.exe" /S >/dev/null 2>&1
timeout 60 wineserver -w
check "uninstalling removes the program folder" test ! -e "$home"
check "uninstalling removes the shortcuts" test ! -e "$start_menu/Scrivolt"
wineserver -k 2>/dev/null
rm -rf "$WINEPREFIX"
exit $failed
