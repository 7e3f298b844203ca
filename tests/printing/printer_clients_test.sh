#!/usr/bin/env bash
# The words with a dollar sign are those of ipptool.
# shellcheck disable=SC2016
# Many clients of the printer program at once, and what single ones may and may not do.
#
# usage: printer_clients_test.sh SOURCE_DIR BUILD_DIR [JOBS]
#
# Each of the ten clients sends so many jobs; by default 3.
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
jobs=${3:-3}
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest

# request NAME OPERATION LINE...: writes a test file for ipptool.
request() {
  local name=$1 operation=$2
  shift 2
  {
    printf '{\nOPERATION %s\nGROUP operation-attributes-tag\n' "$operation"
    printf 'ATTR charset attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\n'
    printf 'ATTR uri printer-uri $uri\nATTR name requesting-user-name $who\n'
    printf '%s\n' "$@" 'DISPLAY job-id' 'DISPLAY job-state' 'DISPLAY status-message' '}'
  } >"$folder/$name.test"
}

# ask WHO NAME [IPPTOOL_ARGUMENT...]: what the printer replies; its status in $status.
ask() {
  local who=$1 name=$2
  shift 2
  ipptool -t -v -d "who=$who" "$@" "ipp://127.0.0.1:$printerPort/ipp/print/labels" \
    "$folder/$name.test" >"$folder/reply" 2>&1 || :
  status=$(sed -n 's/^ *status-code = \([a-z-]*\).*/\1/p' "$folder/reply" | tail -1)
}

# expectStatus STATUS WHAT
expectStatus() { [ "$status" = "$1" ] || fail "$2: $status instead of $1" "$(<"$folder/reply")"; }

request print Print-Job 'ATTR name job-name $title' 'FILE $filename'
request format Print-Job 'ATTR mimeMediaType document-format text/plain' 'FILE $filename'
request create Create-Job 'ATTR name job-name waiting'
request cancel Cancel-Job 'ATTR integer job-id $job'
request send Send-Document 'ATTR integer job-id $job' 'ATTR boolean last-document true' 'FILE $filename'
request mine Cancel-My-Jobs
request get Get-Job-Attributes 'ATTR integer job-id $job'
startPrinter "$folder" --keep 1000 "labels=$source/descriptions/label_printer.xml"

# Ten clients at once: all jobs are printed whole, those of each client in their
# order.
for client in {0..9}; do
  (
    for ((job = 0; job < jobs; job++)); do
      document=$folder/document-$client-$job.ps
      {
        echo '%!PS-Adobe-3.0'
        for ((line = 0; line < 1000; line++)); do echo "% client $client job $job line $line"; done
        echo "showpage % end $client-$job"
      } >"$document"
      ipptool -q -d who="user$client" -d "title=c$client-$job" -f "$document" \
        "ipp://127.0.0.1:$printerPort/ipp/print/labels" "$folder/print.test" || echo "$client-$job" >>"$folder/failed"
    done
  ) &
  clients[client]=$!
done
wait "${clients[@]}"
[ ! -e "$folder/failed" ] || fail "jobs were not accepted:" "$(<"$folder/failed")"
count=$((10 * jobs))
waitFor 60 allOver "$folder" "$count" ||
  fail "only $(find "$folder/printed" -name '*.prn' | wc -l) jobs are printed"
for ((number = 1; number <= count; number++)); do
  job=$folder/printed/labels-$number.prn
  title=$(sed -n 's/^.*@PJL SET JOBNAME = "c\([0-9]-[0-9]\)".*/\1/p' "$job")
  [ "$(grep -ac "^% client ${title%-*} job ${title#*-} line" "$job")" -eq 1000 ] ||
    fail "job $number is not whole"
  grep -qa "end $title" "$job" || fail "job $number has no end"
  echo "$title"
done >"$folder/order"
for client in {0..9}; do
  grep "^$client-" "$folder/order" >"$folder/one" || fail "client $client has no job"
  sort -c "$folder/one" || fail "the jobs of client $client are not in their order"
  [ "$(wc -l <"$folder/one")" -eq "$jobs" ] || fail "client $client has not $jobs jobs"
done

# What a client may not do.
document=$folder/document-0-0.ps
ask jane format -f "$document"
expectStatus client-error-document-format-not-supported "a type that is not taken"
ask jane create
expectStatus successful-ok "a job without a document"
job=$(sed -n 's/^ *job-id (integer) = //p' "$folder/reply" | tail -1)
ask john cancel -d "job=$job"
expectStatus client-error-not-authorized "cancelling somebody else's job"
ask john send -d "job=$job" -f "$document"
expectStatus client-error-not-authorized "sending somebody else's document"
ask john mine
expectStatus successful-ok "cancelling one's own jobs"
ask jane get -d "job=$job"
grep -q 'job-state (enum) = pending-held' "$folder/reply" || fail "john has cancelled jane's job"
ask jane mine
ask jane get -d "job=$job"
grep -q 'job-state (enum) = canceled' "$folder/reply" || fail "jane's job is not cancelled"
ask jane cancel -d "job=$job"
expectStatus client-error-not-possible "cancelling a job twice"
echo 'hello' >"$folder/text"
ask jane print -d title=t -f "$folder/text"
expectStatus client-error-document-format-not-supported "a document of an unknown type"

# Other forms of requests.
page() { curl -s "$@" "http://127.0.0.1:$printerPort/"; }
page | grep -q '/ipp/print/labels  ready, 0 waiting' || fail "the page: $(page)"
[ "$(page -H 'Host: evil.example')" = "400 Bad Request" ] || fail "another host is taken"
[ "$(page -d hello)" = "404 Not Found" ] || fail "a form is taken"
printf '\2\0\0\13\0\0\0\1\1\107\0\22attributes-charset\0\5utf-8\110\0\33attributes-natural-language\0\2en\105\0\13printer-uri' >"$folder/get"
uri=ipp://localhost/ipp/print/labels
# The length as two bytes.
# shellcheck disable=SC2059,SC1003
{ printf '\0\'"$(printf %o ${#uri})"; printf '%s\3' "$uri"; } >>"$folder/get"
for form in '' 'Transfer-Encoding: chunked' 'Expect: 100-continue'; do
  curl -s -H 'Content-Type: application/ipp' ${form:+-H "$form"} --data-binary "@$folder/get" \
    "http://127.0.0.1:$printerPort/ipp/print/labels" >"$folder/attributes"
  [ "$(head -c 4 "$folder/attributes" | od -An -tx1)" = " 02 00 00 00" ] ||
    fail "a request with \"$form\" fails: $(head -c 200 "$folder/attributes" | cat -v)"
  grep -qa 'media-col-default' "$folder/attributes" || fail "the attributes are not whole"
done

# Its processes may be killed; it works on.
for victim in $(pgrep -P "$printerProcess"); do kill -KILL "$victim"; done
ask jane print -d title=after -f "$document"
expectStatus successful-ok "a job after the description's process was killed"
waitFor 20 allOver "$folder" "$((count + 1))" || fail "the job is not printed"

# It ends when it is told to, with its processes.
processes=$(pgrep -P "$printerProcess" || :)
kill -TERM "$printerProcess"
wait "$printerProcess" || fail "the exit status is $?"
printerProcess=
for process in $processes; do
  waitFor 5 bash -c "! kill -0 $process 2>/dev/null" || fail "a process is left"
done
