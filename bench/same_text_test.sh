#!/usr/bin/env bash
# The library and its peer write the same text of the same model:
# same_text_test.sh PROGRAMS MODELS SIZE
set -euo pipefail

export BENCH_MODELS=$2
ours=$("$1/library_timing" --text "$3")
theirs=$("$1/peer_timing" --text "$3")
[ -n "$ours" ]
[ "$ours" = "$theirs" ]
