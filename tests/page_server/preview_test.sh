#!/usr/bin/env bash
# The program driver-feature-preview from the outside: who may ask, what is told,
# and what it survives.
#
# usage: preview_test.sh SOURCE_DIR BUILD_DIR ROUTINES_LIBRARY
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
routines=$(realpath "$3")
folder=$(mktemp -d)
program=("$build/bin/driver-feature-preview")
previewProcess=
eventsProcess=
trap 'stop; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP

fail() {
  printf '%s\n' "$*"
  tail -5 "$folder/log"
  exit 1
}

# expect NAME EXPECTED ACTUAL
expect() { [ "$3" = "$2" ] || fail "$1:" "$3" "instead of" "$2"; }

# start ARGUMENT...: sets page and origin; events go to the file events.
start() {
  local wait
  : >"$folder/address"
  : >"$folder/events"
  "${program[@]}" "$@" >"$folder/address" 2>>"$folder/log" &
  previewProcess=$!
  for ((wait = 0; wait < 200; wait++)); do
    [ ! -s "$folder/address" ] || break
    sleep 0.05
  done
  page=$(<"$folder/address")
  origin=${page%/*/}
  curl -sN "${page}events" >"$folder/events" &
  eventsProcess=$!
  waitFor 1 hello
}

stop() {
  [ -z "$previewProcess" ] || kill -INT "$previewProcess" 2>/dev/null || :
  [ -z "$previewProcess" ] || wait "$previewProcess" || ended=$?
  [ -z "$eventsProcess" ] || wait "$eventsProcess" || :
  previewProcess=
  eventsProcess=
}

# waitFor COUNT EVENT: so many of these events have come, within some seconds.
waitFor() {
  local wait
  for ((wait = 0; wait < 400; wait++)); do
    [ "$(grep -c "^event: $2$" "$folder/events" || :)" -lt "$1" ] || return 0
    sleep 0.02
  done
  fail "no event $2:" "$(<"$folder/events")"
}

# waitForLoad NUMBER [EVENTS]: the description has been loaded anew so often, or could not
# be, which a second event follows with the findings.
waitForLoad() {
  local wait
  for ((wait = 0; wait < 400; wait++)); do
    [ "$(grep -A1 '^event: model$' "$folder/events" | grep -c "\"revision\":$1,")" -lt "${2:-1}" ] ||
      return 0
    sleep 0.02
  done
  fail "no load $1:" "$(<"$folder/events")"
}

# statusOf CURL_ARGUMENT...
statusOf() { curl -s -o /dev/null -w '%{http_code}' -m 20 "$@"; }

# ask REQUEST: the reply.
ask() {
  curl -s -m 20 -H "Origin: $origin" -H 'Content-Type: application/json' --data-binary "$1" "${page}do"
}

: >"$folder/log"
cd "$folder"
cp "$source"/descriptions/office_laser.* .

# Who may ask.
start --callbacks "$build/lib/liboffice_routines.so" office_laser.xml
[[ $page =~ ^http://127\.0\.0\.1:[0-9]+/[[:alnum:]]{32}/$ ]] || fail "the address is $page"
expect "the page" 200 "$(statusOf "$page")"
expect "a file of the page" 200 "$(statusOf "${page}style.css")"
expect "no token" 404 "$(statusOf "$origin/")"
expect "a wrong token" 404 "$(statusOf "$origin/00000000000000000000000000000000/state")"
expect "a foreign host" 403 "$(statusOf -H 'Host: evil.example' "${page}state")"
expect "a foreign origin" 403 "$(statusOf -H 'Origin: http://evil.example' "${page}state")"
expect "a form of another page" 403 \
  "$(statusOf -H 'Origin: http://evil.example' -d '{"do":"state"}' "${page}do")"
expect "a change from nowhere" 403 \
  "$(statusOf -H 'Content-Type: application/json' -d '{"do":"state"}' "${page}do")"
head -c 5000000 /dev/zero | tr '\0' ' ' >large
expect "a large request" 413 "$(statusOf -H "Origin: $origin" -H 'Content-Type: application/json' \
  --data-binary @large "${page}do")"
curl -s -D fields -o /dev/null "$page"
grep -q "^Content-Security-Policy: default-src 'none';" fields || fail "no policy:" "$(<fields)"

# Two clients have the same state.
ask '{"do":"set","settings":[["Duplex","LongEdge"]]}' >reply
grep -q '"Duplex":"LongEdge"' reply || fail "the change is refused:" "$(<reply)"
waitFor 1 state
grep -qF "data: $(<reply)" events || fail "the event is another one:" "$(<events)"
[ "$(curl -s "${page}state")" = "$(curl -s "${page}state")" ] || fail "two states differ"
waitFor 1 picture
expect "the picture" 200 "$(statusOf "${page}page.png?serial=1")"

# A saved file is followed, and the values stay.
sed 's/Office Laser/Other Laser/' office_laser.xml >new.xml
begin=$(date +%s%N)
mv new.xml office_laser.xml
waitForLoad 1
echo "from the saved file to the event: $((($(date +%s%N) - begin) / 1000000)) ms"
curl -s "${page}state" | grep -q '"Duplex":"LongEdge"' || fail "the value is lost"

# What cannot be loaded is shown with what is wrong, until it can be loaded.
cp office_laser.xml good.xml
loads=1
for fault in 's/FeatureType="TextEntry" Name="JobName"/FeatureType="Nonsense" Name="JobName"/' \
  's/<\/FeatureDescription>//' 's/<FeatureDescription>/<FeatureDescription\/><X>/'; do
  sed "$fault" good.xml >office_laser.xml
  loads=$((loads + 1))
  waitForLoad "$loads" 2
  curl -s "${page}model" >model
  grep -q '"loaded":false' model || fail "$fault is loaded:" "$(<model)"
  grep -q '"code":"DF' model || fail "$fault has no findings:" "$(<model)"
  ask '{"do":"set","settings":[["Duplex","Off"]]}' | grep -q '"ok":false' || fail "$fault: a change"
done
cp good.xml office_laser.xml
waitForLoad "$((loads + 1))"
curl -s "${page}state" | grep -q '"Duplex":"LongEdge"' || fail "the value is lost after faults"

# A client that goes, and the end.
curl -sN -m 0.2 "${page}events" >/dev/null || :
expect "after a client has gone" 200 "$(statusOf "${page}state")"
ended=0
stop
expect "the exit status" 0 "$ended"
grep -q '^event: bye$' events || fail "no goodbye"

# A routine that crashes after a change, and one that does so in each output.
cat >crash.xml <<'XML'
<FeatureDescription>
  <BaseFeatureInfo DefaultCallbackHandler="printAndAgree"/>
  <Feature FeatureType="IntEntry" Name="A" DefaultValue="1" IntMinValue="0" IntMaxValue="9" AddCallbackRoutine="crash" PSCommand="%d"/>
  <Feature FeatureType="IntEntry" Name="B" DefaultValue="1" IntMinValue="0" IntMaxValue="9" PSCommand="%d"/>
</FeatureDescription>
XML
# The command does the same.
program=("$build/bin/driver-feature" preview)
start --callbacks "$routines" --port 0 --no-open crash.xml
ask '{"do":"set","settings":[["B","3"]]}' | grep -q '"ok":true' || fail "B is refused"
ask '{"do":"set","settings":[["A","2"]]}' >reply
grep -q '"ok":false' reply || fail "the crash is not noticed:" "$(<reply)"
curl -s -m 20 "${page}state" >state
grep -q '"A":"1","B":"3"' state || fail "the values are others:" "$(<state)"
sed 's/ AddCallbackRoutine="crash" PSCommand="%d"/ AddPSCallbackRoutine="crashInOutput"/' crash.xml >new.xml
mv new.xml crash.xml
waitForLoad 1
curl -s -m 20 "${page}model" >model
expect "the page with a crashing output" 200 "$(statusOf "$page")"
stop

# Many features.
{
  echo '<FeatureDescription>'
  for ((i = 0; i < 10000; i++)); do
    echo "<Feature FeatureType=\"IntEntry\" Name=\"F$i\" DefaultValue=\"1\" IntMinValue=\"0\" IntMaxValue=\"9\" PSCommand=\"%d \"/>"
  done
  echo '</FeatureDescription>'
} >many.xml
start many.xml
begin=$(date +%s%N)
curl -s -m 20 "${page}state" | grep -q '"F9999":"1"' || fail "many features have no state"
ask '{"do":"set","settings":[["F5000","2"]]}' | grep -q '"F5000":"2"' || fail "many features cannot be set"
echo "state and change of 10,000 features: $((($(date +%s%N) - begin) / 1000000)) ms"
stop

# Wrong usage.
usage() {
  local status=0
  "$build/bin/driver-feature-preview" "$@" >out 2>&1 || status=$?
  printf '%s: %s' "$status" "$(<out)"
}
expect "no description" \
  "2: driver-feature-preview: a feature description is needed; driver-feature-preview --help explains the usage" \
  "$(usage)"
expect "a missing file" \
  "2: driver-feature-preview: none.xml: cannot be read: No such file or directory" "$(usage none.xml)"
expect "a folder" \
  "2: driver-feature-preview: .: is a folder; give a feature description, an XML file" "$(usage .)"
[[ $(usage --help) == 0:*Examples:* ]] || fail "no help"

# The command finds the program beside it, and says when there is none.
expect "the command" "2: driver-feature-preview: none.xml: cannot be read: No such file or directory" \
  "$(status=0; "$build/bin/driver-feature" preview none.xml >out 2>&1 || status=$?; printf '%s: %s' "$status" "$(<out)")"
mkdir bin
ln -s "$build/lib" lib
cp "$build/bin/driver-feature" bin/
expect "the command alone" \
  "1: driver-feature: the program driver-feature-preview, which shows the page, cannot be started: is not installed; install driver-feature as a whole" \
  "$(status=0; PATH=/nothing bin/driver-feature preview none.xml >out 2>&1 || status=$?; printf '%s: %s' "$status" "$(<out)")"
