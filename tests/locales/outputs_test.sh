#!/usr/bin/env bash
# Everything that the program writes must be the same bytes whatever locale the
# process has.
#
# usage: outputs_test.sh SOURCES BUILD ROUTINES
set -eEu

sources=$(realpath "$1")
build=$(realpath "$2")
routines=$(realpath "$3")
tools=$sources/tests/locales
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT

# write LOCALE FOLDER DESCRIPTION ARGUMENT...: all outputs of a description
# after the changes of the arguments, with the complaints. Standing in one
# folder with the same names, they name the same files.
write() {
  local locale=$1 folder=$2 description=$3 form
  shift 3
  mkdir -p -- "$folder"
  cd -- "$folder"
  # The last complaint says why a command has failed.
  trap 'tail -n 3 "$folder"/errors.* >&2' ERR
  local program=(bash "$tools/in_locale.sh" "$build" "$locale"
    "$build/bin/driver-feature" --callbacks "$routines")
  for form in ps pjl ticket; do
    "${program[@]}" emit "$description" --to "$form" "$@" >"output.$form" 2>"errors.$form"
  done
  "${program[@]}" dump "$description" "$@" >output.dump 2>errors.dump
  "${program[@]}" show "$description" "$@" --save saved.conf >output.show 2>errors.show
  "${program[@]}" show "$description" "$@" --json >output.json 2>errors.json
  "${program[@]}" try "$description" "$@" >output.try 2>errors.try
  "${program[@]}" check "$description" >output.check 2>errors.check
  # Refusals are reported alike, too.
  "${program[@]}" emit "$description" --to ps --settings saved.conf \
    >output.again 2>errors.again || true
  "${program[@]}" emit "$description" --to ps -o 1,5=2 >output.refused 2>errors.refused || true
  printf 'get Copies all\nwrite shell.conf\nload shell.conf\nemit ps\nlog all\n' |
    "${program[@]}" shell "$description" --keep-going >output.shell 2>errors.shell || true
  cd -- "$work"
}

number=$tools/number_printer
mapfile -t numberArguments <"$number.arguments"
printf '[{"Across": 0.1, "Down": -1234567.5}, {"Across": 1e-3, "Down": 2}]\n' >"$work/points.json"
mapfile -t officeArguments <"$sources/tests/golden/office_laser.changed.arguments"
mapfile -t labelArguments <"$sources/tests/golden/label_printer.changed.arguments"

for locale in C de_DE.UTF-8 tr_TR.UTF-8; do
  for name in office_laser label_printer; do
    write "$locale" "$work/$locale/$name" "$sources/descriptions/$name.xml"
  done
  write "$locale" "$work/$locale/office" "$sources/descriptions/office_laser.xml" \
    "${officeArguments[@]}" --records PageExceptions "$sources/descriptions/page_exceptions.json"
  write "$locale" "$work/$locale/label" "$sources/descriptions/label_printer.xml" \
    "${labelArguments[@]}"
  write "$locale" "$work/$locale/number" "$number.xml"
  write "$locale" "$work/$locale/changed" "$number.xml" "${numberArguments[@]}" \
    --records Points "$work/points.json"
done

# The numbers are there, and with points; the settings come back.
diff "$work/C/changed/output.ps" "$work/C/changed/output.again"
grep -qx -- '-16777216.000000 fixed' "$work/C/changed/output.ps"
grep -qx -- '1234567.250000 fixed' "$work/C/number/output.ps"
grep -qx 'Across=0.1' "$work/C/changed/saved.conf"
for locale in de_DE.UTF-8 tr_TR.UTF-8; do
  diff -r "$work/C" "$work/$locale"
done
find "$work/C" -type f -size +0 | wc -l
