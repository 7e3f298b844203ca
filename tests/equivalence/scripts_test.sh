#!/usr/bin/env bash
# Tests of the scripts of ./dev corpus: scripts_test.sh PROJECT_DIRECTORY
set -uo pipefail
export LC_ALL=C

source_dir=$(cd -- "$1" && pwd) || exit 1
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
failures=0
checks=0

# expect NAME CONDITION...: a check that is named when it fails.
expect() {
  local name=$1
  shift
  checks=$((checks + 1))
  "$@" && return
  failures=$((failures + 1))
  printf 'FAILED %s: %s\n' "$name" "$*"
  cat "$work/out" 2>/dev/null
}

# makePackage NAME VERSION PPD-NAME TEXT...: a package with a driver program that
# holds the PPDs, in the way that such programs do.
makePackage() {
  local name=$1 version=$2
  shift 2
  local tree=$work/tree
  rm -rf "$tree"
  mkdir -p "$tree/DEBIAN" "$tree/usr/lib/cups/driver" "$work/packages"
  printf 'Package: %s\nVersion: %s\nArchitecture: all\nMaintainer: Example <a@example.org>\nDescription: PPDs\n' \
    "$name" "$version" >"$tree/DEBIAN/control"
  python3 - "$tree/usr/lib/cups/driver/$name" "$@" <<'EOF'
import base64, json, lzma, sys
table, archive = {}, b""
for name, text in zip(sys.argv[2::2], sys.argv[3::2]):
    table[name] = [len(archive), len(text), ["entry"]]
    archive += text.encode()
table["ARCHIVE"] = base64.b64encode(lzma.compress(archive)).decode()
packed = base64.b64encode(lzma.compress(json.dumps(table).encode()))
with open(sys.argv[1], "w") as driver:
    driver.write(f"ppds_compressed_b64 = {packed!r}\nif __name__ == '__main__': raise SystemExit(1)\n")
EOF
  dpkg-deb --root-owner-group -b "$tree" "$work/packages/${name}_${version}_all.deb" >/dev/null
}

# fetch: runs a copy of the script over the packages made here.
fetch() {
  CORPUS_PACKAGES=$work/packages bash "$work/equivalence/fetch.sh" "$work/build" >"$work/out" 2>&1
}

same() { [ "$1" = "$2" ]; }

mkdir -p "$work/equivalence"
cp "$source_dir"/equivalence/{fetch.sh,unpack_ppds.py} "$work/equivalence/"
printf '# text\nfirst  # PPDs\nsecond\n' >"$work/equivalence/packages.txt"

makePackage first 1 '0/ppd/B x.ppd' text-b '0/ppd/A.ppd' text-a
makePackage second 1 '0/ppd/hplip/HP/C.ppd' text-c '0/ppd/A2.ppd' text-a
fetch
expect Fetch_Packages_Succeeds same $? 0
expect Fetch_DistinctPpds_AreListedOnce same "$(cut -d ' ' -f 2- "$work/build/ppds.txt")" \
  "$(printf '6 first/A.ppd\n6 first/B x.ppd\n6 second/HP/C.ppd')"
expect Fetch_Digests_AreThoseOfTheFiles same "$(cut -d ' ' -f 1 "$work/build/ppds.txt")" \
  "$(cd "$work/build/ppds" && sha256sum first/A.ppd 'first/B x.ppd' second/HP/C.ppd | cut -d ' ' -f 1)"
expect Fetch_Ppd_IsWhole same "$(cat "$work/build/ppds/first/B x.ppd")" text-b

touch "$work/build/ppds/kept"
fetch
expect Fetch_Again_WritesNothing test -e "$work/build/ppds/kept"
expect Fetch_Again_SaysNothing test ! -s "$work/out"

rm "$work/build/packages"/second_*
makePackage second 2 '0/ppd/D.ppd' text-d
rm "$work/packages/second_1_all.deb"
fetch
expect Fetch_OtherPackage_IsTaken same "$(cat "$work/build/ppds/second/D.ppd")" text-d
expect Fetch_OtherPackage_ReplacesAll test ! -e "$work/build/ppds/kept"

