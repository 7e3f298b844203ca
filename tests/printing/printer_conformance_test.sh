#!/usr/bin/env bash
# Examines the printer program with ipptool: the tests of IPP/1.1, IPP/2.0 and IPP
# Everywhere, with documents of each type. ipptool may return 0 in spite of a failed
# test, so its lines are counted.
#
# usage: printer_conformance_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
asUser=()
printerProcess=
folder=$(mktemp -d)
trap 'stopPrinter; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP

for program in ipptool gs; do
  command -v "$program" >/dev/null ||
    { echo "$program is missing: apt-get install cups-ipp-utils ghostscript"; exit 1; }
done
cd "$folder"
cp -- "$source/tests/printing/two_pages.ps" page.ps
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sOutputFile=page.pdf page.ps
gs -q -dSAFER -dBATCH -dNOPAUSE -dLastPage=1 -r50 -sDEVICE=jpeg -sOutputFile=page.jpg page.ps
gs -q -dSAFER -dBATCH -dNOPAUSE -dNOINTERPOLATE -r50 -sDEVICE=pwgraster -sOutputFile=page.pwg \
  page.ps >/dev/null 2>&1
startPrinter "$folder" --callbacks "$build/lib/liboffice_routines.so" \
  "office=$source/descriptions/office_laser.xml"

failed=0
# examine VERSION TEST TYPE LEAST: so many tests must have passed, and none failed.
examine() {
  ipptool -I -tf "page.$3" -V "$1" "ipp://127.0.0.1:$printerPort/ipp/print/office" "$2" \
    >"$2.$3" 2>&1 || :
  local passed faults
  passed=$(grep -c '\[PASS\]' "$2.$3" || :)
  faults=$(grep -c '\[FAIL\]' "$2.$3" || :)
  echo "$2 with $3: $passed passed, $faults failed"
  if [ "$faults" -eq 0 ] && [ "$passed" -ge "$4" ]; then return 0; fi
  grep -A 15 '\[FAIL\]' "$2.$3" || tail -5 "$2.$3"
  failed=1
}

examine 1.1 ipp-1.1.test ps 30
examine 2.0 ipp-2.0.test jpg 31
for type in pdf ps jpg pwg; do examine 2.0 ipp-everywhere.test "$type" 32; done
kill -0 "$printerProcess" || { echo "the printer has ended"; failed=1; }
exit "$failed"
