#!/usr/bin/env bash
# Prints the same jobs through a queue with the filter and through a plain queue
# of the same PPD, and compares what the scheduler's page log counts. The pages
# of PostScript documents must also look the same. The figures that are expected
# were counted by hand.
#
# usage: page_accounting_test.sh BUILD_DIR
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

needPrograms
command -v gs >/dev/null || { echo "gs is missing: apt-get install ghostscript"; exit 1; }
makeScheduler "$folder" "$build/bin/driver-feature-filter" \
  "$build"/lib/lib{DriverFeature,CommonAPI,XMLParser}.so
addFilters "$folder" pstops pdftopdf pdftops texttopdf
cd "$folder/ppd"

# Documents. Each page says which one it is.

# page NUMBER: the code of a page.
page() { echo "/Helvetica 90 selectfont 72 300 moveto (page $1) show showpage"; }
head='%!PS-Adobe-3.0
%%BoundingBox: 0 0 595 842'
setup='%%BeginProlog
%%EndProlog
%%BeginSetup
%%EndSetup'
pages() {
  for i in 1 2 3; do
    echo "%%Page: $i $i"
    page "$i"
  done
}
{ echo "$head"; echo '%%Pages: 3'; echo '%%EndComments'; echo "$setup"; pages; echo '%%Trailer'
  echo '%%EOF'; } >three.ps
{ echo "$head"; echo '%%Pages: (atend)'; echo '%%EndComments'; pages; echo '%%Trailer'
  echo '%%Pages: 3'; echo '%%EOF'; } >atend.ps
{ echo "$head"; echo '%%Pages: 7'; echo '%%EndComments'; pages; } >promises.ps
{ echo "$head"; echo '%%EndComments'; page 1; } >silent.ps
{ echo "$head"; pages; } >swallowed.ps
{ echo '%!'; page 1; } >bare.ps
{ echo '%!'; pages; } >bare_pages.ps
{ echo '%!PS-Adobe-3.0 EPSF-3.0'; echo '%%BoundingBox: 0 0 300 300'; echo '%%EndComments'
  echo '%%Page: 1 1'; echo '72 72 100 100 rectfill showpage'; echo '%%EOF'; } >picture.eps
{ echo "$head"; echo '%%EndComments'; echo '%%Page: 1 1'; echo '%%BeginDocument: picture.eps'
  sed 's/showpage//' picture.eps; echo '%%EndDocument'; page 1; pages; } >embedded.ps
data=$'currentfile 12 string readstring\n%%Page: 9 9\npop pop\n'
{ echo "$head"; echo '%%EndComments'; echo '%%Page: 1 1'; echo "%%BeginBinary: ${#data}"
  echo "$data%%EndBinary"; page 1; } >binary.ps
{ echo "$head"; echo '%%EndComments'; echo '%%Page: 1 1'; page 1; echo '%%Trailer'
  echo '%%Page: 2 2'; echo '%%EOF'; } >trailer.ps
gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pdfwrite -sOutputFile=three.pdf three.ps
for ((i = 1; i <= 80; i++)); do echo "line $i"; done >text.txt

# PPDs: of an office printer, and of others that have other ways with copies and
# order. Each has a plain queue and one with the filter.

