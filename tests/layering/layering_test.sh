#!/usr/bin/env bash
# The check of includes passes on the project's sources, and fails for an include
# that goes up, for one between rooms that have no arrow, for a folder that is no
# room, and for an arrow that nothing needs.
#
# usage: layering_test.sh PROJECT-FOLDER
set -euo pipefail
project=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

python3 -B "$project/tests/layering/check.py" "$project"

# The faults are put into a copy of the two lowest wings, which are checked sooner.
check() { python3 -B "$work/tests/layering/check.py" "$work"; }

fresh() {
  rm -rf "${work:?}"/*
  mkdir -p "$work/tests/support"
  cp -r "$project/tests/layering" "$work/tests"
  cp "$project/tests/support/includes.py" "$work/tests/support"
  cp -r "$project/platform" "$project/library" "$work"
  sed -i -E '/^(platform|library)/!d' "$work/tests/layering/rooms.txt"
}

# expectFault TEXT: the check fails, and says so.
expectFault() {
  local output
  if output=$(check 2>&1); then
    printf 'passes, and should say: %s\n' "$1"
    exit 1
  fi
  if ! grep -qxF -- "layering: $1" <<<"$output"; then
    printf '%s\nlacks: %s\n' "$output" "$1"
    exit 1
  fi
}

fresh
check

echo '#include "frame/state.h"' >"$work/library/model/upward.h"
expectFault 'library/model/upward.h:1: library/model may not include library/frame (library/frame/state.h)'

fresh
echo '  #  include "output/serialization.h"' >"$work/library/diagnostics/sideways.cc"
expectFault 'library/diagnostics/sideways.cc:1: library/diagnostics may not include library/output (library/output/serialization.h)'

fresh
mkdir "$work/library/attic"
touch "$work/library/attic/old.cc"
expectFault 'library/attic/old.cc: its folder is not a room of rooms.txt'

fresh
sed -i 's|^library/diagnostics:|& library/templates|' "$work/tests/layering/rooms.txt"
expectFault 'rooms.txt: nothing in library/diagnostics includes library/templates; take the arrow out'

fresh
sed -i 's|^library/model:|& library/frame|' "$work/tests/layering/rooms.txt"
expectFault 'rooms.txt: library/model includes library/frame, which is not above it'
