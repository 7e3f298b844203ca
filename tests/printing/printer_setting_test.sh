#!/usr/bin/env bash
# The words with a dollar sign are those of ipptool.
# shellcheck disable=SC2016
# What operators set of the printer program: the hardware and the encryption; and what
# it does with settings that rules forbid together.
#
# usage: printer_setting_test.sh SOURCE_DIR BUILD_DIR
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest
# Where libcups notes the certificates that it has seen.
export HOME=$folder

# start ARGUMENT...: a printer called office, whose routines know the hardware, and one
# called rules, whose rules do.
start() {
  startPrinter "$folder" --callbacks "$build/lib/liboffice_routines.so" \
    "office=$source/descriptions/office_laser.xml" "rules=$folder/rules.xml" "$@"
}

# attribute NAME [PRINTER]: its value.
attribute() {
  ipptool -tv "ipp://127.0.0.1:$printerPort/ipp/print/${2:-office}" get-printer-attributes.test |
    sed -n "s/^ *$1 ([^)]*) = //p"
}

# expect WHAT WANTED FOUND
expect() { [ "$2" = "$3" ] || fail "$1: \"$3\" instead of \"$2\""; }

"$build/bin/driver-feature" import --output "$folder/rules.xml" \
  "$source/tests/printing/rules.ppd" 2>/dev/null

# Choices that need hardware disappear with it, for later servers, too.
start --set office:InstalledFinisher=NotInstalled --set office:InstalledDuplexUnit=NotInstalled
expect "sides without a duplex unit" one-sided "$(attribute sides-supported)"
expect "finishings without a finisher" none,jog-offset "$(attribute finishings-supported)"
expect "what is built in" not-installed "$(attribute x-installed-finisher-configured)"
expect "finishings that rules forbid" none "$(attribute x-finisher-supported rules)"
grep -q 'rules: the hardware takes out 3 choices' "$folder/printer.log" || fail "no word of that"
attribute job-creation-attributes-supported | grep -q installed && fail "hardware is offered to jobs"
stopPrinter
start --set office:InstalledFinisher= --set rules:Unit=True
expect "finishings that rules allow" none,staple,fold "$(attribute x-finisher-supported rules)"
expect "the kept duplex unit" one-sided "$(attribute sides-supported)"
attribute finishings-supported | grep -q staple-top-left || fail "the finisher is not forgotten"
attribute finishing-template-supported | grep -q archive || fail "a preset is missing"
attribute finishing-template-supported | grep -q handout && fail "a preset needs what is missing"
stopPrinter
echo 'InstalledFinisher=Gone' >"$folder/spool/hardware/office"
start
grep -q 'office: the hardware InstalledFinisher=Gone is left out: ' "$folder/printer.log" ||
  fail "no word of hardware that the description does not have"

# A preset under an address of its own: clients take the defaults from there.
expect "the usual sides" one-sided "$(attribute sides-default)"
stopPrinter
rm "$folder/spool/hardware/office"
start
expect "the name of a preset's printer" office-handout "$(attribute printer-name office/handout)"
expect "its sides" two-sided-long-edge "$(attribute sides-default office/handout)"
expect "its finishings" staple-top-left "$(attribute finishings-default office/handout)"
expect "its templates" '{finishing-template=staple-top-left}' \
  "$(attribute finishings-col-default office/handout)"
[ "$(attribute printer-uuid)" != "$(attribute printer-uuid office/handout)" ] ||
  fail "two printers have one UUID"

