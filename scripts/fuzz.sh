#!/usr/bin/env bash
# Builds the libFuzzer targets (clang, AddressSanitizer, UndefinedBehavior-
# Sanitizer) and runs each for SECONDS (default 300), one after another.
#
#   scripts/fuzz.sh [SECONDS] [TARGET...]
#
# Corpora live in build/fuzz/corpus/TARGET and grow from run to run; they are
# seeded from the end-to-end cases' input files and from fuzz/regressions/
# (inputs that once found a fault, kept so that they are tried first). A
# finding stops the script with exit code 1 and leaves its input in
# build/fuzz/findings/. Each target prints its last status line: executions,
# coverage and corpus size.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-300}
shift || true
mapfile -t all < <(ls fuzz/*.cpp | xargs -n1 basename | sed 's/\.cpp$//')
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=("${all[@]}")

cmake --preset fuzz >/dev/null
cmake --build build/fuzz -j "${JOBS:-2}" --target "${targets[@]}" >/dev/null

mkdir -p build/fuzz/findings
for target in "${targets[@]}"; do
  corpus=$PWD/build/fuzz/corpus/$target
  if [ ! -d "$corpus" ]; then
    mkdir -p "$corpus"
    find tests/e2e/cases -path '*/in/*' -type f -size -64k -exec cp -t "$corpus" {} + 2>/dev/null || true
  fi
  [ -d "fuzz/regressions/$target" ] && cp -n fuzz/regressions/"$target"/* "$corpus"/ 2>/dev/null || true
  options=(-max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -print_final_stats=1
           -artifact_prefix="$PWD/build/fuzz/findings/$target-")
  [ -f "fuzz/$target.dict" ] && options+=(-dict="$PWD/fuzz/$target.dict")
  log=build/fuzz/$target.log
  if ! "build/fuzz/fuzz/$target" "${options[@]}" "$corpus" >"$log" 2>&1; then
    tail -n 30 "$log"
    echo "$target: FINDING (see build/fuzz/findings/)"
    exit 1
  fi
  status=$(grep -E '^#[0-9]+' "$log" | tail -n 1 || true)
  runs=$(grep -E 'stat::number_of_executed_units' "$log" | awk '{print $2}')
  echo "$target: ${seconds} s, $runs runs, last status: ${status:-none}"
done
