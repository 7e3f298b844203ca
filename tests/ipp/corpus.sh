#!/usr/bin/env bash
# Whether everything that printers advertise of imported PPDs works: see
# advertised_main.cc.
#
# usage: corpus.sh BUILD [COUNT]
#
# COUNT PPDs of the corpus are taken, 500 without it, "all" for each of them, evenly
# spread. BUILD is the folder of a preset, such as build/release. ./dev corpus fetches
# the corpus. The report is build/corpus/ipp.txt.
set -euo pipefail

source=$(realpath "$(dirname -- "${BASH_SOURCE[0]}")/../..")
build=$(realpath "$1")
count=${2:-500}
corpus=$source/build/corpus

names() { cut -d ' ' -f 3- "$corpus/ppds.txt" | sort | sed "s|^|$corpus/ppds/|"; }

total=$(names | wc -l)
if [ "$count" = all ] || [ "$count" -gt "$total" ]; then count=$total; fi
names | awk -v total="$total" -v count="$count" \
  'int(NR * count / total) != int((NR - 1) * count / total)' |
  "$build/bin/ipp_advertised" --library "$build/lib/libDriverFeature.so" - >"$corpus/ipp.txt" 2>&1 ||
  { tail -n 50 "$corpus/ipp.txt"; exit 1; }
tail -n 1 "$corpus/ipp.txt"
