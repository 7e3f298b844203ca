#!/usr/bin/env bash
# fresh_load and fresh_open load a model of long lists, say how much memory they
# took, and fail for a file that is not there.
#
# usage: fresh_process_test.sh PROGRAM-FOLDER MODEL-FOLDER

set -euo pipefail

programs=$1
models=$2

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

"$programs/write_models" --lists "$models" 3 100
grep -q '<Option Name="ChoiceZ" .*/>' "$models/lists_ps_3_100" || fail "no choice Z"
[[ $(grep -c '<Option Name="Choice99" ' "$models/lists_ps_3_100") == 3 ]] || fail "no 100 choices"
[[ $(grep -c '^\*Feature0000[0-2] Choice99: ' "$models/lists_ppd_3_100") == 3 ]] ||
  fail "no 100 choices of the peer"

for run in "fresh_load lists_ps" "fresh_open lists_ppd"; do
  read -r program kind <<<"$run"
  output=$("$programs/$program" "$models/${kind}_3_100") || fail "$program"
  [[ -z $output ]] || fail "$program wrote: $output"
  peak=$("$programs/$program" --peak "$models/${kind}_3_100") || fail "$program --peak"
  [[ $peak =~ ^[0-9]{4,}$ ]] || fail "$program had $peak KiB"
  if "$programs/$program" "$models/none" 2>/dev/null; then fail "$program needs no file"; fi
done
