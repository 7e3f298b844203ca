#!/usr/bin/env bash
# Fetches the packages of packages.txt and writes every distinct PPD they hold
# into FOLDER/ppds, with the list FOLDER/ppds.txt. Nothing is installed. What
# already exists is not fetched or written again.
#
# usage: fetch.sh FOLDER
#
# With CORPUS_PACKAGES=DIRECTORY in the environment the packages are taken from
# there, and nothing is fetched.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
folder=$1

say() { printf 'corpus: %s\n' "$*"; }
fail() {
  printf 'corpus: %s\n' "$@" >&2
  exit 1
}

packageNames() {
  sed -e 's/#.*//' -e 's/[[:space:]]*$//' -e '/^$/d' "$here/packages.txt"
}

# What the list was made from: if this text changes, the list is made again.
recipe() {
  cat "$here/packages.txt" "$here/fetch.sh" "$here/unpack_ppds.py"
  (cd "$folder/packages" && sha256sum ./*.deb)
}

# The one file of the package, or nothing.
packageFile() {
  find "$folder/packages" -maxdepth 1 -type f -name "$1_*.deb" | sort | tail -n 1
}

takePackages() {
  local name
  for name in "$@"; do
    if [ -n "$(packageFile "$name")" ]; then continue; fi
    find "$CORPUS_PACKAGES" -maxdepth 1 -type f -name "${name}_*.deb" \
      -exec cp -- {} "$folder/packages/" \;
  done
}

downloadPackages() {
  local name wanted=()
  for name in "$@"; do
    if [ -z "$(packageFile "$name")" ]; then wanted+=("$name"); fi
  done
  if [ "${#wanted[@]}" -eq 0 ]; then return; fi
  say "fetching ${wanted[*]}"
  (cd "$folder/packages" && apt-get -q download "${wanted[@]}") >"$folder/download.log" 2>&1 || {
    cat "$folder/download.log" >&2
    fail "the packages cannot be fetched; apt's own messages are above." \
      "Check the network, run apt-get update, then try again; or put the packages into a" \
      "directory and name it with CORPUS_PACKAGES=DIRECTORY."
  }
}

unpackPackages() {
  local name file
  rm -rf -- "$folder/unpacked"
  for name in "$@"; do
    file=$(packageFile "$name")
    if [ -z "$file" ]; then fail "the package $name is not in ${CORPUS_PACKAGES:-$folder/packages}"; fi
    say "unpacking ${file##*/}"
    mkdir -p "$folder/unpacked/$name"
    dpkg-deb -x "$file" "$folder/unpacked/$name"
  done
}

main() {
  local names
  mapfile -t names < <(packageNames)
  mkdir -p "$folder/packages"
  if [ -n "${CORPUS_PACKAGES:-}" ]; then
    takePackages "${names[@]}"
  else
    downloadPackages "${names[@]}"
  fi
  if [ -f "$folder/recipe" ] && recipe | cmp -s - "$folder/recipe"; then return; fi
  rm -f "$folder/recipe"
  unpackPackages "${names[@]}"
  python3 -B "$here/unpack_ppds.py" "$folder" "${names[@]}"
  rm -rf -- "$folder/unpacked"
  recipe >"$folder/recipe"
}

main
