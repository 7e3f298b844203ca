#!/usr/bin/env bash
# What a small PostScript job costs with driver-feature-printer, with a printer of PAPPL and
# with a queue of the print scheduler whose filter is driver-feature-filter; and the memory
# of 1 and of 100 printers at rest.
#
# usage: printer_cost.sh BUILD [ROUNDS]
#
# Needs libpappl-dev; ninja -C BUILD pappl_printer builds the peer. SOCKET_BACKEND names the
# scheduler's backend "socket" where it is not installed (it is in Debian's package cups).
set -eu

source=$(realpath "$(dirname -- "${BASH_SOURCE[0]}")/..")
build=$(realpath "$1")
rounds=${2:-30}
# shellcheck source=tests/printing/scheduler.sh
. "$source/tests/printing/scheduler.sh"
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
schedulerProcess=
printerProcess=
peerProcess=
folder=$(mktemp -d)
chmod 755 "$folder"
endPeer() {
  [ -z "$peerProcess" ] || { kill "$peerProcess" 2>/dev/null && wait "$peerProcess"; } 2>/dev/null || :
  peerProcess=
}
trap 'stopScheduler; stopPrinter; endPeer; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP
needPrograms
backend=${SOCKET_BACKEND:-/usr/lib/cups/backend/socket}
[ -x "$backend" ] || { echo "$backend is missing: apt-get install cups, or name it by SOCKET_BACKEND"; exit 1; }
routines=$build/lib/liboffice_routines.so
office=$source/descriptions/office_laser.xml
device=$(freePort)

# startPeer COUNT: sets peerProcess and peerPort.
startPeer() {
  peerPort=$(freePort)
  mkdir -p "$folder/peer"
  "$build/bin/pappl_printer" "$peerPort" "$folder/peer" "socket://127.0.0.1:$device" "$1" \
    >"$folder/peer.log" 2>&1 &
  peerProcess=$!
  waitFor 20 curl -s -o "$folder/page" "http://localhost:$peerPort/" ||
    { cat "$folder/peer.log"; exit 1; }
}

asPrinter=("${asUser[@]}")
asUser=()
printerDevice=socket://127.0.0.1:$device
startPrinter "$folder/printer" --callbacks "$routines" "office=$office"
asUser=("${asPrinter[@]}")
startPeer 1

# Like that of an installed scheduler, whose log has warnings only.
eval "$(declare -f writeConfiguration | sed '1s/.*/writeDebugConfiguration()/')"
writeConfiguration() {
  writeDebugConfiguration "$@"
  sed -i 's/^LogLevel debug/LogLevel warn/' "$1/etc/cupsd.conf"
}
cp -- "$office" "$routines" "$folder/"
makeScheduler "$folder" "$build/bin/driver-feature-filter" \
  "$build"/lib/lib{DriverFeature,XMLParser,CommonAPI}.so
ln -s "$backend" "$folder/bin/backend/socket"
"$build/bin/driver-feature" queue "$folder/office_laser.xml" --callbacks "$folder/liboffice_routines.so" \
  --library "$folder/bin/lib/libDriverFeature.so" --output "$folder/queue.ppd" 2>"$folder/queue.log" ||
  { cat "$folder/queue.log"; exit 1; }
startScheduler "$folder"
# Without questions to a printer that is not there.
lpadmin -p office -E -v "socket://127.0.0.1:$device/?snmp=false" -P "$folder/queue.ppd" 2>"$folder/lpadmin.log" ||
  { cat "$folder/lpadmin.log"; exit 1; }

worker=$(pgrep -P "$printerProcess" | head -1)
python3 -B "$source/bench/printer_cost.py" "$rounds" "$source/tests/printing/trial/pages.ps" "$device" \
  "driver-feature-printer=$printerPort/ipp/print/office=$printerProcess,$worker" \
  "PAPPL, no commands=$peerPort/ipp/print/p1=$peerProcess" \
  "scheduler's queue=${CUPS_SERVER##*:}/printers/office=$schedulerProcess"

# The memory of many.
stopPrinter
endPeer
total() { # PROCESS...
  local process sum=0
  for process in "$@"; do
    sum=$((sum + $(sed -n 's/^Pss: *\([0-9]*\) kB/\1/p' "/proc/$process/smaps_rollup")))
  done
  echo "$sum"
}
names=()
for ((i = 1; i <= 100; i++)); do names+=("p$i=$office"); done
asUser=()
startPrinter "$folder/many" --callbacks "$routines" "${names[@]}"
waitFor 60 bash -c "[ \"\$(grep -c ': ready\$' '$folder/many/printer.log')\" -eq 100 ]"
mapfile -t workers < <(pgrep -P "$printerProcess")
echo "driver-feature-printer, 100 printers: $(total "$printerProcess" "${workers[@]}") KiB"
startPeer 100
sleep 1
echo "PAPPL, 100 printers: $(total "$peerProcess") KiB"
