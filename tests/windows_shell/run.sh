#!/usr/bin/env bash
# End-to-end tests of the Windows shell's services under Wine: the fault
# handler on a real structured exception, the help switch with and without
# the help file, boxes without a display, and a run killed while it writes.
# Each case runs a program through the box driver, which records every
# message box (title, then text) and closes it; the
# records and the exit code are compared with what the case expects.
# Addresses that change from run to run ("at address 0x...", "at offset
# 0x...") are compared as {HEX}.
#
# Needs Wine with an X display (test_windows.sh provides both).
#
# Usage: run.sh BUILD_FOLDER
set -uo pipefail

build=$(realpath "$1")
box_driver="$build/tests/box_driver.exe"
probe="$build/tests/fault_probe.exe"
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
passed=0

fail() {
  echo "FAIL $1: $2"
  failed=$((failed + 1))
}

# run_case NAME EXPECTED_EXIT EXPECTED_BOXES FOLDER PROGRAM [ARGUMENT...]
# Runs PROGRAM in FOLDER (its current directory). EXPECTED_BOXES is the
# records without the last line end.
run_case() {
  local name=$1 expected_exit=$2 expected_boxes=$3 folder=$4
  shift 4
  local seen="$scratch/$name.boxes" exit_code
  (cd "$folder" && timeout "${CASE_TIMEOUT:-60}" wine "$box_driver" "$@") >"$seen" 2>"$scratch/$name.err"
  exit_code=$?
  sed -i -E 's/at (address|offset) 0x[0-9A-F]{8,16}/at \1 {HEX}/g' "$seen"
  if [ "$exit_code" != "$expected_exit" ]; then
    fail "$name" "exit code $exit_code, expected $expected_exit"
  elif ! diff -u <([ -z "$expected_boxes" ] || printf '%s\n' "$expected_boxes") "$seen" >"$scratch/$name.diff"; then
    fail "$name" "message boxes differ:"
    cat "$scratch/$name.diff"
  else
    passed=$((passed + 1))
    return 0
  fi
  return 1
}

fault_box() {  # WHAT MODULE EXTRA_INFO
  printf 'Scrivolt - Unhandled error\nAn unhandled error occurred.  Scrivolt will be closed automatically.\n\nThe error was: %s at address {HEX} in module "%s" at offset {HEX}%s.\n\nPlease contact Fenwrights about this error.' "$1" "$2" "$3"
}
access_violation() {  # MODULE ACCESS_LINE
  fault_box "Access violation" "$1" $';\n'"$2"
}

# A write to address 0 inside the program: the handler names the program's
# file, ends through the runtime's exit (its exit-time handlers run) with 2.
mkdir -p "$scratch/write-null"
if run_case fault-write-null 2 "$(access_violation fault_probe.exe 'invalid write of address 0x00000000.')" \
  "$scratch/write-null" "$probe" write-null; then
  [ -f "$scratch/write-null/exit-handlers-ran" ] || fail fault-write-null "the exit-time handlers did not run"
fi

# A fault inside a library names the library, not the program.
mkdir -p "$scratch/module-write-null"
run_case fault-in-module 2 "$(access_violation fault_module.dll 'invalid write of address 0x00000000.')" \
  "$scratch/module-write-null" "$probe" module-write-null

# A stack overflow leaves too little stack to show a box on; the report
# comes all the same.
mkdir -p "$scratch/stack-overflow"
run_case fault-stack-overflow 2 "$(fault_box "Stack overflow" fault_probe.exe "")" \
  "$scratch/stack-overflow" "$probe" stack-overflow

# A report that faults itself ends the process at once, with no box.
mkdir -p "$scratch/fault-in-report"
run_case fault-in-report 2 "" "$scratch/fault-in-report" "$probe" fault-in-report

# An exception that leaves the run reaches the entry point's last resort.
mkdir -p "$scratch/throw"
run_case last-resort 255 $'Scrivolt - Unhandled error\nAn unknown unhandled error occurred.  Scrivolt will be closed automatically.\n\nPlease contact Fenwrights about this error.' \
  "$scratch/throw" "$probe" throw

