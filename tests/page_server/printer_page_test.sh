#!/usr/bin/env bash
# The pages of driver-feature-printer: one for each visitor, and nothing for others.
#
# usage: printer_page_test.sh SOURCE_DIR BUILD_DIR [...]
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest

# expect NAME EXPECTED ACTUAL
expect() { [ "$3" = "$2" ] || fail "$1:" "$3" "instead of" "$2"; }

statusOf() { curl -s -o /dev/null -w '%{http_code}' -m 20 "$@"; }

# visit PATH: the place to which it leads.
visit() { curl -s -o /dev/null -w '%{redirect_url}' "$server$1"; }

# change PAGE NAME VALUE
change() {
  curl -s -m 20 -H "Origin: $server" -H 'Content-Type: application/json' \
    -d '{"do":"set","settings":[["'"$2"'","'"$3"'"]]}' "${1}do"
}

startPrinter "$folder" labels="$source/descriptions/label_printer.xml" || fail "no printer"
server=http://127.0.0.1:$printerPort

curl -s "$server/" | grep -q '<a href="/page/labels/">' || fail "no link:" "$(curl -s "$server/")"
expect "no printer" 404 "$(statusOf "$server/page/none/")"
expect "a foreign page" 403 "$(statusOf -H 'Origin: http://evil.example' "$server/page/labels/")"

# Each visitor has values of their own.
one=$(visit '/page/labels/?Copies=2')
[[ $one =~ ^$server/page/labels/[0-9a-v]{32}/\?Copies=2$ ]] || fail "the visit is $one"
one=${one%\?*}
two=$(visit /page/labels/)
[ "$one" != "$two" ] || fail "two visitors have one page"
expect "the page" 200 "$(statusOf "$one")"
curl -s -m 20 "${two}state" >"$folder/other"
change "$one" Copies 7 | grep -q '"Copies":"7"' || fail "the change is refused"
curl -s "${one}state" | grep -q '"Copies":"7"' || fail "the change is lost"
cmp <(curl -s "${two}state") "$folder/other" || fail "a visitor sees another's values"
curl -s "${one}model" | grep -q '"mode":"printer"' || fail "the page is an author's"

# What only authors have, and visits that are none.
expect "the source" 404 "$(statusOf "${one}source?file=label_printer.xml")"
expect "saving" 404 "$(statusOf -H "Origin: $server" -H 'Content-Type: application/json' \
  -d '{"as":"settings"}' "${one}save")"
expect "a foreign change" 403 "$(statusOf -H 'Origin: http://evil.example' \
  -H 'Content-Type: application/json' -d '{"do":"reset"}' "${one}do")"
expect "an unknown visit" 404 "$(statusOf "$server/page/labels/00000000000000000000000000000000/state")"
expect "the page of an old visit" "$server/page/labels/" \
  "$(visit /page/labels/00000000000000000000000000000000/)"

# No more processes than eight.
for ((i = 3; i <= 8; i++)); do visit /page/labels/ >/dev/null; done
expect "the ninth visitor" 503 "$(statusOf "$server/page/labels/")"
expect "the first visitor then" 200 "$(statusOf "${one}state")"

# The printer's own work goes on, and all processes end with it.
curl -s "$server/" | grep -q '/ipp/print/labels  ready, 0 waiting' || fail "the printer is not ready"
children=$(pgrep -P "$printerProcess" | wc -l)
[ "$children" -ge 9 ] || fail "there are $children processes"
stopPrinter
