#!/usr/bin/env bash
# Window tests of the Windows program under Wine. Each case folder holds
#   script        a script for the window driver (tests/windows_driver/win_driver.cpp)
#   expected      what the driver must print while working through it
# and optionally
#   Settings.ini  the settings file the program starts with
#   Settings.ini.after   the settings file it must leave, byte for byte
#   args          the program's arguments, one per line
#   in/           files of the folder the program runs in
#   modules       changes to the install folder, one per line:
#                   copy BUILD_FILE NAME   a file of the build under another name
#                   junk NAME              a file that is no module at all
#                   remove NAME            a file of the build left out
#   first.script, first.expected   a first instance of the program, started
#                 before the case's own and checked the same way
# The program runs from a folder of its own with the help file and the
# language modules of the build beside it. Pictures the scripts take ("shot
# NAME.bmp") are kept, as PNG, in BUILD/screenshots for a person to look at.
# The case's folder appears as {DIR} in transcripts.
#
# Needs Wine with an X display (test_windows.sh provides both).
#
# Usage: run.sh BUILD_FOLDER [CASE...]
# With TRANSCRIPTS=FOLDER every transcript is also copied there.
set -uo pipefail

build=$(realpath "$1")
shift
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
shots=$build/screenshots
mkdir -p "$shots"
settings_folder=$(winepath -u "$(wine cmd /c echo %APPDATA% 2>/dev/null | tr -d '\r')")/Scrivolt\ 11.3.3
passed=0
failed=0

# Lays out the program as it is installed (the executable, its language
# modules and Help/) in folder $1, changed as the case's modules file says.
install_program() {
  local folder=$1 case_dir=$2 action source name
  mkdir -p "$folder/Help"
  cp "$build/Scrivolt.exe" "$folder/"
  cp "$build"/Help/*.chm "$folder/Help/"
  for module in "$build"/Scrivolt_*.dll; do [ -f "$module" ] && cp "$module" "$folder/"; done
  [ -f "$case_dir/modules" ] || return 0
  while read -r action source name; do
    case $action in
      copy) cp "$build/$source" "$folder/$name" ;;
      junk) echo "no module" >"$folder/$source" ;;
      remove) rm -f "$folder/$source" ;;
    esac
  done <"$case_dir/modules"
}

# Runs the driver with script $1 against the program in $2 from folder $3,
# writing what it prints to $4.
drive() {
  local script=$1 program=$2 work=$3 transcript=$4
  shift 4
  # Pictures are written into the work folder under their own names.
  sed "s|^shot \(.*\)|shot $(winepath -w "$work" 2>/dev/null | sed 's/\\/\\\\/g')\\\\\1|" "$script" >"$transcript.script"
  (cd "$work" && timeout 180 wine "$build/tests/win_driver.exe" --timeout 30 \
    "$(winepath -w "$transcript.script" 2>/dev/null)" "$program" "$@") 2>>"$work/wine.log" | tr -d '\r' |
    sed "s|$(winepath -w "$work" 2>/dev/null | sed 's/[\\.]/\\&/g')|{DIR}|g" >"$transcript"
}

# Compares file $2 with what case $1 expects in $3; records a failure.
check_same() {
  local name=$1 actual=$2 expected=$3
  [ -n "${TRANSCRIPTS:-}" ] && cp "$actual" "$TRANSCRIPTS/$name.$(basename "$expected")"
  if [ ! -f "$expected" ]; then
    echo "FAIL $name: no $(basename "$expected"); the run gave:"
    cat "$actual"
    return 1
  fi
  diff -u "$expected" "$actual" >"$actual.diff" && return 0
  echo "FAIL $name: differs from $(basename "$expected")"
  cat "$actual.diff"
  return 1
}

run_case() {
  local case_dir=$1 name
  name=$(basename "$case_dir")
  local work=$scratch/$name ok=1 first=""
  mkdir -p "$work"
  [ -d "$case_dir/in" ] && cp -a "$case_dir/in/." "$work/"
  install_program "$work/installed" "$case_dir"
  rm -rf "$settings_folder"
  if [ -e "$case_dir/Settings.ini" ]; then
    mkdir -p "$settings_folder"
    cp -a "$case_dir/Settings.ini" "$settings_folder/"
  fi
  local args=()
  [ -f "$case_dir/args" ] && mapfile -t args <"$case_dir/args"
  if [ -f "$case_dir/first.script" ]; then
    drive "$case_dir/first.script" "$work/installed/Scrivolt.exe" "$work" "$work/first.transcript" &
    first=$!
    sleep "${FIRST_HEAD_START:-8}"
  fi
  drive "$case_dir/script" "$work/installed/Scrivolt.exe" "$work" "$work/transcript" "${args[@]}"
  check_same "$name" "$work/transcript" "$case_dir/expected" || ok=0
  if [ -n "$first" ]; then
    wait "$first"
    check_same "$name" "$work/first.transcript" "$case_dir/first.expected" || ok=0
  fi
  if [ -f "$case_dir/Settings.ini.after" ]; then
    check_same "$name" "$settings_folder/Settings.ini" "$case_dir/Settings.ini.after" || ok=0
  fi
  for picture in "$work"/*.bmp; do
    [ -f "$picture" ] && python3 "$here/bmp_to_png.py" "$picture" "$shots/$name-$(basename "${picture%.bmp}").png"
  done
  if [ $ok = 1 ]; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

cases=("$@")
[ ${#cases[@]} -gt 0 ] || cases=("$here"/cases/*/)
for case_dir in "${cases[@]}"; do run_case "${case_dir%/}"; done
rm -rf "$settings_folder"
echo "window tests: $passed passed, $failed failed (pictures in $shots)"
[ "$failed" -eq 0 ]
