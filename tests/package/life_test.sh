#!/usr/bin/env bash
# Tries the life of the Debian packages in a root of their own, from installation
# over use to removal: those of the library for both architectures side by side.
#
# usage: life_test.sh SOURCE_DIR PACKAGE_DIR I386_ROOT
#
# I386_ROOT holds the 32-bit libraries that the 32-bit packages need.
set -euo pipefail
shopt -s inherit_errexit

source=$1
packages=$2
i386_root=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
unset LD_LIBRARY_PATH PKG_CONFIG_LIBDIR DPKG_ROOT CXXFLAGS LDFLAGS MAKEFLAGS

# shellcheck source=tests/package/common.sh
. "$source/tests/package/common.sh"

# The root has the packages that ours need from outside. Of the 32-bit ones, the
# machine's package manager knows nothing: they count as installed in the same
# versions.
root=$work/root
libraries=usr/lib/$(triplet "$own")/driver-feature
mkdir -p "$root/var/lib/dpkg/"{info,updates}
: >"$root/var/lib/dpkg/available"
for name in libavahi-client3 libavahi-common3 libc6 libcups2 libedit2 libgcc-s1 libgnutls30 \
  libstdc++6 libxml2 zlib1g; do
  dpkg-query --status "$name:$own"
  echo
done >"$root/var/lib/dpkg/status"
sed "s/^Architecture: $own$/Architecture: i386/" "$root/var/lib/dpkg/status" >"$work/status"
cat "$work/status" >>"$root/var/lib/dpkg/status"
printf '%s\n' "$own" i386 >"$root/var/lib/dpkg/arch"

inRoot() {
  dpkg --root="$root" --log="$work/actions.log" --force-not-root --force-bad-path "$@" \
    </dev/null >"$work/dpkg.log" 2>&1
}

# allow DPKG-ARGUMENT...
allow() { inRoot "$@" || fail "dpkg $* failed:" "$(<"$work/dpkg.log")"; }

# refuse REASON DPKG-ARGUMENT...
refuse() {
  local reason=$1
  shift
  if inRoot "$@"; then fail "dpkg $* was not refused"; fi
  grep -qF -- "$reason" "$work/dpkg.log" ||
    fail "dpkg $* failed otherwise:" "$(<"$work/dpkg.log")"
}

# The own architecture's packages need the own architecture's library.
allow --install "$(file libdriverfeature1:i386)"
for name in driver-feature libdriverfeature-dev; do
  refuse "depends on libdriverfeature1 (= $kVersion)" --install "$(file "$name:$own")"
  allow --purge "$name"
done
allow --purge libdriverfeature1:i386

for package in "${kAllPackages[@]}"; do file "$package"; done >"$work/files"
mapfile -t files <"$work/files"
allow --install "${files[@]}"
for package in "${kAllPackages[@]}"; do
  # shellcheck disable=SC2016  # dpkg fills these in
  dpkg-query --admindir="$root/var/lib/dpkg" --show --showformat '${db:Status-Status}\n' "$package"
done >"$work/states"
[ "$(sort "$work/states" | uniq -c | tr -s ' ')" = " ${#kAllPackages[@]} installed" ] ||
  fail "not all packages are installed:" "$(<"$work/states")"

for printer in label_printer office_laser; do
  for form in ps pjl; do
    "$root/usr/bin/driver-feature" --callbacks "$root/$libraries/liboffice_routines.so" \
      emit "$root/usr/share/driver-feature/$printer.xml" --to "$form" >"$work/output"
    cmp "$work/output" "$source/tests/golden/$printer.default.$form"
  done
done

# The installed filter finds the installed library.
printf '%%!\n' >"$work/job.ps"
"$root/usr/bin/driver-feature" --callbacks "$root/$libraries/liboffice_routines.so" \
  queue "$root/usr/share/driver-feature/label_printer.xml" --output "$work/queue.ppd" 2>"$work/losses"
PPD=$work/queue.ppd "$root/usr/lib/cups/filter/driver-feature-filter" 1 user title 2 '' \
  "$work/job.ps" >"$work/output" 2>"$work/filter.log" || fail "the filter failed:" "$(<"$work/filter.log")"
grep -qxF '<< /NumCopies 2 >> setpagedevice' "$work/output"

# The example of the document on printing that calls the filter by hand runs as
# it is.
# shellcheck source=tests/description_docs/console.sh
. "$source/tests/description_docs/console.sh"
mkdir "$work/blocks" "$work/trial"
sessions=0
while read -r number language line key value; do
  if [ "$key" = file: ]; then cp "$work/blocks/$number" "$work/trial/$value"; fi
  [ "$language" = console ] || continue
  grep -q '^\$ .*driver-feature-filter' "$work/blocks/$number" || continue
  sessions=$((sessions + 1))
  (cd "$work/trial" && PATH=$root/usr/bin:$PATH && runSession "$work/blocks/$number") \
    >"$work/session" 2>&1
  diff -u "$work/blocks/$number" "$work/session" ||
    fail "docs/printing.md:$line: the installed programs do something else"
done < <(listBlocks "$source/docs/printing.md" "$work/blocks")
[ "$sessions" -gt 0 ] || fail "the document calls no filter"

# runHost ARCHITECTURE [MAKE-VARIABLE]...: builds the example as a host of that
# architecture, which finds that architecture's packages, and runs it.
runHost() {
  local folder=$work/host-$1
  cp -r "$root/usr/share/doc/libdriverfeature-dev/examples/minimal_host" "$folder"
  PKG_CONFIG_PATH=$root/usr/lib/$(triplet "$1")/pkgconfig make -C "$folder" "${@:2}" run \
    >"$work/make.log" 2>&1 ||
    fail "the example cannot be built or run for $1:" "$(<"$work/make.log")"
  grep -qxF '<< /NumCopies 3 >> setpagedevice' "$folder/job.ps" ||
    fail "the example for $1 writes:" "$(<"$folder/job.ps")"
}
runHost "$own"
foreign=$i386_root/usr/lib/i386-linux-gnu:$i386_root/lib/i386-linux-gnu
LD_LIBRARY_PATH=$foreign runHost i386 'CXXFLAGS=-O2 -m32' \
  "LDFLAGS=-Wl,-rpath-link,$foreign"
cmp "$work/host-$own/job.ps" "$work/host-i386/job.ps"

# One architecture goes, the other one stays.
refuse "depends on libdriverfeature1" --remove "libdriverfeature1:$own"
allow --remove driver-feature "libdriverfeature-dev:$own"
[ ! -e "$root/usr/bin/driver-feature" ] || fail "the program is still there"
allow --purge "libdriverfeature1:$own"
[ ! -e "$root/$libraries" ] || fail "the library is still there"
[ -f "$root/usr/share/doc/libdriverfeature1/copyright" ] ||
  fail "the 32-bit package has lost its copyright"
[ -f "$root/usr/include/driver_feature/frame/exports.h" ] ||
  fail "the 32-bit package has lost its headers"
allow --purge libdriverfeature-dev:i386 libdriverfeature1:i386
if inRoot --list '*driver*feature*'; then fail "dpkg still knows:" "$(<"$work/dpkg.log")"; fi
left=$(find "$root" -mindepth 1 ! -path "$root/var*")
[ -z "$left" ] || fail "this is left:" "$left"
