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

# The commands of the document, with a device and a port of the test's own.

stopPrinter
mkdir "$folder/document" "$folder/document/printed"
cd "$folder/document"
sed -n '/<!-- file: printer.ppd -->/,/^```$/p' "$source/docs/printing.md" | sed '1,2d;$d' >printer.ppd
cp -- "$folder/page.pdf" report.pdf
# shellcheck disable=SC2016  # a fence of Markdown
sed -n '/^## From a PPD/,/^## /p' "$source/docs/printer.md" | sed -n '/^```$/,/^```$/p' |
  grep -v '^```$' >commands
[ "$(wc -l <commands)" -eq 5 ] || fail "the document has not five commands:" "$(<commands)"
port=$(freePort)
sed -i -e "s|socket://printer.example|file:$PWD/printed/|" -e "s|localhost:8631|localhost:$port|" \
  -e 's|-p office|-p documented|; s|-d office|-d documented|' commands
# shellcheck disable=SC2317  # called by the commands
driver-feature() { command "$build/bin/driver-feature" "$@"; }
# shellcheck disable=SC2317  # called by the commands
driver-feature-printer() {
  exec "$build/bin/driver-feature-printer" --listen "127.0.0.1:$port" --spool spool "$@"
}
# A person is slower than the printer's start.
# shellcheck disable=SC2317  # called by the commands
lpadmin() { waitFor 20 grep -q ': ready$' log && command lpadmin "$@"; }
# shellcheck disable=SC2317  # called by the commands
lpoptions() { waitFor 20 command lpoptions "$@" >/dev/null 2>&1 && command lpoptions "$@"; }
eval "$(<commands)" >output 2>log || fail "the document's commands fail:" "$(<log)"
printerProcess=$!
grep -q '^Duplex/' output || fail "the documented queue has other options:" "$(<output)"
waitFor 20 test -e printed/office-1.prn || fail "the documented job is not printed:" "$(<log)"
grep -aq '^<</Duplex true/Tumble false>>setpagedevice' printed/office-1.prn ||
  fail "the documented job has other commands:" "$(head -60 printed/office-1.prn)"
