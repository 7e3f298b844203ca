#!/usr/bin/env bash
# Imports PPDs of the corpus, writes the PPDs of their queues and looks at
# these: cupstestppd must find nothing in those made of the descriptions, except
# conflicts of the defaults, and constraints out of which libcups finds no way, which
# the printer's PPD has as well; and
# nothing further in the others; libcups must write the same of the others as of
# the printers' PPDs, for all choices of trays, manual feed and page size; and it
# must find the same conflicts and texts in those made of the descriptions.
#
# usage: queue_ppds.sh BUILD [COUNT | FIRST-LAST]
#
# COUNT PPDs of the corpus are taken, 200 without it, "all" for each of them; those
# of equivalence/sample.txt first, then the others in the order of their checksums.
# 201-3000 takes those of these numbers. BUILD is the folder of a preset, such as
# build/release. The report is build/corpus/queue_ppds.txt.
set -euo pipefail

tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
# shellcheck source=tests/printing/cupstestppd.sh
. "$tools/cupstestppd.sh"

source=$(realpath "$tools/../..")
build=$(realpath "$1")
count=${2:-200}
corpus=$source/build/corpus
program=$build/bin/driver-feature

say() { printf 'queue PPDs: %s\n' "$*"; }

# queuePpd RESULT ARGUMENT...: the PPD of a queue; fails with the messages.
queuePpd() {
  local result=$1 messages
  shift
  messages=$("$program" --library "$build/lib/libDriverFeature.so" queue "$folder/$$.xml" \
    --output "$result" "$@" 2>&1) || { printf '%s' "$messages"; return 1; }
}

# examine NAME: prints a line for each thing that is not as it should be.
examine() {
  local ppd=$corpus/ppds/$1 queue=$folder/queue/$2.ppd made=$folder/made/$2.ppd found
  if ! "$program" import "$ppd" --output "$folder/$$.xml" >/dev/null 2>&1; then
    echo "$1: is not imported"
    return
  fi
  found=$(queuePpd "$queue" --ppd "$ppd") || echo "$1: with --ppd: $found"
  found=$(queuePpd "$made") || echo "$1: without: $found"
  if [ -z "$(failuresOf "$ppd")" ]; then echo "$1" >>"$folder/passing.$$"; fi
  furtherFailures "$ppd" "$queue" | sed "s|^|$1: with --ppd: |"
  comm -13 <(failuresOf "$ppd" | grep -E 'causes a loop|conflict') <(failuresOf "$made") |
    sed "s|^|$1: without: |"
  printf '%s\t%s\n' "$ppd" "$queue" >>"$folder/pairs.$$"
  printf '%s\t%s\n' "$ppd" "$made" >>"$folder/made_pairs.$$"
}

# names: the PPDs, those of the sample first.
names() {
  sed -e '/^#/d' -e '/^$/d' "$source/equivalence/sample.txt"
  sort "$corpus/ppds.txt" | cut -d ' ' -f 3- | grep -vxFf "$source/equivalence/sample.txt"
}

# A part of the PPDs, in a process of its own.
if [ "${3:-}" = --part ]; then
  folder=$4
  while read -r number name; do examine "$name" "$number"; done
  exit
fi

needCupstestppd
bash "$source/equivalence/fetch.sh" "$source/build/corpus"
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
mkdir "$folder/queue" "$folder/made"
names >"$folder/names"
case $count in
all) ;;
*-*) sed -i -n "${count%-*},${count#*-}p" "$folder/names" ;;
*) sed -i -n "1,${count}p" "$folder/names" ;;
esac
cat -n "$folder/names" >"$folder/numbered"
split -n "r/$(nproc)" "$folder/numbered" "$folder/part."
for part in "$folder"/part.*; do
  bash "${BASH_SOURCE[0]}" "$build" "$count" --part "$folder" <"$part" >"$part.found" &
done
wait
report=$corpus/queue_ppds.txt
cat "$folder"/part.*.found | sort >"$report"
failed=$(wc -l <"$report")
cat "$folder"/pairs.* | "$build/bin/queue_media" >"$folder/media" || failed=$((failed + 1))
cat "$folder"/made_pairs.* | "$build/bin/queue_rules" >"$folder/rules" || failed=$((failed + 1))
cat "$folder/media" "$folder/rules" >>"$report"
say "$(wc -l <"$folder/names") PPDs, $(cat "$folder"/passing.* | wc -l) of which pass cupstestppd themselves"
say "cupstestppd and the commands: $(grep -c ': with' "$report" || :) findings"
say "media: $(tail -n 1 "$folder/media")"
say "conflicts and texts: $(tail -n 1 "$folder/rules")"
say "the report is $report"
exit $((failed > 0))
