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
beginPrinterTest

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
grey() { # DEVICE OUTPUT: two pages with words on them.
  gs -q -dSAFER -dBATCH -dNOPAUSE -dNOINTERPOLATE -r50 "-sDEVICE=$1" -dcupsColorSpace=18 \
    -dcupsBitsPerColor=8 "-sOutputFile=$2" "$source/tests/printing/trial/pages.ps" >/dev/null 2>&1
}
grey appleraster page.urf
grey pwgraster words.pwg
printers=()
for i in 1 2 3 4 5 6 7 8; do printers+=("office$i=$source/descriptions/office_laser.xml"); done
startPrinter "$folder" --callbacks "$build/lib/liboffice_routines.so" "${printers[@]}"

# examine PRINTER VERSION TEST TYPE LEAST: so many tests must have passed, and none
# failed.
examine() {
  local result=result.$1 passed faults
  ipptool -I -tf "page.$4" -V "$2" "ipp://127.0.0.1:$printerPort/ipp/print/$1" "$3" \
    >"$result" 2>&1 || :
  passed=$(grep -c '\[PASS\]' "$result" || :)
  faults=$(grep -c '\[FAIL\]' "$result" || :)
  echo "$3 with $4: $passed passed, $faults failed"
  if [ "$faults" -eq 0 ] && [ "$passed" -ge "$5" ]; then return 0; fi
  grep -A 15 '\[FAIL\]' "$result" || tail -5 "$result"
  return 1
}

# The tests wait a lot, so all of them run at once.
examiners=()
examine office1 1.1 ipp-1.1.test ps 30 & examiners+=("$!")
examine office2 2.0 ipp-2.0.test jpg 31 & examiners+=("$!")
number=3
for type in pdf ps jpg pwg urf; do
  examine "office$number" 2.0 ipp-everywhere.test "$type" 32 & examiners+=("$!")
  number=$((number + 1))
done
failed=0
for examiner in "${examiners[@]}"; do wait "$examiner" || failed=1; done

# The same pixels print alike, whichever of the two forms they come in.
for file in page.urf words.pwg; do
  ipptool -tf "$file" "ipp://127.0.0.1:$printerPort/ipp/print/office8" print-job-and-wait.test \
    >result.words 2>&1 || :
  grep -q '\[PASS\]' result.words || { cat result.words; failed=1; }
done
mapfile -t words < <(grep -o 'office8: job [0-9]*: printed' printer.log | grep -o ' [0-9]*:' | tr -d ' :')
if ! cmp "printed/office8-${words[0]:-none}.prn" "printed/office8-${words[1]:-none}.prn"; then failed=1; fi
kill -0 "$printerProcess" || { echo "the printer has ended"; failed=1; }
exit "$failed"