grep -v '^\*cupsFilter' "$tools/office.ppd" >office.ppd
cp office.ppd reverse.ppd
echo '*DefaultOutputOrder: Reverse' >>reverse.ppd
cp office.ppd manual.ppd
echo '*cupsManualCopies: True' >>manual.ppd
cp office.ppd even.ppd
echo '*cupsEvenDuplex: True' >>even.ppd
cat office.ppd - >collator.ppd <<'END'
*OpenUI *Collate: Boolean
*OrderDependency: 20 DocumentSetup *Collate
*DefaultCollate: False
*Collate True: "<</Collate true>>setpagedevice"
*Collate False: "<</Collate false>>setpagedevice"
*CloseUI: *Collate
END
cat office.ppd - >mirror.ppd <<'END'
*OpenUI *MirrorPrint: Boolean
*OrderDependency: 20 DocumentSetup *MirrorPrint
*DefaultMirrorPrint: False
*MirrorPrint True: "<</MirrorPrint true>>setpagedevice"
*MirrorPrint False: "<</MirrorPrint false>>setpagedevice"
*CloseUI: *MirrorPrint
END
printers=(office reverse manual even collator mirror)
for printer in "${printers[@]}"; do
  "$build/bin/driver-feature" import "$printer.ppd" --output "$printer.xml" 2>/dev/null
  "$build/bin/driver-feature" queue "$printer.xml" --ppd "$printer.ppd" \
    --output "$printer.queue.ppd" 2>/dev/null
done
startScheduler "$folder"
for printer in "${printers[@]}"; do
  for queue in "plain_$printer" "filter_$printer"; do
    mkdir "$folder/jobs/$queue"
    chmod 777 "$folder/jobs/$queue"
  done
  {
    lpadmin -p "plain_$printer" -E -v "capture:$folder/jobs/plain_$printer" -P "$printer.ppd"
    lpadmin -p "filter_$printer" -E -v "capture:$folder/jobs/filter_$printer" \
      -P "$printer.queue.ppd"
  } 2>"$folder/log/lpadmin" || { cat "$folder/log/lpadmin"; exit 1; }
done

# How many pages each job has on a plain queue, counted by hand: pages that the
# printer prints, times copies; a blank page that fills the last sheet counts.

cat >table <<'END'
office    3  three.ps
office    9  three.ps -n 3
office    9  three.ps -n 3 -o collate=true
office    9  three.ps -n 3 -o Collate=False
office   12  three.ps -n 3 -o collate=true -o sides=two-sided-long-edge
office    3  three.ps -o sides=two-sided-long-edge
office    6  three.ps -n 2 -o multiple-document-handling=separate-documents-collated-copies
office    6  three.ps -n 2 -o multiple-document-handling=separate-documents-uncollated-copies
office    2  three.ps -o number-up=2
office    1  three.ps -o number-up=4 -o number-up-layout=btrl
office    4  three.ps -o number-up=2 -n 2
office    4  three.ps -o number-up=2 -n 2 -o collate=true
office    2  three.ps -o number-up=2 -o media=A5 -o page-border=double
office    1  three.ps -o number-up=2 -o page-ranges=2
office    2  three.ps -o page-ranges=2-3
office    1  three.ps -o page-ranges=2
office    4  three.ps -o page-ranges=1,3 -n 2
office    0  three.ps -o page-ranges=7
office    2  three.ps -o page-set=odd
office    1  three.ps -o page-set=even
office    3  three.ps -o outputorder=reverse
office    6  three.ps -o outputorder=reverse -n 2
office    4  three.ps -o OutputOrder=Reverse -o sides=two-sided-short-edge
office    3  three.ps -o mirror=true
office    3  three.ps -o landscape
office    3  three.ps -o orientation-requested=6
office    3  three.ps -o page-border=single
office    3  three.ps -o fit-to-page -o PageSize=A5
office    3  three.ps -o page-label=Draft
office    2  three.ps -o number-up=2 -o PageSize=Custom.300x500
office    3  atend.ps
office    6  promises.ps -n 2
office    2  promises.ps -o number-up=2
office    0  silent.ps
office    0  silent.ps -n 4
office    2  swallowed.ps
office    1  bare.ps
office    3  bare.ps -n 3
office    3  bare.ps -n 3 -o collate=true
office    1  bare.ps -o page-ranges=2
office    2  bare_pages.ps -n 2
office    1  picture.eps
office    2  picture.eps -n 2 -o collate=true
office    4  embedded.ps
office    3  embedded.ps -o page-ranges=2-4
office    1  binary.ps
office    1  trailer.ps
office    3  three.pdf
office    9  three.pdf -n 3
office    9  three.pdf -n 3 -o collate=true
office   12  three.pdf -n 3 -o collate=true -o sides=two-sided-long-edge
office    4  three.pdf -n 2 -o number-up=2
office    2  three.pdf -n 2 -o page-ranges=2
office    2  text.txt
office    6  text.txt -n 3
reverse   3  three.ps
reverse   3  three.ps -o outputorder=normal
reverse   6  three.ps -n 2 -o collate=true
reverse   1  bare.ps
manual    9  three.ps -n 3
manual   12  three.ps -n 3 -o sides=two-sided-long-edge
even      4  three.ps -o sides=two-sided-long-edge
even      3  three.ps
collator  6  three.ps -n 2 -o collate=true
collator  6  three.ps -n 2
mirror    3  three.ps -o mirror=true
mirror    3  three.ps -o MirrorPrint=True
END

