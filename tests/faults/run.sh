#!/usr/bin/env bash
# Fault injection against the Linux program: what a killed run, a full disk,
# a file-size limit and unusual targets leave behind, and how very large or
# deeply nested inputs end. Every check prints one line; the script exits 1
# when any failed.
#
#   tests/faults/run.sh PROGRAM [--quick]
#
# --quick skips the very large inputs (a 1 GB template, a million nested
# content arguments, a 500 MB CSV field), which need several GB of memory
# and minutes. Runs in a scratch folder under $TMPDIR.
set -uo pipefail

program=$(realpath "$1")
quick=${2:-}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
failed=0
passed=0

pass() { passed=$((passed + 1)); echo "ok   $*"; }
fail() { failed=$((failed + 1)); echo "FAIL $*"; }
check() { local what=$1; shift; if "$@"; then pass "$what"; else fail "$what"; fi; }

run() { LC_ALL=C.UTF-8 "$program" "$@" >/dev/null 2>run.err; }

# --- killed at random moments ---------------------------------------------------

# A 200 MB template without scripts: its output is itself.
head -c 150000000 /dev/urandom | base64 -w 100 | tr -d '<#' >big.txt
echo "old content" >old.txt
old_sum=$(md5sum <old.txt | cut -d' ' -f1)
printf '<# output file: "target.txt" content: (input file: "big.txt") #>' >via-output.txt

# Runs "$@" once to the end for the new content of target.txt, then six
# times killed after a random part of a second, and checks that target.txt
# then holds the old or the new content and that nothing else was left.
kill_during() {
  local what=$1 round; shift
  rm -f target.txt && cp old.txt target.txt
  LC_ALL=C.UTF-8 "$program" "$@" >/dev/null 2>&1
  local new_sum; new_sum=$(md5sum <target.txt | cut -d' ' -f1)
  for round in 1 2 3 4 5 6; do
    rm -f target.txt .scrivolt-* && cp old.txt target.txt
    LC_ALL=C.UTF-8 "$program" "$@" >/dev/null 2>&1 &
    local pid=$!
    sleep "0.$((RANDOM % 10))$((RANDOM % 10))"
    kill -9 $pid 2>/dev/null
    wait $pid 2>/dev/null
    local sum; sum=$(md5sum <target.txt | cut -d' ' -f1)
    local stray; stray=$(ls -A | grep -v -x -e big.txt -e old.txt -e target.txt -e via-output.txt -e run.err || true)
    if [[ ($sum != "$old_sum" && $sum != "$new_sum") || -n $stray ]]; then
      fail "$what: killed in round $round, target is neither old nor new or left: $stray"
      return
    fi
  done
  pass "$what: six kills leave the old or the new file and nothing else"
}
kill_during "output file" /in big.txt /out target.txt /go
kill_during "output file: of a template" /in via-output.txt /out /dev/null /go
kill_during "feedback file" /feedbackdest file target.txt /in big.txt /out /dev/null /go
rm -f big.txt

# --- write failures ------------------------------------------------------------------

echo 'new <# use param: "X" #>' >t.txt
check "/dev/full as output is 'Cannot write'" \
  bash -c "! LC_ALL=C.UTF-8 '$program' /set X 1 /in t.txt /out /dev/full /go 2>&1 | grep -q . || LC_ALL=C.UTF-8 '$program' /set X 1 /in t.txt /out /dev/full /go 2>&1 | grep -q 'Cannot write to file \"/dev/full\"'"
cp old.txt keep.txt
head -c 300000 /dev/zero | tr '\0' 'x' >wide.txt
(ulimit -f 100; trap '' XFSZ; LC_ALL=C.UTF-8 "$program" /in wide.txt /out keep.txt /go >/dev/null 2>run.err)
check "a file-size limit is 'Cannot write' and keeps the old file" \
  bash -c "grep -q 'Cannot write' run.err && cmp -s keep.txt old.txt"
