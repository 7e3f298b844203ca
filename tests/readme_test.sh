#!/usr/bin/env bash
# Runs the example of README.md: the console session must be what
# the description gives.
#
# usage: readme_test.sh README DRIVER_FEATURE
set -u

readme=$(realpath "$1")
program=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
# shellcheck source=tests/description_docs/console.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/description_docs/console.sh"

mkdir "$folder/blocks"
list=$(listBlocks "$readme" "$folder/blocks") || exit 1

# The first block in that language.
block() {
  local number
  number=$(awk -v language="$1" '$2 == language { print $1; exit }' <<<"$list")
  [ -z "$number" ] || cat "$folder/blocks/$number"
}

block xml >"$folder/simple.xml"
block console >"$folder/expected"
if [ ! -s "$folder/simple.xml" ] || [ ! -s "$folder/expected" ]; then
  echo "no example found"
  exit 1
fi

cd "$folder" || exit 1
driver-feature() { "$program" "$@"; }
runSession expected >actual

diff -u expected actual
