# shellcheck shell=bash
# What cupstestppd finds in PPDs. To be sourced by bash.
#
# That the filter is not where an installation puts it does not count.

needCupstestppd() {
  command -v cupstestppd >/dev/null ||
    { echo "cupstestppd is missing: apt-get install cups-client"; return 1; }
}

# failuresOf PPD [OPTION]...: the failures, one a line and sorted, without the
# numbers of lines; nothing for a PPD that passes. A PPD with neither failures
# nor the word PASS is a failure, too.
failuresOf() {
  local ppd=$1 found
  shift
  found=$(LC_ALL=C cupstestppd "$@" -I filters "$ppd" 2>&1) || :
  if grep -qF '**FAIL**' <<<"$found"; then
    grep -aF '**FAIL**' <<<"$found" | sed -e 's/^ *\*\*FAIL\*\* *//' -e 's/ on line [0-9]*\.//' | sort -u
  elif ! grep -q ' PASS$' <<<"$found"; then
    echo "cupstestppd says: $found"
  fi
}

# furtherFailures PRINTER_PPD QUEUE_PPD: what the queue's fails in and the
# printer's does not, read strictly and as the scheduler reads.
furtherFailures() {
  comm -13 <(failuresOf "$1") <(failuresOf "$2")
  comm -13 <(failuresOf "$1" -r) <(failuresOf "$2" -r)
}
