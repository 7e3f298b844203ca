#!/usr/bin/env bash
# Compares imported PPDs with libcups, and runs a sample of the outputs through
# Ghostscript. Reports are written into build/corpus.
#
# usage: run.sh BUILD [--sample N] [--seed S] [--vectors N] [--whole-jobs] [FILE]...
#
# Whole jobs are compared, too, for a sample and for files that are named; for
# all PPDs with --whole-jobs.
#
# Without FILE all PPDs of the packages are compared; with --sample the first N
# of sample.txt, and when it has fewer, further ones in the order of their
# digests.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
readonly kFolder=build/corpus
readonly kUsage='usage: ./dev corpus [--sample N] [--seed S] [--vectors N] [--whole-jobs] [FILE]...'

say() { printf 'corpus: %s\n' "$*"; }
refuse() {
  printf 'corpus: %s\n%s\n' "$1" "$kUsage" >&2
  exit 2
}

# number OPTION TEXT [LEAST]: TEXT, which must be a number.
number() {
  if [[ ! $2 =~ ^[0-9]+$ ]] || [ "$2" -lt "${3:-0}" ]; then refuse "$1 needs a number"; fi
  printf '%s' "$2"
}

# The names of the PPDs, those of sample.txt first.
orderedNames() {
  sed -e '/^#/d' -e '/^$/d' "$here/sample.txt"
  sort "$kFolder/ppds.txt" | cut -d ' ' -f 3- | grep -vxFf "$here/sample.txt"
}

build=$1
shift
sample='' seed=1 vectors=20 files=() whole=false
while [ $# -gt 0 ]; do
  case $1 in
    --sample) sample=$(number "$1" "${2:-}" 1) ;;
    --seed) seed=$(number "$1" "${2:-}") ;;
    --vectors) vectors=$(number "$1" "${2:-}") ;;
    --whole-jobs)
      whole=true
      shift
      continue
      ;;
    -*) refuse "$1 is not an option" ;;
    *)
      files+=("$1")
      shift
      continue
      ;;
  esac
  shift 2
done

arguments=(--output "$kFolder" --root "$kFolder/ppds" --exceptions "$here/exceptions.txt"
  --library "$build/lib/libDriverFeature.so" --seed "$seed" --vectors "$vectors"
  --processes "$(nproc)")
if [ -n "$sample" ] && [ "${#files[@]}" -gt 0 ]; then
  refuse "--sample chooses among all PPDs; leave it out, or the files"
fi
if "$whole" || [ -n "$sample" ] || [ "${#files[@]}" -gt 0 ]; then
  arguments+=(--programs "$build/bin" --pstops "${PSTOPS:-/usr/lib/cups/filter/pstops}")
fi
mkdir -p "$kFolder"
if [ "${#files[@]}" -gt 0 ]; then
  arguments+=("${files[@]}")
else
  bash "$here/fetch.sh" "$kFolder"
  # Not piped into head: the shell would treat its early end as a failure.
  orderedNames >"$kFolder/list.txt"
  if [ -n "$sample" ]; then
    sed -i -n "1,${sample}p" "$kFolder/list.txt"
  else
    arguments+=(--complete)
  fi
  arguments+=(--list "$kFolder/list.txt")
fi

status=0
"$build/bin/ppd_equivalence" "${arguments[@]}" || status=$?
if [ "$status" -le 1 ]; then
  bash "$here/ghostscript.sh" "$kFolder/jobs" || status=1
  say "the reports are $kFolder/report.txt, report.json and records.jsonl"
fi
exit "$status"
