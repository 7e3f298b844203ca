#!/usr/bin/env bash
# Prints through a queue that a scheduler of its own makes of the printer program
# ("lpadmin -m everywhere"), and compares the commands of each job with those that
# driver-feature writes for the same settings.
#
# usage: printer_queue_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
# shellcheck source=tests/printing/scheduler.sh
. "$source/tests/printing/scheduler.sh"
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
schedulerProcess=
printerProcess=
folder=$(mktemp -d)
chmod 755 "$folder"
trap 'stopScheduler; stopPrinter; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP
unset CUPS_SERVER LC_ALL LANGUAGE
export LANG=C

fail() {
  printf '%s\n' "$*"
  tail -20 "$folder/printer/printer.log"
  grep -aE '^[EWN]' "$folder/log/errors" | tail -20
  exit 1
}

needPrograms
mkdir "$folder/printer"
description=$source/descriptions/office_laser.xml
routines=$build/lib/liboffice_routines.so
asPrinter=("${asUser[@]}")
asUser=()
startPrinter "$folder/printer" --callbacks "$routines" "office=$description"
asUser=("${asPrinter[@]}")

makeScheduler "$folder" "$build/bin/driver-feature-filter" "$build"/lib/libDriverFeature.so
ln -s /usr/lib/cups/backend/ipp "$folder/bin/backend/ipp"
for filter in pdftopdf pdftops gstopdf pstops gstoraster; do
  [ ! -x "/usr/lib/cups/filter/$filter" ] || ln -s "/usr/lib/cups/filter/$filter" "$folder/bin/filter/"
done
startScheduler "$folder"
lpadmin -p office -E -v "ipp://localhost:$printerPort/ipp/print/office" -m everywhere \
  2>"$folder/log/lpadmin" || fail "lpadmin: $(<"$folder/log/lpadmin")"

# The queue has the options of the description.
# The scheduler asks the printer and writes the PPD after lpadmin has ended.
hasOptions() { lpoptions -p office -l >"$folder/options" 2>&1 && grep -q '^Duplex/' "$folder/options"; }
waitFor 20 hasOptions || :
for option in PageSize InputSlot Duplex ColorModel OutputBin; do
  grep -q "^$option/" "$folder/options" || fail "the queue has no $option:" "$(<"$folder/options")"
done

gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sFONTPATH=/usr/share/fonts \
  -sOutputFile="$folder/page.pdf" -c "/Helvetica 24 selectfont 72 72 moveto (Hello printer) show showpage" -f

count=0
# expectCommands WHAT LP_ARGUMENT... -- SETTING...: prints with the arguments and
# compares the PJL with that of the settings.
expectCommands() {
  local what=$1 arguments=() settings=()
  shift
  while [ "$1" != -- ]; do arguments+=("$1"); shift; done
  shift
  for setting in "$@"; do settings+=(-o "$setting"); done
  lp -d office -t title "${arguments[@]}" "$folder/page.pdf" >"$folder/reply" || fail "lp fails: $what"
  count=$((count + 1))
  waitFor 20 allOver "$folder/printer" "$count" || fail "$what: nothing is printed"
  local job=$folder/printer/printed/office-$count.prn user
  user=$(sed -n 's/^@PJL SET USERNAME = "\(.*\)".$/\1/p' "$job")
  "$build/bin/driver-feature" --callbacks "$routines" emit "$description" --to pjl \
    -o JobName=title -o "UserName=$user" "${settings[@]}" >"$folder/expected" || fail "emit fails"
  sed -n '/^.%-12345X@PJL JOB\|^@PJL/p' "$job" | grep -av 'ENTER LANGUAGE\|EOJ' | tr -d '\033' |
    sed 's/^%-12345X//' >"$folder/got"
  grep -a '@PJL' "$folder/expected" | grep -v 'ENTER LANGUAGE\|EOJ' | tr -d '\033' |
    sed 's/^%-12345X//' >"$folder/wanted"
  diff -- "$folder/wanted" "$folder/got" || fail "$what: other commands"
}

expectCommands "the defaults" --
expectCommands "both sides" -o sides=two-sided-long-edge -- Duplex=LongEdge
expectCommands "another size" -o media=na_letter_8.5x11in -- PageSize=Letter
expectCommands "copies" -n 3 -- Copies=3
expectCommands "a tray and a bin" -o InputSlot=Tray2 -o OutputBin=FaceUp -- InputSlot=Tray2 OutputBin=FaceUp
expectCommands "a type and a colour" -o MediaType=Cardstock -o ColorModel=Gray -- \
  MediaType=CardStock ColorMode=Grayscale
expectCommands "a stapled job" -o StapleLocation=SinglePortrait -- Staple=TopLeft

# The text of the document can be taken out of what is printed.
sed -n '/^%!PS/,$p' "$folder/printer/printed/office-1.prn" >"$folder/printed.ps"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=txtwrite -sOutputFile="$folder/text" "$folder/printed.ps" ||
  fail "Ghostscript cannot read what is printed"
grep -q 'Hello printer' "$folder/text" || fail "the text is gone: $(<"$folder/text")"