# Settings that rules forbid together are changed, or refused, as the client wants.
{
  printf '{\nOPERATION $op\nGROUP operation-attributes-tag\n'
  printf 'ATTR charset attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\n'
  printf 'ATTR uri printer-uri $uri\nATTR name requesting-user-name jane\n'
  printf 'ATTR boolean ipp-attribute-fidelity $faithful\nGROUP job-attributes-tag\n'
  printf 'ATTR keyword sides two-sided-long-edge\n'
  printf 'ATTR collection media-col { MEMBER keyword media-type transparency }\n$file\n}\n'
} >"$folder/conflict.test"
# ask OPERATION FAITHFUL [FILE]: the response.
ask() {
  local file=${3:-}
  ipptool -tv -d "op=$1" -d "faithful=$2" -d "file=" ${file:+-f "$file"} \
    "ipp://127.0.0.1:$printerPort/ipp/print/office" "$folder/conflict.test" >"$folder/reply" || :
}
# replied TEXT: whether the response has it.
replied() { grep -qF -- "$1" "$folder/reply" || fail "no \"$1\" in" "$(<"$folder/reply")"; }
rule='MediaType=Transparency and Duplex=LongEdge: Card stock, envelopes, labels and transparencies cannot be printed on both sides.'
sed -i 's/\$file//' "$folder/conflict.test"
ask Validate-Job false
replied "status-code = successful-ok-conflicting-attributes ($rule)"
replied 'preferred-attributes (collection) = {sides=one-sided}'
replied '        sides (keyword) = two-sided-long-edge'
ask Validate-Job true
replied "status-code = client-error-conflicting-attributes ($rule)"
replied 'preferred-attributes (collection) = {sides=one-sided}'
sed 's/^}$/FILE $filename\n}/' -i "$folder/conflict.test"
ask Print-Job true "$source/tests/printing/two_pages.ps"
replied "status-code = client-error-conflicting-attributes ($rule)"
ask Print-Job false "$source/tests/printing/two_pages.ps"
replied "status-code = successful-ok-conflicting-attributes ($rule)"
for ((wait = 0; wait < 200; wait++)); do
  if allOver "$folder" 1; then break; fi
  sleep 0.05
done
grep -qa 'DUPLEX *= *OFF' "$folder"/printed/office-1.prn || fail "the job is not printed on one side"
stopPrinter

# Encryption.
start --tls required
here=127.0.0.1:$printerPort
expect "an unencrypted page" "426 Upgrade Required" "$(curl -s "http://$here/")"
curl -sk "https://$here/" | grep -q '/ipp/print/office' || fail "no encrypted page"
ipptool -tv "ipps://127.0.0.1:$printerPort/ipp/print/office" get-printer-attributes.test \
  >"$folder/reply" || fail "no encrypted attributes:" "$(<"$folder/reply")"
replied "printer-uri-supported (uri) = ipps://localhost:$printerPort/ipp/print/office"
replied 'uri-security-supported (keyword) = tls'
replied "printer-more-info (uri) = https://localhost:$printerPort/office"
cp "$folder"/spool/tls/*.crt "$folder/own.crt"
cp "$folder"/spool/tls/*.key "$folder/own.key"
stopPrinter
start --tls offered --certificate "$folder/own.crt" --key "$folder/own.key"
grep -q "encrypting with the certificate $folder/own.crt$" "$folder/printer.log" ||
  fail "the certificate is another one"
expect "both addresses" none,tls "$(attribute uri-security-supported)"
# Encryption that begins later.
ipptool -E -tv "ipp://127.0.0.1:$printerPort/ipp/print/office" get-printer-attributes.test \
  >"$folder/reply" || fail "no encryption on request:" "$(<"$folder/reply")"
replied "printer-more-info (uri) = https://"
stopPrinter

# Wrong arguments.
# wrong MESSAGE ARGUMENT...
wrong() {
  local message=$1 status=0
  shift
  "$build/bin/driver-feature-printer" --spool "$folder/spool" --device "file:$folder/printed/" \
    --listen 127.0.0.1:0 --callbacks "$build/lib/liboffice_routines.so" \
    "office=$source/descriptions/office_laser.xml" "$@" 2>"$folder/reply" || status=$?
  replied "$message"
  [ "$status" -ne 0 ] || fail "the status is 0 with $*"
}
wrong '--set "offce:A=B" names a printer that is not given' --set offce:A=B
wrong '--set "A=B" is incomplete; give PRINTER:FEATURE=CHOICE' --set A=B
wrong 'a certificate needs its key; give both --certificate and --key' --key own.key
wrong 'office: "PageSize" is not hardware of the printer; choose one of InstalledDuplexUnit, InstalledFinisher' \
  --set office:PageSize=A4
wrong 'has no option "x"; choose one of NotInstalled, Stapler, BookletMaker' \
  --set office:InstalledFinisher=x
wrong "the certificate $folder/own.key cannot be used with the key $folder/own.crt: " \
  --certificate "$folder/own.key" --key "$folder/own.crt"