# A call to an address that no module holds.
mkdir -p "$scratch/call-nowhere"
run_case fault-call-nowhere 2 "$(access_violation 'unknown module' 'invalid write of address 0x00000010.')" \
  "$scratch/call-nowhere" "$probe" call-nowhere

# The help switch. The program runs from a folder of its own, once with the
# help file in Help/ beside it and once without.
installed="$scratch/installed"
mkdir -p "$installed/Help"
cp "$build/Scrivolt.exe" "$installed/"
cp "$build/Help/Scrivolt_EN.chm" "$installed/Help/"
nothing_box=$'Scrivolt - Error processing\nNothing specified to process'
# Every start of the program shows the beta notice first.
beta_text='This is a beta version of Scrivolt.  While it is fully useable, we cannot guarantee that the final version will behave identically to this one.  We might somewhat improve/change the script language, so please take this into consideration when designing your templates.'
beta_box="Scrivolt - Beta version"$'\n'"$beta_text"
run_case help-with-file 0 "$beta_box"$'\n'"$nothing_box" "$installed" "$installed/Scrivolt.exe" "/?"

# The same run seen from the screen: the help viewer shows a window titled
# with the help file's title while the run's feedback box is up.
cat >"$scratch/viewer.script" <<'SCRIPT'
box OK
window Scrivolt Help
window Scrivolt - Error processing
end
SCRIPT
viewer_seen=$(cd "$installed" && timeout 120 wine "$build/tests/win_driver.exe" --timeout 60 \
  "$(winepath -w "$scratch/viewer.script" 2>/dev/null)" "$installed/Scrivolt.exe" "/?" 2>/dev/null | tr -d '\r')
if [ "$viewer_seen" = "$(printf '%s\n' 'box "Scrivolt - Beta version"' "$beta_text" 'window "Scrivolt Help"' 'window "Scrivolt - Error processing"')" ]; then
  passed=$((passed + 1))
else
  fail help-viewer "no help viewer window \"Scrivolt Help\" appeared for /?: $viewer_seen"
fi

# Without a display no box can be made: the notice, the feedback and a
# fault report come on standard error instead, as the lines of a box.
# expect_stderr NAME EXPECTED_EXIT EXPECTED_LINES PROGRAM [ARGUMENT...]
expect_stderr() {
  local name=$1 expected_exit=$2 expected=$3 exit_code
  shift 3
  (cd "$scratch" && env -u DISPLAY timeout "${CASE_TIMEOUT:-60}" wine "$@") >/dev/null 2>"$scratch/$name.err"
  exit_code=$?
  sed -i -E 's/at (address|offset) 0x[0-9A-F]{8,16}/at \1 {HEX}/g' "$scratch/$name.err"
  if [ "$exit_code" != "$expected_exit" ]; then
    fail "$name" "exit code $exit_code, expected $expected_exit"
  elif ! diff -u <(printf '%s\n' "$expected") "$scratch/$name.err"; then
    fail "$name" "standard error differs"
  else
    passed=$((passed + 1))
  fi
}
expect_stderr no-display-run 1 "$beta_box"$'\nScrivolt - Error processing\nNo output file specified' \
  "$installed/Scrivolt.exe" /in nothing.txt /go
expect_stderr no-display-fault 2 "$(access_violation fault_probe.exe 'invalid write of address 0x00000000.')" \
  "$probe" write-null

rm -r "$installed/Help"
run_case help-file-missing 0 \
  "$beta_box"$'\nScrivolt - Error opening help page\nThe help page cannot be located.  Please re-install Scrivolt to fix this problem.\n'"$nothing_box" \
  "$installed" "$installed/Scrivolt.exe" "/?"

