#!/usr/bin/env bash
# The words with a dollar sign are those of ipptool.
# shellcheck disable=SC2016
# Kills the printer program, with no chance to do anything, while jobs arrive and are
# printed. No job that was accepted may be lost, and none that is noted as printed
# may be printed again.
#
# usage: printer_kill_test.sh SOURCE_DIR BUILD_DIR TIMES
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
times=$3
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
sender=
beginPrinterTest
endOfTest() { kill "$sender" 2>/dev/null || :; }

cat >"$folder/print.test" <<'END'
{
  OPERATION Print-Job
  GROUP operation-attributes-tag
  ATTR charset attributes-charset utf-8
  ATTR naturalLanguage attributes-natural-language en
  ATTR uri printer-uri $uri
  ATTR name requesting-user-name jane
  ATTR mimeMediaType document-format application/postscript
  FILE $filename
  STATUS successful-ok
  DISPLAY job-id
}
END

# Sends jobs one after the other, and notes the numbers of those that were accepted.
send() {
  local i
  for ((i = 0; i < 1000; i++)); do
    printf '%%!PS-Adobe-3.0\n%% document %s\nshowpage\n' "$RANDOM$RANDOM" >"$folder/page.ps"
    ipptool -tv -f "$folder/page.ps" "ipp://127.0.0.1:$printerPort/ipp/print/labels" \
      "$folder/print.test" 2>/dev/null | sed -n 's/^ *job-id (integer) = //p' >>"$folder/accepted" || :
  done
}

: >"$folder/accepted"
declare -A printedOnce=()
for ((round = 0; round < times; round++)); do
  startPrinter "$folder" --keep 100000 "labels=$source/descriptions/label_printer.xml"
  send &
  sender=$!
  sleep "0.$((RANDOM % 40 + 10))"
  case $((round % 3)) in
    0 | 1) kill -KILL "$printerProcess" ;;
    # A process of the printer: the server must go on.
    2)
      victim=$(pgrep -P "$printerProcess" | shuf -n 1 || :)
      if [ -n "$victim" ]; then kill -KILL "$victim" 2>/dev/null || :; fi
      sleep 0.2
      kill -0 "$printerProcess" || { echo "the server ends with one of its processes"; exit 1; }
      kill -KILL "$printerProcess"
      ;;
  esac
  kill "$sender" 2>/dev/null || :
  wait "$sender" 2>/dev/null || :
  wait "$printerProcess" 2>/dev/null || :
  printerProcess=
  # The output of those that are noted as printed has been taken away.
  for output in "$folder"/printed/*.prn; do
    number=${output##*-}
    number=${number%.prn}
    [ -z "${printedOnce[$number]:-}" ] ||
      { echo "job $number is printed again after it was noted as printed"; exit 1; }
  done
  while read -r number; do
    [ -z "${printedOnce[$number]:-}" ] || continue
    record=$folder/spool/jobs/$number/job.json
    [ -e "$record" ] || { echo "the accepted job $number is lost"; exit 1; }
    grep -q '"state": 9' "$record" || continue
    [ -s "$folder/printed/labels-$number.prn" ] || { echo "job $number has no output"; exit 1; }
    rm -- "$folder/printed/labels-$number.prn"
    printedOnce[$number]=1
  done <"$folder/accepted"
done

# All that was accepted is printed in the end.
startPrinter "$folder" --keep 100000 "labels=$source/descriptions/label_printer.xml"
isIdle() { ! grep -lqE '"state": [3-6]' "$folder"/spool/jobs/*/job.json; }
for ((wait = 0; wait < 600; wait++)); do
  if isIdle; then break; fi
  sleep 0.1
done
isIdle || { echo "jobs are left"; exit 1; }
printed=0
while read -r number; do
  grep -q '"state": 9' "$folder/spool/jobs/$number/job.json" ||
    { echo "job $number is not printed"; cat "$folder/spool/jobs/$number/job.json"; exit 1; }
  printed=$((printed + 1))
done <"$folder/accepted"
echo "killed $times times: $printed jobs accepted and printed"
[ "$printed" -gt 0 ] || { echo "no job was printed"; exit 1; }
