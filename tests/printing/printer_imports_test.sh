#!/usr/bin/env bash
# Jobs with random advertised values for printers of imported PPDs: see
# trial/imported_jobs.py. The printers run in one program, a batch at a time.
#
# usage: printer_imports_test.sh SOURCE_DIR BUILD_DIR JOBS PPD...
#        printer_imports_test.sh SOURCE_DIR BUILD_DIR JOBS --corpus COUNT
#
# JOBS for each printer. COUNT PPDs of the corpus are taken, evenly spread; ./dev corpus
# fetches it.
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
jobs=$3
shift 3
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest

files=("$@")
if [ "${1:-}" = --corpus ]; then
  corpus=$source/build/corpus
  total=$(wc -l <"$corpus/ppds.txt")
  mapfile -t files < <(cut -d ' ' -f 3- "$corpus/ppds.txt" | sort | sed "s|^|$corpus/ppds/|" |
    awk -v total="$total" -v count="$2" 'int(NR * count / total) != int((NR - 1) * count / total)')
fi

failed=0
batch=40
for ((first = 0; first < ${#files[@]}; first += batch)); do
  rm -rf -- "$folder/batch"
  mkdir "$folder/batch"
  names=()
  arguments=()
  for ((i = first; i < first + batch && i < ${#files[@]}; i++)); do
    "$build/bin/driver-feature" import "${files[i]}" --output "$folder/batch/p$i.xml" 2>/dev/null || {
      echo "${files[i]}: is not imported"
      failed=1
      continue
    }
    names+=("p$i")
    arguments+=("p$i=$folder/batch/p$i.xml")
  done
  startPrinter "$folder/batch" --keep 10000 "${arguments[@]}" || exit 1
  for ((wait = 0; wait < 1200; wait++)); do
    [ "$(grep -cE ': (ready|is left out)$' "$folder/batch/printer.log")" -lt "${#names[@]}" ] || break
    sleep 0.1
  done
  python3 -B "$source/tests/printing/trial/imported_jobs.py" "$build/bin/driver-feature" \
    "$folder/batch" "$printerPort" "$jobs" 1 "${names[@]}" >"$folder/report" || failed=1
  # With the names of the files.
  while read -r line; do
    case $line in
      p[0-9]*:*) number=${line%%:*}; echo "${files[${number#p}]}:${line#*:}" ;;
      *) echo "$line" ;;
    esac
  done <"$folder/report"
  stopPrinter
done
exit "$failed"
