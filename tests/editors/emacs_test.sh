#!/usr/bin/env bash
# Proves that Emacs marks the planted faults, each on its line, and nothing in
# the shipped descriptions.
#
# usage: emacs_test.sh EMACS DESCRIPTIONS
set -eu

emacs=$1
descriptions=$(realpath "$2")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

{
  printf 'faulty.xml:'
  grep -n -- '<!-- fault -->' "$tools/faulty.xml" | cut -d : -f 1 | while read -r line; do
    printf ' %s' "$line"
  done
  printf '\n'
  for description in "$descriptions"/*_*.xml; do printf '%s:\n' "${description##*/}"; done
} >"$folder/expected"

HOME=$folder "$emacs" -Q --batch -l "$tools/emacs_test.el" "$descriptions/schemas.xml" \
  "$tools/faulty.xml" "$descriptions"/*_*.xml >"$folder/marked" 2>"$folder/messages" || {
  cat "$folder/messages"
  exit 1
}
diff -u "$folder/expected" "$folder/marked"