rows=()
while read -r printer pages document options; do
  for kind in plain filter; do
    # shellcheck disable=SC2086  # several words
    reply=$(lp -d "${kind}_$printer" $options "$document") || { echo "lp $options $document"; exit 1; }
    declare "$kind=$(numberOf "$reply")"
  done
  # shellcheck disable=SC2154  # declared above
  rows+=("$printer|$pages|$document|$options|$plain|$filter")
done <table
waitFor 60 isIdle || { echo "jobs are left:"; lpstat -o; exit 1; }

# counted JOB: what the page log says.
counted() { sed -n "s/^$1 [^ ]* \([0-9]*\) total$/\1/p" "$folder/log/pages"; }

# picture FILE NAME: makes NAME.pgm of the pages of a printed job, and of what gs
# says. The job may be several documents with PJL around each.
picture() {
  local part
  rm -f "$2".part.*
  tr -d '\004' <"$1" | sed 's/\x1b%-12345X/\x01/g' |
    awk -v RS='\001' -v name="$2" '/%!/ { printf "%s", $0 >(name ".part." ++count) }'
  for part in "$2".part.*; do
    sed '/^@PJL/d' "$part" |
      gs -q -dBATCH -dNOPAUSE -dSAFER -r12 -sDEVICE=pgmraw -sOutputFile=- - 2>&1 || echo "gs fails"
  done >"$2.pgm"
}

failures=0 pictures=0
printf '%-9s %5s %6s %6s  %s\n' printer pages plain filter job
for row in "${rows[@]}"; do
  IFS='|' read -r printer pages document options plain filter <<<"$row"
  printf '%-9s %5s %6s %6s  %s\n' "$printer" "$pages" "$(counted "$plain")" \
    "$(counted "$filter")" "$document $options"
  if [ "$(counted "$plain")" != "$pages" ] || [ "$(counted "$filter")" != "$pages" ]; then
    echo "  other pages"
    failures=$((failures + 1))
  fi
  # A plain queue makes one copy of this one, because its filter finds no page.
  if [ "$document $options" = "silent.ps -n 4" ]; then continue; fi
  # Without options the job is the document itself.
  case $document$options in *.pdf* | *.txt* | *.ps | *.eps) continue ;; esac
  picture "$folder/jobs/plain_$printer/$plain" plain &
  picture "$folder/jobs/filter_$printer/$filter" filter
  wait "$!"
  pictures=$((pictures + 1))
  cmp plain.pgm filter.pgm || failures=$((failures + 1))
done
[ "${#rows[@]}" -ge 40 ] || { echo "only ${#rows[@]} jobs"; exit 1; }

# What had no effect is reported, and nothing else.

grep -aE '^[EW].*\[Job' "$folder/log/errors" | sed 's/.*\] //' >messages || :
diff - messages <<'END' || failures=$((failures + 1))
no page is printed, because the job\'s options leave out all of them
option page-ranges has no effect, because no comments of the document show its pages
END
echo "${#rows[@]} jobs counted and $pictures compared in $SECONDS seconds, $failures failures"
exit $((failures > 0))
