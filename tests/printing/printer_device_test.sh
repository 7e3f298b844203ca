#!/usr/bin/env bash
# The words with a dollar sign are those of ipptool.
# shellcheck disable=SC2016
# What the printer program tells clients of a device that says its state, and documents
# that arrive compressed.
#
# usage: printer_device_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
device=
beginPrinterTest
endOfTest() { kill "$device" 2>/dev/null || :; }

# A printer that has no paper until the file "paper" is there, then prints.
cat >"$folder/device.py" <<'END'
import os, socket, sys, time
folder = sys.argv[1]
server = socket.socket()
server.bind(("127.0.0.1", 0))
server.listen()
with open(folder + "/port.new", "w") as file:
    file.write(str(server.getsockname()[1]))
os.rename(folder + "/port.new", folder + "/port")
number = 0
while True:
    connection, _ = server.accept()
    number += 1
    job = connection.recv(65536)
    if b"@PJL INFO STATUS" in job:
        connection.sendall(b'@PJL INFO STATUS\r\nCODE=41213\r\nDISPLAY="LOAD TRAY 1"\r\n\f')
        while not os.path.exists(folder + "/paper"):
            time.sleep(0.02)
        connection.sendall(b'@PJL USTATUS DEVICE\r\nCODE=10006\r\nDISPLAY="TONER LOW"\r\n\f')
    piece = connection.recv(65536)
    while piece:
        job += piece
        piece = connection.recv(65536)
    with open(folder + "/job", "wb") as file:
        file.write(job)
    os.rename(folder + "/job", folder + "/printed/%d.prn" % number)
    connection.close()
END
mkdir "$folder/printed"
python3 "$folder/device.py" "$folder" &
device=$!
waitFor 10 test -e "$folder/port" || fail "no device"
printerDevice=socket://127.0.0.1:$(<"$folder/port")
startPrinter "$folder" --callbacks "$build/lib/liboffice_routines.so" \
  "office=$source/descriptions/office_laser.xml"
uri=ipp://127.0.0.1:$printerPort/ipp/print/office

# state FILE: the attributes of the printer and its jobs.
state() {
  ipptool -tv "$uri" get-printer-attributes.test >"$folder/printer"
  ipptool -tv "$uri" get-jobs.test >"$folder/jobs"
  grep -q "$1" "$folder/printer"
}
# tells FILE TEXT
tells() { grep -qF -- "$2" "$folder/$1" || fail "no \"$2\" in $1:" "$(<"$folder/$1")"; }

ipptool -q -f "$source/tests/printing/two_pages.ps" "$uri" print-job.test || fail "no job"
waitFor 10 state 'printer-state-reasons (keyword) = media-needed-error' ||
  fail "$(grep printer-state "$folder/printer")"
tells printer 'printer-state (enum) = stopped'
tells printer 'printer-state-message (textWithoutLanguage) = LOAD TRAY 1'
tells jobs 'job-state (enum) = processing-stopped'
tells jobs 'job-state-reasons (keyword) = printer-stopped'
touch "$folder/paper"
waitFor 10 allOver "$folder" 1 || fail "the job is not printed"
waitFor 10 state 'printer-state (enum) = idle' || fail "$(grep printer-state "$folder/printer")"
tells printer 'printer-state-reasons (keyword) = toner-low-warning'
tells printer 'printer-state-message (textWithoutLanguage) = Ready.'
tells printer ';level=-2;'
grep -q 'office: +media-needed-error$' "$folder/printer.log" || fail "no line for the state"

# Documents that are compressed print as others do.
{
  printf '{\nOPERATION Print-Job\nGROUP operation-attributes-tag\n'
  printf 'ATTR charset attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\n'
  printf 'ATTR uri printer-uri $uri\nATTR name requesting-user-name root\n'
  printf 'ATTR name job-name "Test Job"\nATTR keyword compression $how\nFILE $filename\n}\n'
} >"$folder/compressed.test"
# ask HOW FILE: the status.
ask() {
  ipptool -tv -d "how=$1" -f "$2" "$uri" "$folder/compressed.test" |
    sed -n 's/^ *status-code = \([a-z-]*\).*/\1/p'
}
# expect WHAT WANTED FOUND
expect() { [ "$2" = "$3" ] || fail "$1: $3 instead of $2"; }
cp "$source/tests/printing/two_pages.ps" "$folder/two_pages.ps"
expect "as it is" successful-ok "$(ask none "$folder/two_pages.ps")"
# ipptool opens one layer itself.
gzip -9n "$folder/two_pages.ps"
head -c 100 "$folder/two_pages.ps.gz" | gzip >"$folder/part.gz"
gzip -c "$folder/two_pages.ps.gz" >"$folder/whole.gz"
expect gzip successful-ok "$(ask gzip "$folder/whole.gz")"
expect "a part" client-error-compression-error "$(ask gzip "$folder/part.gz")"
expect "a plain document" client-error-compression-error \
  "$(ask gzip "$source/tests/printing/two_pages.ps")"
expect "another form" client-error-compression-not-supported \
  "$(ask compress "$folder/part.gz")"
waitFor 10 allOver "$folder" 3 || fail "not all jobs are printed"
cmp "$folder/printed/2.prn" "$folder/printed/3.prn" || fail "the compressed job is another one"
