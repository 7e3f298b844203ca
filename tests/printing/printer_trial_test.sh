#!/usr/bin/env bash
# Random jobs for the printer program: through queues that a scheduler of its own makes of
# five printers ("lpadmin -m everywhere"), and from clients that send attributes of the
# descriptions' own. Every command of each is compared with what driver-feature emit writes.
#
# usage: printer_trial_test.sh SOURCE_DIR BUILD_DIR JOBS DIRECT_JOBS [SEED]
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
jobs=$3
direct=$4
seed=${5:-1}
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
export LANG=C PYTHONDONTWRITEBYTECODE=1

needPrograms
trial=$source/tests/printing/trial
routines=$build/lib/liboffice_routines.so
mkdir "$folder/printer"
queues=()
arguments=()
while read -r name file; do
  case $file in
    *.ppd) "$build/bin/driver-feature" import "$source/$file" --output "$folder/$name.xml" 2>/dev/null ;;
    *) cp -- "$source/$file" "$folder/$name.xml" ;;
  esac
  queues+=("$name")
  arguments+=("$name=$folder/$name.xml")
done < <(cd "$trial" && python3 -c 'import queues
for queue in queues.QUEUES: print(queue[0], queue[1])')
asPrinter=("${asUser[@]}")
asUser=()
startPrinter "$folder/printer" --keep 10000 --callbacks "$routines" "${arguments[@]}"
asUser=("${asPrinter[@]}")

python3 "$trial/direct_jobs.py" "$build/bin/driver-feature" "$routines" "$folder" "$direct" "$seed" \
  "$printerPort" || { tail -20 "$folder/printer/printer.log"; exit 1; }

makeScheduler "$folder" "$build/bin/driver-feature-filter" "$build"/lib/libDriverFeature.so
ln -s /usr/lib/cups/backend/ipp "$folder/bin/backend/ipp"
addFilters "$folder" pdftopdf
startScheduler "$folder"
for name in "${queues[@]}"; do
  lpadmin -p "$name" -E -v "ipp://localhost:$printerPort/ipp/print/$name" -m everywhere \
    2>>"$folder/log/lpadmin" || { cat "$folder/log/lpadmin"; exit 1; }
done
# The scheduler asks the printer and writes the PPD after lpadmin has ended.
areMade() {
  local name
  for name in "${queues[@]}"; do
    lpoptions -p "$name" -l 2>/dev/null | grep -q '^cupsFinishingTemplate/' || return 1
  done
}
waitFor 30 areMade || { echo "a queue is not made"; tail -20 "$folder/log/errors"; exit 1; }
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sOutputFile="$folder/pages.pdf" \
  "$source/tests/printing/trial/pages.ps"
chmod 644 "$folder/pages.pdf"
python3 "$trial/random_jobs.py" "$build/bin/driver-feature" "$routines" "$folder" "$jobs" "$seed" \
  "$folder/pages.pdf" || { tail -20 "$folder/printer/printer.log"; exit 1; }
