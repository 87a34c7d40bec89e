#!/usr/bin/env bash
# Runs every example of the user guide and compares the files it shows as
# results with what the program writes, so the guide cannot drift from the
# program.
#
#   tests/guide/run.sh PROGRAM [GUIDE]
#
# An example starts at a line "<!-- example: NAME -->" and runs to the next
# one or the next "## " heading. In it:
#   File `NAME`: followed by a fenced block   a file to create (the block's text)
#   Run `scrivolt ARGS`                       the run (ARGS split as a shell would)
#   `NAME` holds: followed by a fenced block  a file the run must have written
# A UTF-8 byte-order mark at the start of a written file is not compared.
set -uo pipefail
program=$(realpath "$1")
guide=${2:-"$(dirname "$0")/../../docs/guide.md"}
exec python3 - "$program" "$guide" <<'PYTHON'
import os, re, shlex, subprocess, sys, tempfile

program, guide = sys.argv[1], sys.argv[2]
text = open(guide, encoding="utf-8").read()
block = r"\n\n```[a-z]*\n(.*?)```"
examples = re.split(r"<!-- example: ([\w-]+) -->", text)[1:]
failed = 0
for name, body in zip(examples[0::2], examples[1::2]):
    body = re.split(r"\n## ", body)[0]
    files = re.findall(r"File `([^`]+)`:" + block, body, re.S)
    runs = re.findall(r"Run `scrivolt ([^`]*)`", body)
    results = re.findall(r"`([^`]+)` holds:" + block, body, re.S)
    problems = []
    if len(runs) != 1 or not results:
        problems.append("needs one run and at least one result")
    with tempfile.TemporaryDirectory() as work:
        for file_name, content in files:
            with open(os.path.join(work, file_name), "w", encoding="utf-8", newline="") as f:
                f.write(content)
        for args in runs:
            run = subprocess.run([program] + shlex.split(args), cwd=work, capture_output=True,
                                 env=dict(os.environ, LC_ALL="C.UTF-8"), timeout=60)
            if run.returncode != 0:
                problems.append("exit code %d: %s" % (run.returncode, run.stderr.decode("utf-8", "replace")))
        for file_name, expected in results:
            path = os.path.join(work, file_name)
            if not os.path.exists(path):
                problems.append("%s was not written" % file_name)
                continue
            actual = open(path, "rb").read().decode("utf-8", "replace")
            actual = actual[1:] if actual.startswith("\ufeff") else actual
            if actual != expected:
                problems.append("%s differs:\n--- guide\n%s--- program\n%s" % (file_name, expected, actual))
    if problems:
        failed += 1
        print("FAIL %s\n  %s" % (name, "\n  ".join(problems)))
count = len(examples) // 2
print("guide: %d examples, %d failed" % (count, failed))
sys.exit(1 if failed or count == 0 else 0)
PYTHON
