#!/usr/bin/env bash
# Runs every job FOLDER/*.ps in Ghostscript. A job is good when the interpreter
# reports no error and reaches the job's end, which prints a line. What is left
# on the stack is ignored: codes that need a printer's own operators fail within
# their frame, and what they leave may hide the frame's mark. Fails when a job
# is not good, or when there is none.
#
# usage: ghostscript.sh FOLDER
set -euo pipefail
shopt -s nullglob

folder=$1
jobs=0
failed=0
for job in "$folder"/*.ps; do
  jobs=$((jobs + 1))
  status=0
  output=$(gs -q -dSAFER -dNOPAUSE -dBATCH -sDEVICE=nullpage "$job" </dev/null 2>&1) || status=$?
  if [ "$status" -eq 0 ] && [ "${output##*$'\n'}" = 'job has ended' ] &&
    [[ $output != *Error:* ]]; then
    continue
  fi
  failed=$((failed + 1))
  printf 'corpus: Ghostscript does not take %s (status %s):\n%s\n' "$job" "$status" "$output" >&2
done
printf 'corpus: Ghostscript has run %s jobs, %s of them with errors\n' "$jobs" "$failed"
[ "$jobs" -gt 0 ] && [ "$failed" -eq 0 ]
