#!/usr/bin/env bash
# Builds the Linux preset and runs every benchmark, printing its figures.
#
# Usage: bench/run.sh [FOLDER]
#
# FOLDER takes the large temporary files of the file benchmarks (default: the
# system's temporary folder); they are removed again. The machine should be
# otherwise idle: the figures are times on the wall clock.
set -euo pipefail

folder=()
if [ $# -gt 0 ]; then folder=("$(cd "$1" && pwd)"); fi
cd "$(dirname "$0")/.."
cmake --preset linux >/dev/null
cmake --build build/linux -j "${JOBS:-2}" >/dev/null

run() {
  echo
  echo "== $*"
  "build/linux/bench/$@"
}

run parser_bench
run param_bench
run functions_bench
run file_bench "${folder[@]}"
run process_bench 100 "${folder[@]}"
run codec_bench
run xml_bench
run json_bench
