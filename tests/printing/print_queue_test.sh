#!/usr/bin/env bash
# Prints through a scheduler of its own and compares what the device gets.
#
# usage: print_queue_test.sh BUILD_DIR
set -eu

build=$(realpath "$1")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
# shellcheck source=tests/printing/scheduler.sh
. "$tools/scheduler.sh"
schedulerProcess=
folder=$(mktemp -d)
chmod 755 "$folder"
trap 'stopScheduler; rm -rf -- "$folder"' EXIT
trap 'exit 1' INT TERM HUP
unset CUPS_SERVER LC_ALL LANGUAGE
export LANG=C

fail() {
  printf '%s\n' "$*"
  grep -aE '^[EWN]|ERROR|driver-feature' "$folder/log/errors" | tail -20
  exit 1
}

needPrograms
makeScheduler "$folder" "$build/bin/driver-feature-filter" \
  "$build"/lib/lib{DriverFeature,CommonAPI,XMLParser}.so
cp -- "$tools/queue_printer.xml" "$tools/two_pages.ps" "$folder/ppd/"
"$build/bin/driver-feature" queue "$folder/ppd/queue_printer.xml" \
  --output "$folder/ppd/strict.ppd"
"$build/bin/driver-feature" queue "$folder/ppd/queue_printer.xml" --default-for-refused \
  --output "$folder/ppd/lenient.ppd"
startScheduler "$folder"

# addQueue NAME PPD DEVICE
addQueue() {
  lpadmin -p "$1" -E -v "$3" -P "$folder/ppd/$2.ppd" 2>"$folder/log/lpadmin" ||
    fail "lpadmin: $(<"$folder/log/lpadmin")"
}

# print QUEUE ARGUMENT...: prints the two pages; sets job.
print() {
  local queue=$1 reply
  shift
  reply=$(lp -d "$queue" "$@" "$folder/ppd/two_pages.ps") || fail "lp -d $queue $* fails"
  job=$(numberOf "$reply")
}

finish() { waitFor 20 isIdle || fail "jobs are left:" "$(lpstat -o)"; }

# expected COPIES SIDES SIZE PAPER: the bytes that the device must get.
expected() {
  printf '\033%%-12345X@PJL\r\n@PJL SET COPIES=%s\r\n@PJL SET PAPER=%s\r\n' "$1" "$4"
  printf '@PJL ENTER LANGUAGE=POSTSCRIPT\r\n'
  cat <<END
%!PS-Adobe-3.0
%%Title: two pages
%%Pages: 2
%%EndComments
%%BeginProlog
/pageText { 72 72 moveto show } def
%%EndProlog
%%BeginSetup
<< /Duplex $2 >> setpagedevice
<< /PageSize [$3] >> setpagedevice
%%EndSetup
%%Page: 1 1
(one) pageText showpage
%%Page: 2 2
(two) pageText showpage
%%Trailer
%%EOF
END
  printf '\033%%-12345X'
}

expectBytes() {
  local got=$1 what=$2
  shift 2
  expected "$@" >"$folder/expected"
  cmp -- "$folder/expected" "$got" || fail "$what: other bytes:" "$(cat -A "$got")"
}

# The queue's defaults, options by name and by key, and copies.

addQueue strict strict "file:$folder/devices/strict"
print strict
finish
expectBytes "$folder/devices/strict" "the defaults" 1 false "595 842" A4
print strict -n 3 -o PageSize=A5 -o sides=two-sided-long-edge -o Unknown=value
finish
expectBytes "$folder/devices/strict" "options" 3 "true /Tumble false" "420 595" A5
print strict -o media=Letter
finish
expectBytes "$folder/devices/strict" "media" 1 false "612 792" LETTER
# Two pages in three copies.
grep -qxF '2 strict 6 total' "$folder/log/pages" || fail "other pages:" "$(<"$folder/log/pages")"

# A default that the administrator has set.

lpadmin -p strict -o PageSize=Letter 2>"$folder/log/lpadmin"
print strict
finish
expectBytes "$folder/devices/strict" "the administrator's default" 1 false "612 792" LETTER
lpadmin -p strict -o PageSize=A4 2>"$folder/log/lpadmin"

# A value that must be refused: the job stops and says why, others print, and
# with another value it prints after all. Or the default takes its place.

rm -- "$folder/devices/strict"
print strict -o Duplex=Sideways
refused=$job
waitFor 10 grep -qaF "[Job $refused] Job stopped due to filter errors" "$folder/log/errors" ||
  fail "a refused value does not stop the job"
reason='option Duplex: there is no choice \"Sideways\"; choose one of None, DuplexNoTumble'
grep -aF "[Job $refused] $reason" "$folder/log/errors" | grep -q '^E' ||
  fail "no line of the log says why the job was stopped"
