#!/usr/bin/env bash
# Runs the examples of a document in their order.
#
# usage: run_document.sh wrap|grow|sessions DOCUMENT SOURCES BUILD COMPILER [FLAG...]
#
# A block after the comment "<!-- file: NAME -->" is written to that file. An
# xml block that is a whole FeatureDescription, or the root DriverConfiguration
# around one, becomes the description as it is; the elements of any other are wrapped in one that names the program's
# own routines ("wrap", example.xml), or put into the description as it is
# so far ("grow", printer.xml); a document of "sessions" need not have one.
# Every description must load without a line of complaint. The commands of a
# console block must print what the block shows, byte for byte. A block after
# the comment "<!-- not run -->" is skipped.
set -eu

mode=$1
document=$(realpath "$2")
DRIVER_FEATURE=$(realpath "$3")
DRIVER_FEATURE_BUILD=$(realpath "$4")
program=$DRIVER_FEATURE_BUILD/bin/driver-feature
compiler=$5
flags=("${@:6}")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
# shellcheck source=tests/description_docs/console.sh
. "$tools/console.sh"
export DRIVER_FEATURE DRIVER_FEATURE_BUILD

blocks=$folder/blocks
mkdir "$blocks" "$folder/work"
list=$(listBlocks "$document" "$blocks")
cd "$folder/work"

# The names that the document uses for the program and the compiler.
# shellcheck disable=SC2317  # called by the sessions
driver-feature() { command "$program" "$@"; }
# shellcheck disable=SC2317  # called by the sessions
c++() { command "$compiler" "${flags[@]}" "$@"; }
# The order of names is that of the document.
# shellcheck disable=SC2317  # called by the sessions
ls() { LC_ALL=C command ls "$@"; }

fail() {
  printf '%s:%s: %s\n' "$document" "$line" "$1"
  failures=$((failures + 1))
}

# A routine library that the document has built is loaded for all that follows.
load() {
  local callbacks=()
  if [ -e routines.so ]; then callbacks=(--callbacks ./routines.so); fi
  "$program" "${callbacks[@]}" "$@"
}

wrapElements() {
  echo '<FeatureDescription>'
  echo '  <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"'
  echo '                   LoadVORNCallbackHandler="DriverFeatureHostLoad"/>'
  cat -- "$1"
  echo '</FeatureDescription>'
}

# Makes the description of an xml block, and loads it.
takeDescription() {
  local block=$1 description=example.xml
  if [ "$mode" = grow ]; then description=printer.xml; fi
  if grep -qE '^<(FeatureDescription|DriverConfiguration)( .*)?>$' "$block"; then
    cp -- "$block" "$description"
  elif [ "$mode" = grow ]; then
    awk -f "$tools/grow.awk" "$block" "$description" >grown
    mv grown "$description"
  else
    wrapElements "$block" >"$description"
  fi
  load show "$description" >shown 2>complaints || fail "the description does not load"
  if [ -s complaints ]; then
    cat complaints
    fail "the description loads with complaints"
  fi
  load check "$description" >checked 2>&1 || { cat checked; fail "the check finds faults"; }
  descriptions=$((descriptions + 1))
}

takeSession() {
  runSession "$1" >"$folder/actual"
  diff -u --label document --label program "$1" "$folder/actual" || fail "the output differs"
  sessions=$((sessions + 1))
}

failures=0 descriptions=0 sessions=0
while read -r number language line key value; do
  block=$blocks/$number
  if [ "$key" = file: ]; then
    cp -- "$block" "$value"
  elif [ "$language" = xml ]; then
    takeDescription "$block"
  elif [ "$language" = console ]; then
    takeSession "$block"
  elif [ "$key $value" != "not run" ]; then
    fail "nobody knows what to do with this block in \"$language\""
  fi
done <<<"$list"

if [ "$sessions" -eq 0 ] || { [ "$descriptions" -eq 0 ] && [ "$mode" != sessions ]; }; then
  echo "the document has no examples"
  exit 1
fi
echo "$descriptions descriptions, $sessions sessions, $failures failures"
exit $((failures > 0))