# Each help file: every help topic its message list can ask for is a page of
# it, every page its project names exists, and every link between its pages
# leads to a page it holds. English: help/ and text/message_list.h; each
# translation: help/<code>/ and languages/<code>/message_list.h.
check_help_file() {  # NAME PAGES_FOLDER MESSAGE_LIST
  local name=$1 pages=$2 list=$3 page target
  while IFS= read -r page; do
    if grep -qa "/$page" "$build/Help/$name.chm"; then
      passed=$((passed + 1))
    else
      fail help-topics "$name.chm has no page $page"
    fi
  done < <(sed -n 's/^MESSAGE([0-9]*, HelpTopic[A-Za-z]*, u"\([^"]*\)").*/\1/p' "$list")
  while IFS= read -r page; do
    # style.css is shared by every language and lives in help/ alone.
    if [ -f "$pages/$page" ] || [ "$page" = style.css ]; then
      passed=$((passed + 1))
    else
      fail help-pages "$name.hhp names $page, which is not in $pages"
    fi
    # A translated page is not the English one copied.
    if [ "$pages" != "$root/help" ] && [ "$page" != style.css ] && cmp -s "$pages/$page" "$root/help/$page"; then
      fail help-pages "$pages/$page is the English page"
    fi
  done < <(sed -n '/^\[FILES\]/,/^\[/{/^\[/d;/^$/d;p}' "$pages/$name.hhp" | tr -d '\r')
  while IFS= read -r target; do
    if grep -qx "$target" "$pages/$name.hhp"; then
      passed=$((passed + 1))
    else
      fail help-links "a page of $name links to $target, which the help file does not hold"
    fi
  done < <(grep -oh 'href="[^"#:]*"' "$pages"/*.html | sed 's/^href="//; s/"$//' | sort -u)
}
check_help_file Scrivolt_EN "$root/help" "$root/text/message_list.h"
check_help_file Scrivolt_NL "$root/help/nl" "$root/languages/nl/message_list.h"

# A language module is resources only: no entry point and no imported
# library, so loading it runs nothing.
module_headers=$(x86_64-w64-mingw32-objdump -p "$build/Scrivolt_NL.dll")
if ! grep -q '^AddressOfEntryPoint[[:space:]]*0*$' <<<"$module_headers"; then
  fail language-module "Scrivolt_NL.dll has an entry point"
elif grep -q 'DLL Name:' <<<"$module_headers"; then
  fail language-module "Scrivolt_NL.dll imports $(grep 'DLL Name:' <<<"$module_headers" | tr -s ' \n' ' ')"
else
  passed=$((passed + 1))
fi

# A run killed while it writes its output leaves the old file as it was and
# no temporary file beside it: the new content goes into a file that is
# deleted when its handle closes, until it takes the target's place. The kill
# comes once the temporary file is seen.
killed="$scratch/killed"
mkdir -p "$killed"
cp "$build/Scrivolt.exe" "$killed/"
yes 'A line of text without scripts, repeated to make a large template.' | head -c 40000000 >"$killed/big.txt"
echo "old content" >"$killed/target.txt"
(cd "$killed" && timeout 120 wine "$box_driver" "$killed/Scrivolt.exe" /feedbackdest file fb.txt \
  /in big.txt /out target.txt /go >/dev/null 2>&1) &
writer=$!
for _ in $(seq 1 3000); do compgen -G "$killed/~scrivolt-*" >/dev/null && break; sleep 0.01; done
seen_temporary=$(compgen -G "$killed/~scrivolt-*" | wc -l)
pkill -9 -f "^$killed/Scrivolt.exe"
wait "$writer"
sleep 1
left=$(cd "$killed" && compgen -G "~scrivolt-*")
if [ "$seen_temporary" = 0 ]; then
  fail killed-run "no temporary file appeared while the output was written"
elif [ "$(cat "$killed/target.txt")" != "old content" ] || [ -n "$left" ]; then
  fail killed-run "the target holds $(head -c 40 "$killed/target.txt"), left behind: $left"
else
  passed=$((passed + 1))
fi
rm -rf "$killed"

echo "windows shell: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