rm "$work/build/packages"/second_* "$work/packages"/second_*
fetch
expect Fetch_PackageIsMissing_Fails same $? 1
expect Fetch_PackageIsMissing_NamesIt grep -qF 'the package second is not in' "$work/out"

makePackage second 3 '0/ppd/../../../../out.ppd' text
fetch
expect Fetch_NameThatLeadsOut_IsRefused same $? 1
expect Fetch_NameThatLeadsOut_IsNotWritten test ! -e "$work/out.ppd"

# runJobs: runs what is in the folder of jobs.
runJobs() {
  bash "$source_dir/equivalence/ghostscript.sh" "$work/jobs" >"$work/out" 2>&1
}

mkdir "$work/jobs"
runJobs
expect Ghostscript_NoJobs_Fails same $? 1
end='(job has ended\n) print flush'
printf '%%!PS\n[{ nonsense } stopped cleartomark\nshowpage\n%s\n' "$end" >"$work/jobs/1.ps"
runJobs
expect Ghostscript_GoodJob_Succeeds same $? 0
expect Ghostscript_GoodJob_IsCounted same "$(cat "$work/out")" \
  'corpus: Ghostscript has run 1 jobs, 0 of them with errors'
for code in nonsense '[{' '[ }' quit 'null stop'; do
  printf '%%!PS\n%s\nshowpage\n%s\n' "$code" "$end" >"$work/jobs/2.ps"
  runJobs
  expect "Ghostscript_BadJob_Fails ($code)" same $? 1
  expect "Ghostscript_BadJob_IsNamed ($code)" grep -qF 'does not take' "$work/out"
  expect "Ghostscript_BadJob_IsCounted ($code)" grep -qxF \
    'corpus: Ghostscript has run 2 jobs, 1 of them with errors' "$work/out"
done

# run.sh refuses what it does not understand before it does anything.
for arguments in '--sample' '--sample many' '--sample 0' '--seed x' '--vectors' '--other' \
  '--sample 5 a.ppd'; do
  # shellcheck disable=SC2086  # several words
  (cd "$work" && bash "$source_dir/equivalence/run.sh" build/release $arguments) >"$work/out" 2>&1
  expect "Run_WrongArguments_AreRefused ($arguments)" same $? 2
  expect "Run_WrongArguments_UsageIsShown ($arguments)" grep -q '^usage: ./dev corpus' "$work/out"
done

# runWith ARGUMENT...: runs a copy of it that compares nothing, and keeps the
# arguments of the comparison.
mkdir -p "$work/run/equivalence" "$work/run/bin" "$work/run/build/corpus"
cp "$source_dir/equivalence/run.sh" "$work/run/equivalence/"
printf 'first/A.ppd\n' >"$work/run/equivalence/sample.txt"
printf '1 2 first/A.ppd\n3 4 first/B.ppd\n' >"$work/run/build/corpus/ppds.txt"
for script in fetch ghostscript; do : >"$work/run/equivalence/$script.sh"; done
printf '#!/bin/sh\nprintf "%%s " "$@" >arguments\n' >"$work/run/bin/ppd_equivalence"
chmod +x "$work/run/bin/ppd_equivalence"
runWith() {
  (cd "$work/run" && PSTOPS=/the/pstops bash equivalence/run.sh . "$@") >"$work/out" 2>&1
}
whole='--programs ./bin --pstops /the/pstops '

for arguments in '--sample 1' '--whole-jobs' 'a.ppd' 'a.ppd --whole-jobs --seed 7'; do
  # shellcheck disable=SC2086  # several words
  runWith $arguments
  expect "Run_WholeJobs_AreAskedFor ($arguments)" grep -qF -- "$whole" "$work/run/arguments"
done
runWith
expect Run_AllPpds_HaveNoWholeJobs same "$(grep -cF -- --programs "$work/run/arguments")" 0
expect Run_AllPpds_AreComplete grep -qF -- --complete "$work/run/arguments"

printf '%d checks, %d failed\n' "$checks" "$failures"
[ "$failures" -eq 0 ]
