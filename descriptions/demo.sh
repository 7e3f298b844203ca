#!/usr/bin/env bash
# Shows the program at work on the two descriptions of this folder.
#
#   descriptions/demo.sh BUILD_DIR
#
# BUILD_DIR holds bin/driver-feature and lib/*.so. Ends with a status other
# than 0 as soon as a step does not do what it is there to show.
set -euo pipefail

if [ $# -ne 1 ]; then
  printf 'usage: %s BUILD_DIR\n' "$0" >&2
  exit 2
fi
build=$(cd -- "$1" && pwd)
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

readonly kProgram=$build/bin/driver-feature
readonly kRoutines=$build/lib/liboffice_routines.so
readonly kOffice=descriptions/office_laser.xml
readonly kLabel=descriptions/label_printer.xml

heading() { printf '\n=== %s\n\n' "$*"; }

# run ARGUMENT...: prints a command line, then runs it.
run() {
  printf '$ driver-feature'
  printf ' %q' "$@"
  printf '\n'
  "$kProgram" --callbacks "$kRoutines" "$@"
}

# Makes the two control characters of PJL visible.
visible() { sed -e $'s/\x1B/<ESC>/g' -e $'s/\r$/<CR>/'; }

# Passes its input on; fails when there is none.
some() { grep ''; }

# refuse ARGUMENT...: a run that must end with status 2 and write no output.
refuse() {
  local status=0 output
  output=$(mktemp)
  printf '$ driver-feature'
  printf ' %q' "$@"
  printf '\n'
  { "$kProgram" --callbacks "$kRoutines" "$@" >"$output"; } 2>&1 || status=$?
  printf '(exit status %d, %d bytes of output)\n\n' "$status" "$(stat -c %s "$output")"
  if [ "$status" -ne 2 ] || [ -s "$output" ]; then
    rm -f "$output"
    printf 'demo: the setting was not refused\n' >&2
    exit 1
  fi
  rm -f "$output"
}

printf 'In the command lines below, driver-feature means\n%s --callbacks %s\n' \
  "$kProgram" "$kRoutines"

heading "The features of an office laser printer"
run show "$kOffice"

heading "PostScript with the defaults"
run emit "$kOffice" --to ps

heading "PostScript with other settings"
run emit "$kOffice" --to ps -o PageSize=Custom -o CustomPageWidth=250 -o CustomPageHeight=353 \
  -o Copies=5 -o Duplex=ShortEdge -o Staple=TopLeft -o Gamma=1.8 \
  -o Watermark=Custom -o "WatermarkText=For (your) eyes only"

heading "The PJL header of a private job"
run emit "$kOffice" --to pjl -o "JobName=Quarterly report" -o HoldJob=Private -o HoldPin=4711 \
  -o Duplex=LongEdge -o Copies=3 -o Collate=Off | visible

heading "The job ticket, with the installed options"
run emit "$kOffice" --to ticket --inst-opt -o PageSize=A3 -o Fold=Half -o Watermark=Draft

heading "Groups and records: exceptions for pages, put in order by a routine"
run show "$kOffice" --records PageExceptions descriptions/page_exceptions.json |
  sed -n '/^GROUP/,$p' | some
printf '\n'
run emit "$kOffice" --to ticket --records PageExceptions descriptions/page_exceptions.json |
  sed -n '/page-overrides/,/\/Group/p' | some

heading "Values saved, changed and restored"
run try "$kOffice" -o MediaType=Transparency -o Copies=5 -o HoldJob=Private

heading "What the library says of itself: the end of its dump"
run dump "$kOffice" --records PageExceptions descriptions/page_exceptions.json | tail -n 25

heading "Settings that are refused"
refuse emit "$kOffice" --to ps -o Copies=1000
refuse emit "$kOffice" --to ps -o PageSise=A3
printf '%s\n\n' "Transparencies cannot be printed on both sides; --resolve finds a way."
refuse emit "$kOffice" --to ps -o Duplex=LongEdge -o MediaType=Transparency
run resolve "$kOffice" -o Duplex=LongEdge -o MediaType=Transparency

heading "A label printer"
run show "$kLabel"
printf '\n'
run emit "$kLabel" --to ps -o RollWidth=104mm -o LabelLength=152.4 -o Cutter=EveryLabel
printf '\n'
run emit "$kLabel" --to pjl -o RollWidth=104mm -o LabelLength=152.4 -o Darkness=-5 | visible
