#!/usr/bin/env bash
# The long form of the printer program's tests, one after another; ctest runs short forms.
# What it finds of each goes to build/printer-trial/NAME.log, and the last lines are shown.
#
# usage: printer_trials.sh BUILD SECONDS
#
# SECONDS is for the mutated requests. Those on imported PPDs need the corpus, which
# ./dev corpus fetches.
set -uo pipefail

source=$(realpath "$(dirname -- "${BASH_SOURCE[0]}")/../..")
build=$(realpath "$1")
seconds=$2
reports=$source/build/printer-trial
mkdir -p "$reports"
failed=0

# trial NAME SCRIPT [ARGUMENT...]
trial() {
  local name=$1 script=$2 status=0
  shift 2
  printf '==== %s\n' "$name"
  bash "$source/tests/$script" "$@" >"$reports/$name.log" 2>&1 || status=$?
  tail -n 7 "$reports/$name.log"
  if [ "$status" -ne 0 ]; then
    echo "FAILED with status $status: $reports/$name.log"
    failed=1
  fi
}

trial rules-of-ipp-everywhere printing/printer_everywhere_test.sh "$source" "$build" all
trial random-jobs printing/printer_trial_test.sh "$source" "$build" 500 300
trial clients printing/printer_clients_test.sh "$source" "$build" 10
trial kills printing/printer_kill_test.sh "$source" "$build" 200
trial memory printing/printer_memory_test.sh "$source" "$build" 1000 100
trial mutated-requests printing/printer_mutation_test.sh "$source" "$build" "$seconds"
if [ -e "$source/build/corpus/ppds.txt" ]; then
  trial advertised-values ipp/corpus.sh "$build" 500
  trial jobs-of-imports printing/printer_imports_test.sh "$source" "$build" 5 --corpus 500
  trial conflicts printing/printer_conflicts_test.sh "$source" "$build" 100 --corpus 40
else
  echo "without imported PPDs: ./dev corpus fetches them"
fi
exit "$failed"
