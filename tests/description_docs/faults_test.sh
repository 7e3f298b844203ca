#!/usr/bin/env bash
# Proves what the reference of the description says about faults: each fault
# of the list makes the program print just its lines, and the document's two
# tables hold just these lines.
#
# usage: faults_test.sh FAULTS DOCUMENT DRIVER_FEATURE
set -eu

faults=$(realpath "$1")
document=$(realpath "$2")
program=$(realpath "$3")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
cd "$folder"

# try KIND ELEMENTS: prints the fault with the lines of the program.
try() {
  local expected=0 status=0
  if [ "$1" = fatal ]; then expected=1; fi
  printf '<FeatureDescription>%s</FeatureDescription>\n' "$2" >fault.xml
  printf '%s %s\n' "$1" "$2"
  "$program" --verbose show fault.xml >/dev/null 2>complaints || status=$?
  sed -E -e '/: the description could not be loaded(: it names .*)?$/d' \
    -e 's/^driver-feature: (error|misuse|warning|info): //' -e 's/^/  /' complaints
  if [ "$status" -ne "$expected" ]; then printf 'exit status %d\n' "$status"; fi
}

# tableLines HEADING: the texts in the last column of that section's tables.
tableLines() {
  awk -v heading="## $1" '
    /^## / { inside = $0 == heading }
    inside && /^\|.*`/ {
      cells = split($0, cell, "|")
      text = cell[cells - 1]
      while (match(text, /`[^`]+`/)) {
        print substr(text, RSTART + 1, RLENGTH - 2)
        text = substr(text, RSTART + RLENGTH)
      }
    }' "$document" | sort -u
}

# listedLines KIND: the lines that the list gives for the faults of that kind.
listedLines() {
  awk -v kind="$1" '/^[a-z]/ { inside = $1 == kind } inside && /^  / { print substr($0, 3) }' \
    "$faults" | sort -u
}

grep -v -e '^#' -e '^$' "$faults" >expected
grep -E '^(fatal|accepted) ' expected | while read -r kind elements; do
  try "$kind" "$elements"
done >actual

failures=0
same() { diff -u --label "$1" --label "$2" "$3" "$4" || failures=$((failures + 1)); }

same list program expected actual
tableLines "What is fatal" >documented
listedLines fatal >listed
same list "table of fatal faults" listed documented
tableLines "What is accepted" >documented
listedLines accepted >listed
same list "table of accepted faults" listed documented
if [ "$(wc -l <actual)" -lt 50 ]; then
  echo "most of the faults are missing"
  failures=$((failures + 1))
fi
exit $((failures > 0))
