#!/usr/bin/env bash
# Runs the examples of the document on printing, with a scheduler of its own:
# their output must be what it shows, byte for byte, and cupstestppd must pass
# the PPDs among them.
#
# usage: document_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
document=$source/docs/printing.md
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
# shellcheck source=tests/printing/scheduler.sh
. "$tools/scheduler.sh"
# shellcheck source=tests/printing/cupstestppd.sh
. "$tools/cupstestppd.sh"
# shellcheck source=tests/description_docs/console.sh
. "$tools/../description_docs/console.sh"
schedulerProcess=
folder=$(mktemp -d)
chmod 755 "$folder"
trap 'stopScheduler; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP
unset CUPS_SERVER LC_ALL LANGUAGE
export LANG=C CUPS_USER=jane HOME=$folder/work

needPrograms
needCupstestppd
makeScheduler "$folder" "$build/bin/driver-feature-filter" \
  "$build"/lib/lib{DriverFeature,CommonAPI,XMLParser}.so
mkdir "$folder/blocks" "$folder/work"
chmod 755 "$folder/work"
list=$(listBlocks "$document" "$folder/blocks")
startScheduler "$folder"
cd "$folder/work"
# The scheduler writes as lp, who may not create files in this folder.
for device in office labels; do
  : >"$device.prn"
  chmod 666 "$device.prn"
done
# shellcheck disable=SC2034  # named by the sessions
DEVICE=file:$PWD/office.prn LABELS=file:$PWD/labels.prn

# The names that the document uses.
# shellcheck disable=SC2317  # called by the sessions
driver-feature() { command "$build/bin/driver-feature" "$@"; }
# shellcheck disable=SC2317  # called by the sessions
driver-feature-filter() { command "$build/bin/driver-feature-filter" "$@"; }
# Returns when the job is printed.
# shellcheck disable=SC2317  # called by the sessions
lp() { command lp "$@" && waitFor 20 isIdle; }

failures=0 sessions=0
while read -r number language line key value; do
  block=$folder/blocks/$number
  if [ "$key" = file: ]; then
    cp -- "$block" "$value"
  elif [ "$language" = console ]; then
    runSession "$block" >"$folder/actual"
    diff -u --label document --label program "$block" "$folder/actual" || {
      echo "$document:$line: the output differs"
      failures=$((failures + 1))
    }
    sessions=$((sessions + 1))
  else
    echo "$document:$line: nobody knows what to do with this block in \"$language\""
    failures=$((failures + 1))
  fi
done <<<"$list"
[ "$sessions" -gt 0 ] || { echo "the document has no sessions"; exit 1; }
# Such as a printer without page sizes.
if grep -a '^C' "$folder/log/errors"; then
  echo "the scheduler finds a critical fault"
  failures=$((failures + 1))
fi
for ppd in *.ppd; do
  found=$(failuresOf "$ppd")
  if [ -n "$found" ]; then
    echo "$ppd: cupstestppd: $found"
    failures=$((failures + 1))
  fi
done
echo "$sessions sessions, $failures failures"
exit $((failures > 0))
