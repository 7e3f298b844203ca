#!/usr/bin/env bash
# Runs programs under valgrind's memcheck:
# memcheck.sh BUILD_FOLDER SOURCE_FOLDER ROUTINES
#
# Reads and writes outside of memory, and uses of what was never set, are
# errors; memcheck.supp holds one of the system's. Leaks are not looked for: the model is never
# freed by design, and the check for leaks of the preset asan knows what else
# there is.
set -eu

build=$1
source=$2
routines=$3
readonly kMissing=77 # What ctest takes for a skipped test.

if ! command -v valgrind >/dev/null; then
  echo "skipped: valgrind is not installed; ./dev setup installs it"
  exit "$kMissing"
fi

work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT

# check NAME COMMAND...: ends the script when memcheck or the command fails.
check() {
  local name=$1 status=0
  shift
  valgrind --quiet --tool=memcheck --leak-check=no --error-exitcode=99 \
    --suppressions="${BASH_SOURCE[0]%/*}/memcheck.supp" \
    --log-file="$work/memcheck" "$@" >"$work/output" 2>&1 || status=$?
  if [ "$status" -ne 0 ] || [ -s "$work/memcheck" ]; then
    printf '%s under memcheck: status %s\n' "$name" "$status"
    cat -- "$work/memcheck" "$work/output"
    exit 1
  fi
  printf '%s under memcheck: no error\n' "$name"
}

check "the plug-in's tests" "$build/bin/plugin_tests" \
  --gtest_filter='HostSessionTest.*' --gtest_brief=1
grep -q PASSED "$work/output" || { echo "no test was run"; exit 1; }

for form in ps pjl ticket; do
  check "driver-feature emit --to $form" "$build/bin/driver-feature" \
    --callbacks "$routines" emit "$source/descriptions/office_laser.xml" --to "$form" \
    --records PageExceptions "$source/descriptions/page_exceptions.json" --output "$work/$form"
  [ -s "$work/$form" ] || { echo "nothing was written"; exit 1; }
done
