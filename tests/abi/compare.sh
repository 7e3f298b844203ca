#!/usr/bin/env bash
# Compares the binary interface of a build with the committed description of
# it, and prints every difference.
#
# usage: compare.sh [--update] BUILD_DIR BASELINE_DIR
#
# With --update the committed description is written anew instead: for a
# change of the interface that is meant. Exit status 0 without a difference, 1
# with one, 2 when the comparison could not be made.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
project=$here/../..

fail() {
  printf 'abi: %s\n' "$@" >&2
  exit 2
}

update=
if [ "${1:-}" = --update ]; then
  update=yes
  shift
fi
[ $# -eq 2 ] || fail "usage: compare.sh [--update] BUILD_DIR BASELINE_DIR"
build=$1
baseline=$2

# The headers that hosts have. Types that are defined elsewhere are private:
# hosts know them by name at the most.
collectHeaders() {
  mkdir "$1"
  cp "$project"/library/model/core_*.h "$project"/library/frame/exports.h \
    "$project"/platform/common_api/{AttributeMap,UnicodeString,XMLParser}.h \
    "$project"/platform/xml_parser/VORNWriter.h "$1"
}

# describe LIBRARY FILE
describe() {
  [ -f "$1" ] || fail "there is no $1; build the preset first: ./dev abi does"
  abidw --headers-dir "$work/headers" --drop-private-types --drop-undefined-syms --exported-interfaces-only \
    --no-corpus-path --no-comp-dir-path --no-show-locs --no-elf-needed "$1" >"$2" ||
    fail "abidw cannot read $1"
  # A library without debugging information has symbols and no types.
  grep -q '<abi-instr ' "$2" || fail "$1 holds no debugging information"
}

# compare NAME: prints the report and succeeds if it is empty.
compare() {
  local report status=0
  [ -f "$baseline/$1.abi" ] || fail "there is no $baseline/$1.abi"
  report=$(abidiff --harmless --redundant "$baseline/$1.abi" "$work/$1.abi") || status=$?
  # Bits 0 and 1: a failure of the tool itself, or wrong usage of it.
  [ $((status & 3)) -eq 0 ] || fail "abidiff cannot compare $1"
  if [ "$status" -eq 0 ] && [ -z "$report" ]; then
    printf 'abi: %s of %s has not changed\n' "$1" "$build"
    return 0
  fi
  printf 'abi: %s of %s HAS CHANGED:\n%s\n' "$1" "$build" "$report"
  return 1
}

work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
collectHeaders "$work/headers"
describe "$build/lib/libDriverFeature.so" "$work/libDriverFeature.abi"
describe "$build/lib/libhost_view.so" "$work/libhost_view.abi"

if [ -n "$update" ]; then
  mkdir -p "$baseline"
  cp "$work"/*.abi "$baseline"
  printf 'abi: wrote %s\n' "$baseline"/*.abi
  exit 0
fi
changed=0
compare libDriverFeature || changed=1
compare libhost_view || changed=1
exit "$changed"
