#!/usr/bin/env bash
# Whether clients find the conflicts of the rules: what cupsCopyDestConflicts says of pairs
# of values of running printers, beside the rules of their descriptions.
#
# usage: printer_conflicts_test.sh SOURCE_DIR BUILD_DIR PAIRS PPD...
#        printer_conflicts_test.sh SOURCE_DIR BUILD_DIR PAIRS --corpus COUNT
#
# PAIRS for each printer: those of the shipped descriptions, and of the PPDs; COUNT of those
# of the corpus that have rules are taken, evenly spread. ./dev corpus fetches it.
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
pairs=$3
shift 3
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest
export CUPS_SERVER=127.0.0.1 LANG=C

files=("$@")
if [ "${1:-}" = --corpus ]; then
  corpus=$source/build/corpus
  mapfile -t files < <(cut -d ' ' -f 3- "$corpus/ppds.txt" | sort | sed "s|^|$corpus/ppds/|" |
    tr '\n' '\0' | xargs -0 grep -lE '^\*(UIConstraints|cupsUIConstraints)' |
    awk -v count="$2" '{ line[NR] = $0 } END {
      for (i = 1; i <= count; ++i) print line[int(NR * i / count)] }')
fi
arguments=("office=$source/descriptions/office_laser.xml" "labels=$source/descriptions/label_printer.xml")
for i in "${!files[@]}"; do
  if "$build/bin/driver-feature" import "${files[i]}" --output "$folder/p$i.xml" 2>/dev/null; then
    arguments+=("p$i=$folder/p$i.xml")
  fi
done
routines=$build/lib/liboffice_routines.so
startPrinter "$folder" --callbacks "$routines" "${arguments[@]}"
for ((wait = 0; wait < 1200; wait++)); do
  [ "$(grep -cE ': (ready|is left out)$' "$folder/printer.log")" -lt "${#arguments[@]}" ] || break
  sleep 0.1
done
trials=()
for argument in "${arguments[@]}"; do
  trials+=("${argument#*=}=ipp://localhost:$printerPort/ipp/print/${argument%%=*}")
done
"$build/bin/ipp_conflicts" --library "$build/lib/libDriverFeature.so" --routines "$routines" \
  --pairs "$pairs" "${trials[@]}"
