#!/usr/bin/env bash
# The library and its peer write the same text of the same model, a generated one
# and one imported from a PPD file:
# same_text_test.sh PROGRAMS MODELS SIZE PPD
set -euo pipefail

export BENCH_MODELS=$2
ours=$("$1/library_timing" --text "$3")
theirs=$("$1/peer_timing" --text "$3")
[ -n "$ours" ]
[ "$ours" = "$theirs" ]

BENCH_MODELS=$(mktemp -d)
trap 'rm -rf "$BENCH_MODELS"' EXIT
cp "$4" "$BENCH_MODELS/real_ppd_0"
"$1/driver-feature" --quiet import "$4" --output "$BENCH_MODELS/real_xml_0"
# An imported description marks where its sections begin and end.
ours=$("$1/library_timing" --real 0 | grep -v -e DriverSection -e '^$')
theirs=$("$1/peer_timing" --real 0 | grep -v '^$')
[ -n "$ours" ]
[ "$ours" = "$theirs" ]
