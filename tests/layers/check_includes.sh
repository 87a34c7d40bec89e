#!/usr/bin/env bash
# Checks that every #include "..." runs down the layers, never up, and that no
# portable layer includes an operating-system header.
#
#   tests/layers/check_includes.sh [ROOT]
#
# ROOT is the source tree (default: the one this script is in). Prints one line
# per offending include and exits 1 when there is any; exits 0 otherwise.
set -euo pipefail

root=${1:-"$(cd "$(dirname "$0")/../.." && pwd)"}
cd "$root"

# Folders by layer, lowest first; a file belongs to the longest folder that
# holds it. A file may include files of its own layer and of the layers below.
layers=(
  "0 text/base"
  "1 platform"
  "2 text"
  "3 xml"
  "4 engine"
  "5 cmdline"
  "6 console"
  "6 app"
  "6 ui"
)

# The two platform halves never include each other.
exclusive_folders=(platform/posix platform/win32)

# Operating-system headers: only platform/ and the front ends may include them.
os_header_pattern='^(windows|winbase|winuser|shlwapi|shlobj|shellapi|commctrl|htmlhelp|unistd|fcntl|dirent|dlfcn|pthread|langinfo|iconv)\.h$|^sys/'
os_header_layers="platform console app ui"

# Upward includes that are known and waiting to be turned around: "file include".
known_upward=()

# Prints "LEVEL FOLDER" of the layer that holds path $1, nothing when none does.
layer_of() {
  local path=$1 best_level="" best_folder="" entry level folder
  for entry in "${layers[@]}"; do
    level=${entry%% *}
    folder=${entry#* }
    if [[ $path == "$folder"/* && ${#folder} -gt ${#best_folder} ]]; then
      best_level=$level
      best_folder=$folder
    fi
  done
  [[ -n $best_folder ]] && echo "$best_level $best_folder"
  return 0
}

is_known_upward() {
  local entry
  for entry in "${known_upward[@]}"; do
    [[ $entry == "$1 $2" ]] && return 0
  done
  return 1
}

crosses_platform_halves() {
  local file=$1 included=$2 half other
  for half in "${exclusive_folders[@]}"; do
    for other in "${exclusive_folders[@]}"; do
      [[ $half != "$other" && $file == "$half"/* && $included == "$other"/* ]] && return 0
    done
  done
  return 1
}

failures=0
fail() {
  echo "$1"
  failures=$((failures + 1))
}

while IFS= read -r file; do
  from=$(layer_of "$file")
  [[ -z $from ]] && continue
  from_level=${from%% *}
  from_top=${file%%/*}
  line_number=0
  while IFS= read -r line; do
    line_number=$((line_number + 1))
    if [[ $line =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*\"([^\"]+)\" ]]; then
      included=${BASH_REMATCH[1]}
      to=$(layer_of "$included")
      [[ -z $to ]] && continue
      to_level=${to%% *}
      if ((to_level > from_level)) && ! is_known_upward "$file" "$included"; then
        fail "$file:$line_number: includes \"$included\" of layer ${to#* }, which lies above ${from#* }"
      elif crosses_platform_halves "$file" "$included"; then
        fail "$file:$line_number: includes \"$included\" of the other platform"
      fi
    elif [[ $line =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*\<([^\>]+)\> ]]; then
      included=${BASH_REMATCH[1]}
      included_lower=${included,,}
      if [[ $included_lower =~ $os_header_pattern && " $os_header_layers " != *" $from_top "* ]]; then
        fail "$file:$line_number: includes the operating-system header <$included>"
      fi
    fi
  done < "$file"
done < <(find text xml engine cmdline platform console app ui -type f \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null | sort)

if ((failures > 0)); then
  echo "$failures include(s) run against the layers"
  exit 1
fi
echo "Includes follow the layers."