printf '<# for value: "i" from: "1" to: "40000" do: "0123456789" #>' >loop.txt
(ulimit -f 100; trap '' XFSZ; LC_ALL=C.UTF-8 "$program" /in loop.txt /out keep.txt /go >/dev/null 2>run.err)
check "a file-size limit met while a large output is written as it comes is 'Cannot write' and keeps the old file" \
  bash -c "grep -q 'Cannot write' run.err && cmp -s keep.txt old.txt && [ -z \"\$(ls -A | grep '^\.scrivolt-')\" ]"
check "a missing folder is 'Cannot write'" \
  bash -c "! LC_ALL=C.UTF-8 '$program' /set X 1 /in t.txt /out no/such/folder.txt /go 2>run.err && grep -q 'Cannot write' run.err"

# --- targets that are not plain files ------------------------------------------------

if [ "$(id -u)" = 0 ]; then
  mknod ./null c 1 3 && chmod 666 ./null
  run /set X 1 /in t.txt /out ./null /go
  check "a device stays a device" test -c ./null
  echo old >owned.txt && chown 65534:65534 owned.txt
  run /set X 1 /in t.txt /out owned.txt /go
  check "a file keeps its owner and group" bash -c '[ "$(stat -c %u:%g owned.txt)" = 65534:65534 ] && grep -q new owned.txt'
fi
run /set X 1 /in t.txt /out /dev/null /go
check "/dev/null stays a device" test -c /dev/null
echo old >real.txt && ln -sf real.txt link.txt
run /set X 1 /in t.txt /out link.txt /go
check "a symbolic link stays a link and its file is written" bash -c 'test -L link.txt && grep -q new real.txt'
echo old >one.txt && ln -f one.txt two.txt
run /set X 1 /in t.txt /out one.txt /go
check "a hard link stays linked" bash -c 'grep -q new two.txt && [ "$(stat -c %h one.txt)" = 2 ]'
echo old >mode.txt && chmod 640 mode.txt
run /set X 1 /in t.txt /out mode.txt /go
check "permission bits are kept" bash -c '[ "$(stat -c %a mode.txt)" = 640 ]'
LC_ALL=C.UTF-8 "$program" /set X 1 /in t.txt /out - /go 2>/dev/null | cat >piped.txt
check "/out - writes into a pipe" grep -q 'new 1' piped.txt

# --- very large and deeply nested inputs ----------------------------------------

# Ends with an output or a clear error: exit code 0 or 1, never a crash.
ends_cleanly() {
  local what=$1; shift
  timeout 600 env LC_ALL=C.UTF-8 "$program" "$@" >/dev/null 2>run.err
  local code=$?
  if [ $code -le 1 ]; then pass "$what (exit code $code)"; else fail "$what: exit code $code"; fi
}
if [ "$quick" != --quick ]; then
  head -c 800000000 /dev/urandom | base64 -w 100 | tr -d '<#' >huge.txt
  ends_cleanly "a 1 GB template" /in huge.txt /out huge-out.txt /go
  rm -f huge.txt huge-out.txt
  python3 -c "
n = 1000000
open('nested.txt', 'w').write('<# nooutput content: (' * 1 + '#>' + '<# if what: \"1\" is: \"1\" then: (#>x' * n + '<#)#>' * n + '<#) #>')
"
  ends_cleanly "a million nested content arguments" /in nested.txt /out nested-out.txt /go
  grep -q 'Too many nested' run.err && pass "  ... reported as too many nested calls" || fail "  ... not reported as too many nested calls"
  python3 -c "
import sys
with open('field.csv', 'w') as f:
    f.write('\"')
    chunk = 'x' * 1000000
    for _ in range(500): f.write(chunk)
    f.write('\"\r\n')
open('csv.txt', 'w').write('<# decode what: (input file: \"field.csv\") from: \"csvlines\" to: \"R\" #><# subparamcount param: \"R.#1\" #>')
"
  ends_cleanly "a CSV field of 500 MB" /in csv.txt /out csv-out.txt /go
  rm -f nested.txt field.csv
fi

echo "faults: $passed passed, $failed failed"
[ $failed -eq 0 ]
