#!/bin/bash
# Prints the blocks of one language of a Markdown page, one after another.
# Fails when there is none.
#
#   extract_blocks.sh LANGUAGE PAGE
set -eu
awk -v opening="\`\`\`$1" '
  inside && /^```$/ { inside = 0; next }
  inside { print }
  $0 == opening { inside = 1; found = 1 }
  END { exit !found }
' "$2"
