#!/usr/bin/env bash
# How the printer program behaves with many jobs, and with many printers: the time until
# all are ready, and the memory of its processes.
#
# usage: printer_memory_test.sh SOURCE_DIR BUILD_DIR JOBS [PRINTERS]
#
# JOBS for two printers; then so many printers in one program, none without a number.
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
jobs=$3
printers=${4:-0}
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest
routines=$build/lib/liboffice_routines.so

startPrinter "$folder" --callbacks "$routines" \
  "office=$source/descriptions/office_laser.xml" "labels=$source/descriptions/label_printer.xml"
python3 -B "$source/tests/printing/trial/memory.py" "$printerPort" "$printerProcess" "$jobs" office labels ||
  { tail "$folder/printer.log"; exit 1; }
stopPrinter
[ "$printers" -gt 0 ] || exit 0

names=()
arguments=()
for ((i = 1; i <= printers; i++)); do
  names+=("p$i")
  arguments+=("p$i=$source/descriptions/office_laser.xml")
done
begin=$(date +%s%N)
startPrinter "$folder/many" --callbacks "$routines" "${arguments[@]}"
for ((wait = 0; wait < 2000; wait++)); do
  [ "$(grep -c ': ready$' "$folder/many/printer.log")" -lt "$printers" ] || break
  sleep 0.05
done
ready=$(grep -c ': ready$' "$folder/many/printer.log")
echo "$ready of $printers printers are ready after $((($(date +%s%N) - begin) / 1000000)) ms"
[ "$ready" -eq "$printers" ] || exit 1
python3 -B "$source/tests/printing/trial/memory.py" "$printerPort" "$printerProcess" 0 "${names[@]}"
