#!/usr/bin/env bash
# Mutated requests for the printer program. Built with the address checker (preset asan),
# it also reports what that finds, in the program and in the processes of its jobs.
#
# usage: printer_mutation_test.sh SOURCE_DIR BUILD_DIR SECONDS [SEED]
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
seconds=$3
seed=${4:-1}
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest

cp -- "$source/tests/printing/two_pages.ps" "$folder/page.ps"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sOutputFile="$folder/page.pdf" "$folder/page.ps"
gs -q -dSAFER -dBATCH -dNOPAUSE -dLastPage=1 -r20 -sDEVICE=jpeg -sOutputFile="$folder/page.jpg" \
  "$folder/page.ps"
gs -q -dSAFER -dBATCH -dNOPAUSE -dNOINTERPOLATE -dLastPage=1 -r20 -sDEVICE=pwgraster \
  -sOutputFile="$folder/page.pwg" "$folder/page.ps" >/dev/null 2>&1
mkdir "$folder/findings"
# Routines and libraries keep what they have for as long as they live.
export ASAN_OPTIONS="log_path=$folder/findings/asan:detect_leaks=0:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="log_path=$folder/findings/ubsan:print_stacktrace=1:${UBSAN_OPTIONS:-}"
startPrinter "$folder" --tls offered --callbacks "$build/lib/liboffice_routines.so" \
  "office=$source/descriptions/office_laser.xml" "labels=$source/descriptions/label_printer.xml"
status=0
python3 -B "$source/tests/printing/trial/mutated_requests.py" "$seconds" "$seed" "$printerPort" \
  "$printerProcess" "$folder"/page.{ps,pdf,jpg,pwg} || status=1
if [ "$status" -ne 0 ]; then tail -30 "$folder/printer.log"; fi
stopPrinter
for finding in "$folder"/findings/*; do
  [ -e "$finding" ] || continue
  head -60 "$finding"
  status=1
done
grep -c ': accepted from' "$folder/printer.log" | sed 's/$/ jobs were accepted/'
exit "$status"
