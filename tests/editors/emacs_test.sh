#!/usr/bin/env bash
# Proves that Emacs, with the settings of the document, marks the planted faults,
# each on its line, and nothing in the shipped descriptions.
#
# usage: emacs_test.sh EMACS DESCRIPTIONS DOCUMENT
set -eu

emacs=$1
descriptions=$(realpath "$2")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

# shellcheck source=tests/description_docs/console.sh
. "$tools/../description_docs/console.sh"
mkdir "$folder/blocks"
list=$(listBlocks "$(realpath "$3")" "$folder/blocks")
block=$(awk '$4 == "emacs" { print $1 }' <<<"$list")
sed "s|/usr/share/driver-feature|$descriptions|" "$folder/blocks/$block" >"$folder/init.el"
# Where no schemas.xml is beside them.
cp -- "$tools/faulty.xml" "$descriptions"/*_*.xml "$folder"

{
  printf 'faulty.xml:'
  grep -n -- '<!-- fault -->' "$tools/faulty.xml" | cut -d : -f 1 | while read -r line; do
    printf ' %s' "$line"
  done
  printf '\n'
  for description in "$descriptions"/*_*.xml; do printf '%s:\n' "${description##*/}"; done
} >"$folder/expected"

HOME=$folder "$emacs" -Q --batch -l "$folder/init.el" -l "$tools/emacs_test.el" \
  "$folder/faulty.xml" "$folder"/*_*.xml >"$folder/marked" 2>"$folder/messages" || {
  cat "$folder/messages"
  exit 1
}
diff -u "$folder/expected" "$folder/marked"
