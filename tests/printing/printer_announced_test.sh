#!/usr/bin/env bash
# Clients find the printers by DNS-SD: with a message bus and an Avahi daemon of our own,
# in a network of our own. Where the system allows no such network, as to users other
# than root, the test is skipped.
#
# usage: printer_announced_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
readonly kSkipped=77
for program in dbus-daemon avahi-daemon ip ippfind; do
  PATH=$PATH:/usr/sbin command -v "$program" >/dev/null ||
    { echo "$program is missing: apt-get install dbus-daemon avahi-daemon iproute2 cups-ipp-utils"; exit 1; }
done
PATH=$PATH:/usr/sbin
if [ "${3:-}" != inside ]; then
  unshare --net --mount --pid --fork true 2>/dev/null ||
    { echo "no network of our own is allowed here"; exit $kSkipped; }
  exec unshare --net --mount --pid --fork --kill-child \
    bash "$0" "$source" "$build" inside
fi

# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
daemons=()
beginPrinterTest
endOfTest() { kill "${daemons[@]}" 2>/dev/null || :; }

fail() {
  printf '%s\n' "$*"
  tail -n 20 "$folder/printer.log" "$folder/avahi.log" "$folder/bus.log"
  exit 1
}

logHas() { grep -qF -- "$1" "$folder/printer.log"; }

ip link set lo up
# The daemon's files have a fixed place.
mount -t tmpfs none /run
mkdir -p /run/avahi-daemon
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$folder/bus
cat >"$folder/bus.conf" <<END
<busconfig>
  <listen>unix:path=$folder/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow own="*"/><allow send_destination="*"/><allow receive_sender="*"/>
  </policy>
</busconfig>
END
printf '[server]\nhost-name=printhost\nuse-ipv6=no\nallow-interfaces=lo\n' >"$folder/avahi.conf"
startAvahi() {
  avahi-daemon -f "$folder/avahi.conf" --no-drop-root --no-chroot --no-rlimits \
    >"$folder/avahi.log" 2>&1 &
  avahi=$!
  daemons+=("$avahi")
}
start() {
  startPrinter "$folder" --listen '*:8632' "labels=$source/descriptions/label_printer.xml" "$@"
}

# Without a message bus it prints, and says so once.
start --tls never
waitFor 10 logHas 'printers are not announced: ' || fail "no word of the missing bus"
curl -s "http://127.0.0.1:$printerPort/" | grep -q labels || fail "the printer does not work"
stopPrinter

dbus-daemon --config-file="$folder/bus.conf" --nofork --nopidfile >"$folder/bus.log" 2>&1 &
daemons+=("$!")
waitFor 5 test -S "$folder/bus" || fail "no message bus: $(<"$folder/bus.log")"
startAvahi
start --tls offered
waitFor 20 logHas 'labels: is announced as labels' || fail "labels is not announced"
ippfind -T 1 >"$folder/found"
grep -qx 'ipp://printhost.local:[0-9]*/ipp/print/labels' "$folder/found" ||
  fail "ippfind finds: $(<"$folder/found")"
ippfind -T 1 _ipps._tcp,_universal --txt-pdl '.*image/urf.*' --txt-rp 'ipp/print/labels' -q ||
  fail "no encrypted printer with its texts is found"
# The name that Avahi has given the machine is one of ours.
curl -s -H 'Host: printhost.local' "http://127.0.0.1:$printerPort/" | grep -q labels ||
  fail "the announced name is refused"
# A second printer of that name gets another one, and knows it. The first one is still there.
first=$printerProcess
mkdir "$folder/second"
startPrinter "$folder/second" --listen '*:8633' "labels=$source/descriptions/label_printer.xml"
daemons+=("$printerProcess")
secondSays() {
  ipptool -tv "ipp://127.0.0.1:$printerPort/ipp/print/labels" get-printer-attributes.test 2>&1 |
    grep -c "printer-dns-sd-name (nameWithoutLanguage) = $1\$" | grep -qx 1
}
secondSays labels || fail "it has no name before it is announced"
waitFor 20 secondSays 'labels #2' || fail "the second printer is not called labels #2"
stopPrinter
printerProcess=$first
# A daemon that starts anew learns of them again.
kill "$avahi"
wait "$avahi" || :
: >"$folder/printer.log"
startAvahi
waitFor 20 logHas 'labels: is announced as labels' || fail "labels is not announced again"
stopPrinter
isGone() {
  ippfind -T 1 >"$folder/found" 2>/dev/null || :
  [ ! -s "$folder/found" ]
}
waitFor 10 isGone || fail "still announced: $(<"$folder/found")"
