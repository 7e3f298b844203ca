#!/usr/bin/env bash
# Runs the example of README.md: the description and the console session that
# stand there must give each other.
#
# usage: readme_test.sh README DRIVER_FEATURE
set -u

readme=$(realpath "$1")
program=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

# The lines of the first block of that kind.
block() {
  awk -v start="^\`\`\`$1\$" '$0 ~ start && !done { inside = 1; next }
                              /^```$/ && inside { inside = 0; done = 1 }
                              inside' "$readme"
}

block xml >"$folder/simple.xml"
block console >"$folder/expected"
if [ ! -s "$folder/simple.xml" ] || [ ! -s "$folder/expected" ]; then
  echo "no example found"
  exit 1
fi

cd "$folder" || exit 1
driver-feature() { "$program" "$@"; }
while IFS= read -r line; do
  [[ $line == '$ '* ]] || continue
  printf '%s\n' "$line"
  eval "${line#'$ '}" </dev/null 2>&1
done <expected >actual

diff -u expected actual
