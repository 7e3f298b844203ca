# shellcheck shell=bash disable=SC2154,SC2034
# A printer program of its own for tests, on a free port of the loopback
# interface. To be sourced by bash.

# shellcheck source=tests/printing/waiting.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/waiting.sh"

# The printer has the locale of whoever calls the test. The test and its clients have that
# of C: where letters have another order, ipptool takes no media type for one.
callersLocale=${LC_ALL:-}
export LC_ALL=C

# beginPrinterTest: makes $folder. When the test ends, the program ends, endOfTest is
# called, which a test may define, and the folder is removed.
beginPrinterTest() {
  asUser=()
  printerProcess=
  folder=$(mktemp -d)
  trap 'endOfTest; stopPrinter; rm -rf -- "$folder"' EXIT
  trap 'exit 1' INT TERM HUP
}
endOfTest() { :; }

# fail WORD...: says so, shows the end of the log, and ends the test.
fail() {
  printf '%s\n' "$*"
  tail -20 "$folder/printer.log"
  exit 1
}

# startPrinter FOLDER ARGUMENT...: sets printerProcess and printerPort. The log is
# FOLDER/printer.log, the spool FOLDER/spool; jobs go to FOLDER/printed/, or to the device
# that $printerDevice names.
startPrinter() {
  local folder=$1 wait
  shift
  mkdir -p "$folder/printed"
  : >"$folder/printer.log"
  env LC_ALL="$callersLocale" "${asUser[@]}" "$build/bin/driver-feature-printer" \
    --listen 127.0.0.1:0 --spool "$folder/spool" \
    --device "${printerDevice:-file:$folder/printed/}" "$@" 2>>"$folder/printer.log" &
  printerProcess=$!
  for ((wait = 0; wait < 200; wait++)); do
    if [ "$(grep -c ': ready$' "$folder/printer.log")" -ge "$(printf '%s\n' "$@" | grep -c '^[^-=:][^=:]*=')" ]; then
      break
    fi
    kill -0 "$printerProcess" 2>/dev/null || break
    sleep 0.05
  done
  printerPort=$(sed -n 's/.*listening at 127.0.0.1:\([0-9]*\)$/\1/p' "$folder/printer.log")
  grep -q ': ready$' "$folder/printer.log" && return 0
  echo "the printer does not start:"
  cat "$folder/printer.log"
  return 1
}

# stopPrinter: ends the program, and waits.
stopPrinter() {
  [ -n "${printerProcess:-}" ] || return 0
  kill -TERM "$printerProcess" 2>/dev/null || :
  wait "$printerProcess" 2>/dev/null || :
  printerProcess=
}

# allOver FOLDER COUNT: so many jobs have been printed.
allOver() { [ "$(find "$1/printed" -name '*.prn' | wc -l)" -ge "$2" ]; }
