#!/usr/bin/env bash
# Runs the end-to-end cases: each folder under tests/e2e/cases is one run of
# the real program.
#
#   args          the arguments, one per line (UTF-8); may be empty. {DIR} in
#                 an argument stands for the working folder as the program sees it
#   in/           files copied into a fresh working folder, the run's current directory
#   expected/     files that must exist afterwards with exactly these bytes
#   absent        names (one per line) that must NOT exist afterwards
#   exit_code     the expected exit code (0 when missing)
#   stdin         given as standard input (POSIX program only; else nothing)
#   stdout        expected standard output (POSIX program only)
#   stderr        expected message boxes: the POSIX program writes each to
#                 standard error as its title on one line and its text below;
#                 the Windows program's boxes are recorded the same way by
#                 tests/windows_driver/box_driver.exe, which also closes them
#   stderr.windows  the Windows program's boxes, when they differ (paths)
#   platforms     "posix" or "windows" when the case holds for one program only
#
# In produced files, standard output and standard error, the working folder's
# absolute path is replaced by {DIR} before comparing, so expected bytes do not
# depend on where the run happens.
#
# The POSIX program runs in the C.UTF-8 locale, so its "ANSI" character set is
# UTF-8 wherever the tests run. The Windows program runs under Wine, started
# by the box driver (next to the test programs of its build, or $BOX_DRIVER);
# Wine needs an X display for the boxes (test_windows.sh starts Xvfb).
# A run that takes longer than CASE_TIMEOUT seconds (60) fails.
#
# Usage: run.sh [--windows] PROGRAM [CASE...]
set -uo pipefail

platform=posix
if [ "${1:-}" = "--windows" ]; then platform=windows; shift; fi
program=$(realpath "$1"); shift
box_driver=${BOX_DRIVER:-$(dirname "$program")/tests/box_driver.exe}
beta_notice='Scrivolt - Beta version
This is a beta version of Scrivolt.  While it is fully useable, we cannot guarantee that the final version will behave identically to this one.  We might somewhat improve/change the script language, so please take this into consideration when designing your templates.'
here=$(cd "$(dirname "$0")" && pwd)
cases=("$@")
[ ${#cases[@]} -gt 0 ] || mapfile -t cases < <(cd "$here/cases" && ls -d */ | sed 's:/$::')

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
passed=0
skipped=0

# The working folder as the program sees it: a POSIX path, or the Wine drive path.
program_dir() {
  if [ "$platform" = windows ]; then printf 'Z:%s' "${1//\//\\}"; else printf '%s' "$1"; fi
}

normalise() {  # file, folder as the program saw it
  local seen=$2
  sed -i "s|$(printf '%s' "$seen" | sed 's/[\\|.*^$[]/\\&/g')|{DIR}|g" "$1"
}

run_case() {
  local name=$1 case_dir="$here/cases/$1"
  if [ -f "$case_dir/platforms" ] && ! grep -qx "$platform" "$case_dir/platforms"; then
    skipped=$((skipped + 1))
    return 0
  fi
  local work="$scratch/$name"
  mkdir -p "$work"
  [ -d "$case_dir/in" ] && cp -a "$case_dir/in/." "$work/"
  local seen; seen=$(program_dir "$work")
  local args=()
  [ -f "$case_dir/args" ] && mapfile -t args < "$case_dir/args"
  local i
  for i in "${!args[@]}"; do args[$i]=${args[$i]//\{DIR\}/$seen}; done
  local code stdin=/dev/null
  [ -f "$case_dir/stdin" ] && stdin=$case_dir/stdin
  if [ "$platform" = windows ]; then
    # Wine's own error reports (not its notes on missing features) are kept.
    (cd "$work" && timeout "${CASE_TIMEOUT:-60}" env WINEDEBUG=fixme-all wine "$box_driver" "$program" "${args[@]}" \
       >"$scratch/$name.stderr" 2>"$scratch/$name.wine" </dev/null)
  else
    (cd "$work" && timeout "${CASE_TIMEOUT:-60}" env LC_ALL=C.UTF-8 "$program" "${args[@]}" \
       >"$scratch/$name.stdout" 2>"$scratch/$name.stderr" <"$stdin")
  fi
  code=$?
  local expected_code=0 problems=()
  [ -f "$case_dir/exit_code" ] && expected_code=$(tr -d '[:space:]' < "$case_dir/exit_code")
  # The Windows program greets every start with its beta notice; the case's
  # own boxes follow it.
  if [ "$platform" = windows ]; then
    if [ "$(head -n 2 "$scratch/$name.stderr")" = "$beta_notice" ]; then
      sed -i 1,2d "$scratch/$name.stderr"
    else
      problems+=("no beta notice before the case's boxes")
    fi
  fi
  if [ "$code" = 124 ]; then problems+=("timed out"); fi
  [ "$code" = "$expected_code" ] || problems+=("exit code $code, expected $expected_code")
  if [ -d "$case_dir/expected" ]; then
    while IFS= read -r -d '' file; do
      local rel=${file#"$case_dir/expected/"}
      if [ ! -f "$work/$rel" ]; then problems+=("missing $rel"); continue; fi
      cp "$work/$rel" "$scratch/actual"
      normalise "$scratch/actual" "$seen"
      cmp -s "$scratch/actual" "$file" || problems+=("$rel differs: $(cmp "$scratch/actual" "$file" 2>&1 | head -1)")
    done < <(find "$case_dir/expected" -type f -print0)
  fi
  if [ -f "$case_dir/absent" ]; then
    while IFS= read -r rel; do
      [ -z "$rel" ] || [ ! -e "$work/$rel" ] || problems+=("$rel exists but must not")
    done < "$case_dir/absent"
  fi
  local streams=(stdout:stdout stderr:stderr)
  [ "$platform" = windows ] && streams=(stderr:stderr.windows stderr:stderr)
  local pair stream expected checked=
  for pair in "${streams[@]}"; do
    stream=${pair%%:*} expected="$case_dir/${pair#*:}"
    [ -f "$expected" ] && [ -z "$checked" ] || continue
    [ "$platform" = windows ] && checked=1
    normalise "$scratch/$name.$stream" "$seen"
    cmp -s "$scratch/$name.$stream" "$expected" || problems+=("$stream differs from ${pair#*:}")
  done
  if [ ${#problems[@]} -eq 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAIL $name"
    printf '  %s\n' "${problems[@]}"
    # Under Wine the driver's own complaints and Wine's go to a third file.
    for stream in stdout stderr wine; do
      [ -s "$scratch/$name.$stream" ] && { echo "  --- $stream:"; sed 's/^/  | /' "$scratch/$name.$stream" | head -20; }
    done
  fi
}

for name in "${cases[@]}"; do run_case "$name"; done
echo "e2e-$platform: $passed passed, $failed failed, $skipped skipped"
[ "$failed" = 0 ]
