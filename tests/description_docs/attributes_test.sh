#!/usr/bin/env bash
# Proves that the reference of the description names every element, type of
# feature and attribute in its place, and nothing else; and that its examples
# use every attribute, each in its place.
#
# usage: attributes_test.sh ELEMENTS ATTRIBUTES DOCUMENT
set -eu
export LC_ALL=C  # Ranges of letters are those of ASCII.

elements=$(realpath "$1")
attributes=$(realpath "$2")
document=$(realpath "$3")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
# shellcheck source=tests/description_docs/console.sh
. "$tools/console.sh"
cd "$folder"

# The rows of the document's tables of elements, each with the elements that it
# is in, and of types.
documentedElements() {
  awk -F ' *\\| *' '
    !/^\|/ { row = 0; next }
    ++row == 1 { wanted = $2 == "Element" || $2 == "`FeatureType`" }
    wanted && row > 2 {
      match($2, /`[A-Za-z]+`/)
      text = substr($2, RSTART + 1, RLENGTH - 2)
      while (match($3, /`[A-Z][A-Za-z]+`/)) {
        text = text " " substr($3, RSTART + 1, RLENGTH - 2)
        $3 = substr($3, RSTART + RLENGTH)
      }
      print text
    }' "$document"
}

# The rows of the document's tables of attributes.
documentedAttributes() {
  awk -F ' *\\| *' '
    /^##/ { place = $0; sub(/^#+ /, "", place) }
    /^\| / { inTable = inTable || $2 == "Attribute" && $3 == "Type" }
    !/^\|/ { inTable = 0 }
    inTable && $2 ~ /^`/ {
      if (place == "Attributes of every feature") place = "Feature"
      gsub(/`/, "", $2)
      print place, $2, $3, $4
    }' "$document"
}

# Every start tag of the examples as "Element Attribute", with the type of a
# feature in place of the element where the attribute belongs to the type.
used() {
  local number language rest
  {
    echo '<Examples>'
    while read -r number language rest; do
      if [ "$language" = xml ]; then cat "$number"; fi
    done <<<"$1"
    echo '</Examples>'
  } | xmllint --c14n - | grep -oE '<[A-Za-z]+( [A-Za-z]+="[^"]*")+' |
    awk -v list="$attributes" '
      BEGIN { while ((getline row < list) > 0) { split(row, word, " "); known[word[1] " " word[2]] } }
      {
        match($0, /^<[A-Za-z]+/)
        element = substr($0, 2, RLENGTH - 1)
        type = match($0, / FeatureType="[A-Za-z]*"/) ? substr($0, RSTART + 14, RLENGTH - 15) : ""
        while (match($0, / [A-Za-z]+="/)) {
          name = substr($0, RSTART + 1, RLENGTH - 3)
          $0 = substr($0, RSTART + RLENGTH)
          sub(/^[^"]*"/, "")
          print ((type " " name) in known ? type : element), name
        }
      }' | sort -u
}

failures=0
same() { diff -u --label "$1" --label "$2" "$3" "$4" || failures=$((failures + 1)); }

grep -v '^#' "$elements" >expected
documentedElements >actual
same list document expected actual

grep -v '^#' "$attributes" >expected
documentedAttributes >actual
same list document expected actual

list=$(listBlocks "$document" .)
cut -d ' ' -f 1,2 expected | sort -u >expectedUse
used "$list" >actualUse
same list examples expectedUse actualUse
exit $((failures > 0))
