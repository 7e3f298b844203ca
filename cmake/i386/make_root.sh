#!/usr/bin/env bash
# Makes the folder of 32-bit libraries that the preset i386 builds with: the
# packages of packages.txt, and GoogleTest and Benchmark compiled from Debian's
# sources.
# Neither root's rights nor a change of the system's package lists is needed:
# apt works in folders of its own. A folder that is up to date is left alone.
#
# usage: make_root.sh FOLDER
set -euo pipefail

readonly kGoogleTest=/usr/src/googletest
readonly kFlags='-m32 -msse2 -mfpmath=sse'

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$1

say() { printf 'i386: %s\n' "$*"; }
fail() {
  printf 'i386: %s\n' "$@" >&2
  exit 1
}

packageNames() {
  sed -e 's/#.*//' -e 's/[[:space:]]*$//' -e '/^$/d' "$here/packages.txt"
}

# What the folder was made from: another text means that it has to be made anew.
recipe() {
  cat "$here/packages.txt" "$here/make_root.sh"
  g++ --version | head -n 1
  dpkg-query -W -f '${Version}\n' googletest
}

# Names the system's package sources to an apt of our own, with their source
# packages.
writeSourceLists() {
  local list
  mkdir -p "$1"
  for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    if [ -f "$list" ]; then sed -n -e p -e 's/^deb /deb-src /p' "$list" >"$1/${list##*/}.list"; fi
  done
  for list in /etc/apt/sources.list.d/*.sources; do
    if [ -f "$list" ]; then sed 's/^Types:.*/Types: deb deb-src/' "$list" >"$1/${list##*/}"; fi
  done
}

# The options that keep apt inside a folder and to 32-bit packages.
aptOptions() {
  printf '%s\n' -q -o APT::Architecture=i386 -o APT::Architectures=i386 \
    -o Dir::State::Lists="$1/lists" -o Dir::State::status="$1/status" -o Dir::Cache="$1/cache" \
    -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$1/sources"
}

# Fetches the packages, and the archives of Benchmark's source package.
download() {
  local apt=$1 names options
  mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial" "$apt/packages"
  : >"$apt/status"
  writeSourceLists "$apt/sources"
  mapfile -t options < <(aptOptions "$apt")
  mapfile -t names < <(packageNames)
  say "fetching the 32-bit package lists"
  # Go on without an index that cannot be fetched: the packages may be in the
  # others.
  apt-get "${options[@]}" update >"$apt/update.log" 2>&1 ||
    say "apt-get update reports a failure (see $apt/update.log); going on with the other lists"
  say "fetching ${names[*]} and the source of benchmark"
  (
    cd "$apt/packages"
    apt-get "${options[@]}" download "${names[@]}" &&
      apt-get "${options[@]}" source --download-only benchmark
  ) >"$apt/download.log" 2>&1 || {
    cat "$apt/update.log" "$apt/download.log" >&2
    fail "the 32-bit packages cannot be fetched; apt's own messages are above." \
      "Check the network and the names in cmake/i386/packages.txt, then try again."
  }
}

unpackPackages() {
  local package
  for package in "$1"/packages/*.deb; do
    dpkg-deb -x "$package" "$2"
  done
}

# build NAME SOURCE [CMAKE_OPTION]...: compiles a library into the root.
build() {
  local name=$1 source=$2 folder=$root/compiled/$1
  say "building $name"
  {
    cmake -S "$source" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      -DCMAKE_CXX_FLAGS="$kFlags" -DCMAKE_C_FLAGS="$kFlags" -DCMAKE_INSTALL_LIBDIR=lib \
      -DCMAKE_INSTALL_PREFIX="$root/usr" "${@:3}" &&
      cmake --build "$folder" --parallel "$(nproc)" && cmake --install "$folder"
  } >"$root/$name.log" 2>&1 || {
    cat "$root/$name.log" >&2
    fail "$name cannot be built for 32 bits; the messages are above."
  }
}

buildBenchmark() {
  local source=$root/compiled/benchmark-source
  mkdir -p "$source"
  tar -x -f "$1"/benchmark_*.orig.tar.* -C "$source" --strip-components=1
  build benchmark "$source" -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_WERROR=OFF
}

main() {
  case $(uname -m) in
    x86_64 | i?86) ;;
    *) fail "32-bit x86 programs do not run on this machine ($(uname -m))." ;;
  esac
  if [ -f "$root/recipe" ] && recipe | cmp -s - "$root/recipe"; then return; fi
  rm -rf -- "$root"
  mkdir -p "$root"
  root=$(cd -- "$root" && pwd)
  download "$root/apt"
  unpackPackages "$root/apt" "$root"
  build googletest "$kGoogleTest"
  buildBenchmark "$root/apt/packages"
  rm -rf -- "$root/apt" "$root/compiled"
  recipe >"$root/recipe"
}

main
