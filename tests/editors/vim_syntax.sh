#!/usr/bin/env bash
# Loads the Vim syntax file on the sample template and checks the syntax
# group Vim gives to some of its parts.
set -uo pipefail
cd "$(dirname "$0")/../.."
sample=tests/editors/template.scrivolt
# line column expected-group, for the sample's lines 2, 12 and 18
checks=(
  "2 9 scrivoltFunction" "2 13 scrivoltArgument" "2 21 scrivoltString" "2 36 scrivoltEscape"
  "12 37 scrivoltFunction" "12 48 scrivoltReference" "12 23 scrivoltString"
  "18 4 scrivoltFunction" "18 7 scrivoltComment" "18 57 scrivoltContentText"
)
failed=0
for check in "${checks[@]}"; do
  read -r line column expected <<<"$check"
  actual=$(vim -Es -N -u NONE -i NONE --cmd 'set rtp^=editors/vim' -c 'syntax on' -c 'set filetype=scrivolt' \
    -c "redir! > /dev/stdout | echo synIDattr(synID($line, $column, 1), 'name') | redir END" -c 'qa!' "$sample" | tr -d '\r\n ')
  if [ "$actual" != "$expected" ]; then echo "FAIL line $line column $column: $actual, not $expected"; failed=1; fi
done
echo "vim syntax: ${#checks[@]} checks, failed=$failed"
exit $failed
