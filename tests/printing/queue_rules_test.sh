#!/usr/bin/env bash
# Imports PPDs, makes the PPDs of queues of the descriptions and compares what
# libcups finds in these with what it finds in the printers': the conflicts of
# each choice, and the texts in each language. queue_ppds.sh does so for many
# more.
#
# usage: queue_rules_test.sh SOURCE_DIR BUILD_DIR
set -euo pipefail

source=$(realpath "$1")
build=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

program() { "$build/bin/driver-feature" --library "$build/lib/libDriverFeature.so" "$@"; }

fail() {
  printf '%s\n' "$*"
  exit 1
}

# queuePpd PPD: makes $folder/made.ppd.
queuePpd() {
  program import "$1" --output "$folder/made.xml" --quiet
  program queue "$folder/made.xml" --output "$folder/made.ppd" >/dev/null 2>&1
}

compare() { printf '%s\t%s\n' "$1" "$folder/made.ppd" | "$build/bin/queue_rules"; }

for ppd in "$source"/tests/ppd/files/{custom,pages}.ppd "$source"/tests/printing/{office,rules}.ppd \
  "$source/tests/equivalence/small.ppd"; do
  queuePpd "$ppd"
  found=$(compare "$ppd") || fail "$found"
done

# expectFigures PPD TEXT
expectFigures() {
  queuePpd "$1"
  [ "$(compare "$1")" = "$2" ] || fail "$(compare "$1")"
}

# The figures are those of a file with conflicts and translations; and of one with
# options that have several choices at once.
expectFigures "$source/tests/printing/staples.ppd" \
  '1 PPDs, 6 choices, 3 in conflict; 22 texts (0 damaged ones left out), 1 translations; 0 PPDs differ'
rules=$source/tests/printing/rules.ppd
expectFigures "$rules" \
  '1 PPDs, 20 choices, 4 in conflict; 84 texts (0 damaged ones left out), 2 translations; 0 PPDs differ'

# Sizes and margins come back as the file has them.
for keyword in ImageableArea PaperDimension; do
  diff <(grep "^\*$keyword" "$rules") <(grep "^\*$keyword" "$folder/made.ppd") || fail "$keyword"
done

# expectDifference SCRIPT TEXT: the PPD that sed makes with the script differs so.
expectDifference() {
  queuePpd "$rules"
  sed -i "$1" "$folder/made.ppd"
  if found=$(compare "$rules"); then fail "nothing is found after $1"; fi
  grep -qF "$2" <<<"$found" || fail "$found"
}

expectDifference '/^\*UIConstraints: \*Finisher/d' \
  ": 2: Finisher=Staple conflicts with Unit, in the queue's with nothing"
expectDifference 's/Papierformat/Blatt/' \
  ": 1: de.UTF-8: PageSize is \"Papierformat\", in the queue's \"Blatt\""