[ ! -s "$folder/devices/strict" ] || fail "a refused job was printed"
print strict -o PageSize=A5
waitFor 10 test -s "$folder/devices/strict" || fail "the queue does not print after a refused job"
lp -i "$refused" -o Duplex=LongEdge
lp -i "$refused" -H restart
finish
expectBytes "$folder/devices/strict" "a refused job with another value" 1 "true /Tumble false" \
  "595 842" A4
addQueue lenient lenient "file:$folder/devices/lenient"
print lenient -o Duplex=Sideways -o PageSize=A5
finish
expectBytes "$folder/devices/lenient" "the default in place of a refused value" 1 false "420 595" A5

# Ten jobs at once on ten queues with a file device each, and ten on one queue.

for i in {1..10}; do addQueue "many$i" strict "file:$folder/devices/many$i"; done
mkdir "$folder/jobs/one"
chmod 777 "$folder/jobs/one"
addQueue one strict "capture:$folder/jobs/one"
processes=()
for i in {1..10}; do
  lp -d "many$i" -n "$i" "$folder/ppd/two_pages.ps" >"$folder/reply.many$i" &
  processes+=("$!")
  lp -d one -n "$i" "$folder/ppd/two_pages.ps" >"$folder/reply.one$i" &
  processes+=("$!")
done
for process in "${processes[@]}"; do wait "$process" || fail "an lp of ten at once fails"; done
finish
for i in {1..10}; do
  expectBytes "$folder/devices/many$i" "queue $i of ten" "$i" false "595 842" A4
  job=$(numberOf "$(<"$folder/reply.one$i")")
  expectBytes "$folder/jobs/one/$job" "job $i of ten" "$i" false "595 842" A4
done

# A cancelled job: the device gets the beginning and the trailer, and the next
# job prints.

mkdir "$folder/jobs/slow"
: >"$folder/jobs/slow/stop"
chmod 777 "$folder/jobs/slow"
addQueue slow strict "capture:$folder/jobs/slow"
{
  head -n -3 "$folder/ppd/two_pages.ps"
  for ((i = 0; i < 40000; i++)); do echo "0 0 moveto % a page that takes its time"; done
} >"$folder/long.ps"
job=$(numberOf "$(lp -d slow "$folder/long.ps")")
waitFor 10 test -e "$folder/jobs/slow/$job.begun" || fail "the long job does not begin"
waitFor 10 grep -qaF "[Job $job] the description is" "$folder/log/errors" ||
  fail "the filter does not begin"
sleep 0.5
cancel "$job"
sleep 0.2
rm -- "$folder/jobs/slow/stop"
waitFor 15 test -e "$folder/jobs/slow/$job" || fail "the cancelled job does not end"
finish
cancelled=$folder/jobs/slow/$job
[ "$(head -c 9 "$cancelled")" = $'\033%-12345X' ] || fail "the cancelled job has no header"
[ "$(tail -c 9 "$cancelled")" = $'\033%-12345X' ] || fail "the cancelled job has no trailer"
[ "$(stat -c %s "$cancelled")" -lt "$(stat -c %s "$folder/long.ps")" ] ||
  fail "the job was not cancelled"
grep -qaF "[Job $job] the job has been cancelled" "$folder/log/errors" ||
  fail "the filter does not report the end"
print slow
finish
expectBytes "$folder/jobs/slow/$job" "after a cancelled job" 1 false "595 842" A4

# The scheduler stops while a job prints and others wait; after its start all
# of them print.

: >"$folder/jobs/slow/stop"
rm -f -- "$folder"/jobs/slow/[0-9]*
jobs=()
for i in {1..4}; do
  print slow -n "$i"
  jobs+=("$job")
done
waitFor 10 test -e "$folder/jobs/slow/${jobs[0]}.begun" || fail "the first job does not begin"
cupsdisable lenient
print lenient -o PageSize=Letter
held=$job
rm -f -- "$folder/devices/lenient"
# The device is stuck until the scheduler is gone.
(sleep 1; rm -- "$folder/jobs/slow/stop") &
opener=$!
stopScheduler
if lpstat -r | grep -q 'scheduler is running'; then fail "the scheduler does not stop"; fi
wait "$opener"
rm -f -- "$folder/jobs/slow/${jobs[0]}"
startScheduler "$folder"
cupsenable lenient
finish
for i in {1..4}; do
  expectBytes "$folder/jobs/slow/${jobs[i - 1]}" "job $i after the restart" "$i" false "595 842" A4
done
expectBytes "$folder/devices/lenient" "held job $held" 1 false "612 792" LETTER
echo "all jobs printed in $SECONDS seconds"
