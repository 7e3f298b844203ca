#!/usr/bin/env bash
# Runs cupstestppd on the PPDs that driver-feature queue writes: of the shipped
# descriptions, of those in the documents and of imported PPDs. What it makes of
# a description must pass; what it makes of a printer's PPD must fail in nothing
# that the printer's passes. queue_ppds.sh does so for many more.
#
# usage: cupstestppd_test.sh SOURCE_DIR BUILD_DIR
set -euo pipefail

source=$(realpath "$1")
build=$(realpath "$2")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
# shellcheck source=tests/printing/cupstestppd.sh
. "$tools/cupstestppd.sh"
# shellcheck source=tests/description_docs/console.sh
. "$tools/../description_docs/console.sh"
needCupstestppd
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
failures=0

fail() {
  printf '%s\n' "$*"
  failures=$((failures + 1))
}

run() {
  local messages
  messages=$("$build/bin/driver-feature" --library "$build/lib/libDriverFeature.so" \
    --callbacks "$build/lib/liboffice_routines.so" "$@" 2>&1) || fail "$* fails: $messages"
}

# expectPass DESCRIPTION: the PPD made of it passes.
expectPass() {
  local found
  rm -f "$folder/made.ppd"
  run queue "$1" --output "$folder/made.ppd"
  found=$(failuresOf "$folder/made.ppd")
  [ -z "$found" ] || fail "$1: $found"
  descriptions=$((descriptions + 1))
}

# The failures of a PPD are found.

head -n 3 "$source/tests/printing/office.ppd" >"$folder/bare.ppd"
grep -qxF 'REQUIRED PageSize' <(failuresOf "$folder/bare.ppd") || fail "a bare PPD passes"
grep -qxF 'REQUIRED PageSize' \
  <(furtherFailures "$source/tests/printing/office.ppd" "$folder/bare.ppd") ||
  fail "a PPD that lost its page sizes fails in nothing further"
[ -n "$(failuresOf "$folder/none.ppd")" ] || fail "a PPD that does not exist passes"

# Descriptions: shipped ones, and those of the documents.

descriptions=0
for description in "$source"/descriptions/{label_printer,office_laser}.xml \
    "$source/tests/printing/queue_printer.xml"; do
  expectPass "$description"
done
for document in "$source"/docs/*.md "$source/README.md"; do
  blocks=$folder/blocks.${document##*/}
  mkdir "$blocks"
  listBlocks "$document" "$blocks" >"$folder/list"
  for block in "$blocks"/*; do
    [ -e "$block" ] || continue
    head -n 1 "$block" | grep -qF '<FeatureDescription' || continue
    # The parts of other examples do not load.
    "$build/bin/driver-feature" show "$block" >"$folder/shown" 2>&1 || continue
    expectPass "$block"
  done
done
[ "$descriptions" -ge 5 ] || fail "only $descriptions descriptions were tried"

# Imported PPDs.

grep -v '^\*cupsFilter' "$source/tests/printing/office.ppd" >"$folder/plain.ppd"
ppds=("$source"/tests/ppd/files/*.ppd "$source/tests/printing/office.ppd" "$folder/plain.ppd"
  "$source/tests/equivalence/small.ppd")
passing=0
for ppd in "${ppds[@]}"; do
  run import "$ppd" --output "$folder/import.xml"
  expectPass "$folder/import.xml"
  rm -f "$folder/queue.ppd"
  run queue "$folder/import.xml" --ppd "$ppd" --output "$folder/queue.ppd"
  further=$(furtherFailures "$ppd" "$folder/queue.ppd")
  [ -z "$further" ] || fail "$ppd: $further"
  if [ -z "$(failuresOf "$ppd")" ]; then passing=$((passing + 1)); fi
  printf '%s\t%s\n' "$ppd" "$folder/queue.ppd" | "$build/bin/queue_media" >"$folder/media" ||
    fail "$(<"$folder/media")"
done
[ "$passing" -gt 0 ] || fail "none of the PPDs passes by itself"

echo "$descriptions descriptions, ${#ppds[@]} PPDs, $failures failures"
exit $((failures > 0))
