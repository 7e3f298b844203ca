#!/usr/bin/env bash
# Tries the Debian packages as they are: their fields, what is in them, that a
# second build gives the same bytes, and their life in a root of its own, from
# installation over use to removal.
#
# usage: package_test.sh SOURCE_DIR BUILD_DIR PACKAGE_DIR
set -euo pipefail
shopt -s inherit_errexit

source=$1
build=$2
packages=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
unset LD_LIBRARY_PATH PKG_CONFIG_LIBDIR DPKG_ROOT DESTDIR CXXFLAGS LDFLAGS MAKEFLAGS

readonly kVersion=1.0.0
readonly kMaintainer='libDriverFeature maintainers <maintainers@libdriverfeature.invalid>'
triplet=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
architecture=$(dpkg --print-architecture)
libraries=usr/lib/$triplet/driver-feature

fail() {
  printf '%s\n' "$*"
  exit 1
}

file() { printf '%s/%s_%s_%s.deb\n' "$packages" "$1" "$kVersion" "$architecture"; }

# Fields.

# expectFields NAME SECTION: the fields that do not come from the compiler.
expectFields() {
  local name=$1 section=$2 got
  # shellcheck disable=SC2016  # dpkg fills these in
  got=$(dpkg-deb --show --showformat \
    '${Package}|${Version}|${Architecture}|${Section}|${Priority}|${Maintainer}' "$(file "$name")")
  [ "$got" = "$name|$kVersion|$architecture|$section|optional|$kMaintainer" ] ||
    fail "$name has other fields:" "$got"
  got=$(dpkg-deb --ctrl-tarfile "$(file "$name")" | tar -t | sort | tr '\n' ' ')
  [ "$got" = "./control ./md5sums " ] || fail "$name has other control files:" "$got"
}

# expectDependencies NAME WORD...: the packages that it needs, no others.
expectDependencies() {
  local name=$1 got
  shift
  got=$(dpkg-deb --field "$(file "$name")" Depends | sed -e 's/, /\n/g' | sed -e 's/ (>=.*//' |
    sort)
  [ "$got" = "$(printf '%s\n' "$@")" ] ||
    fail "$name depends on other packages:" "$got"
}

[ "$(find "$packages" -name '*.deb' | wc -l)" -eq 3 ] || fail "there are not three packages"
expectFields libdriverfeature1 libs
expectFields libdriverfeature-dev libdevel
expectFields driver-feature utils
expectDependencies libdriverfeature1 libc6 libgcc-s1 libstdc++6 libxml2
expectDependencies libdriverfeature-dev "libdriverfeature1 (= $kVersion)"
expectDependencies driver-feature libc6 libcups2 "libdriverfeature1 (= $kVersion)" libgcc-s1 \
  libreadline8 libstdc++6 libxml2

# Files. Each one that an installation has is in exactly one package.

DESTDIR=$work/installed cmake --install "$build" >"$work/install.log"
(cd "$work/installed" && find . ! -type d) | sort >"$work/expected"
mkdir "$work/unpacked"
for name in libdriverfeature1 libdriverfeature-dev driver-feature; do
  dpkg-deb -x "$(file "$name")" "$work/unpacked/$name"
  (cd "$work/unpacked/$name" && find . ! -type d)
  dpkg-deb --ctrl-tarfile "$(file "$name")" | tar -x -C "$work" ./md5sums
  (cd "$work/unpacked/$name" && md5sum --quiet -c "$work/md5sums")
  for text in copyright changelog.gz; do
    [ -s "$work/unpacked/$name/usr/share/doc/$name/$text" ] || fail "$name has no $text"
  done
done >"$work/found"
diff -u "$work/expected" <(sort "$work/found") || fail "the packages hold other files than an installation"

# expectHolds PACKAGE FILE...
expectHolds() {
  local name=$1 path
  shift
  for path in "$@"; do
    [ -f "$work/unpacked/$name/$path" ] || fail "$name does not hold $path"
  done
}
expectHolds libdriverfeature1 \
  "$libraries"/{libDriverFeature,libCommonAPI,libXMLParser}.so
expectHolds libdriverfeature-dev "usr/lib/$triplet/pkgconfig/driver-feature.pc" \
  "usr/lib/$triplet/cmake/DriverFeature/DriverFeatureConfig.cmake" \
  usr/include/driver_feature/{model/core_feature_set,frame/exports,platform/AttributeMap}.h \
  usr/share/doc/libdriverfeature-dev/examples/minimal_host/minimal_host.cc
expectHolds driver-feature usr/bin/driver-feature{,-filter} \
  usr/lib/cups/filter/driver-feature-filter \
  "$libraries"/lib{office,ppd}_routines.so \
  usr/share/driver-feature/{label_printer,office_laser}.xml \
  usr/share/driver-feature/feature_description.rng usr/share/man/man1/driver-feature.1 \
  usr/share/man/man8/driver-feature-filter.8 \
  usr/share/bash-completion/completions/driver-feature.bash \
  usr/share/zsh/vendor-completions/_driver-feature

# Everything belongs to root, and nobody else may write to it.
for name in libdriverfeature1 libdriverfeature-dev driver-feature; do
  if dpkg-deb -c "$(file "$name")" | grep -vE '^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x|lrwxrwxrwx) root/root '; then
    fail "$name has files with other owners or permissions"
  fi
done

# Nothing tells where it was built, and nothing is left for a debugger.
for place in "$source" "$build"; do
  if grep -rlF -- "$place" "$work/unpacked"; then fail "these files name $place"; fi
done
programs=$(find "$work/unpacked" -name '*.so' -o -path '*/bin/driver-feature' \
  -o -path '*/cups/filter/*')
[ "$(wc -l <<<"$programs")" -eq 7 ] || fail "there are other programs:" "$programs"
while read -r program; do
  if readelf -SW "$program" | grep -E '\.(debug_info|symtab)'; then
    fail "$program is not stripped"
  fi
  path=$(readelf -d "$program" | sed -n 's/.*R\(UN\)\{0,1\}PATH.*\[\(.*\)\]/\2/p')
  # shellcheck disable=SC2016  # a word of the loader's, not of the shell's
  case ${program##*/} in
    driver-feature) expected='$ORIGIN/../lib/'$triplet/driver-feature ;;
    libppd_routines.so) expected= ;;  # Needs no library of ours.
    driver-feature-filter) expected='$ORIGIN/../../'$triplet/driver-feature ;;
    *) expected='$ORIGIN' ;;
  esac
  [ "$path" = "$expected" ] || fail "$program looks for libraries in: $path"
done <<<"$programs"

# A second time, the packages come out the same.

epoch=$(stat -c %Y "$work/unpacked/driver-feature/usr/bin/driver-feature")
SOURCE_DATE_EPOCH=$epoch cpack --config "$build/CPackConfig.cmake" -B "$work/again" \
  >"$work/cpack.log" 2>&1 || fail "cpack failed:" "$(<"$work/cpack.log")"
for name in libdriverfeature1 libdriverfeature-dev driver-feature; do
  cmp "$(file "$name")" "$work/again/$(basename -- "$(file "$name")")"
done

# Life in a root of its own, which has the packages that they need from outside.

root=$work/root
mkdir -p "$root/var/lib/dpkg/"{info,updates}
: >"$root/var/lib/dpkg/available"
for name in libc6 libcups2 libgcc-s1 libreadline8 libstdc++6 libxml2; do
  dpkg-query --status "$name:$architecture"
  echo
done >"$root/var/lib/dpkg/status"

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

for name in driver-feature libdriverfeature-dev; do
  refuse "$name depends on libdriverfeature1 (= $kVersion)" --install "$(file "$name")"
  allow --purge "$name"
done
allow --install "$(file libdriverfeature1)" "$(file libdriverfeature-dev)" "$(file driver-feature)"

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
# it stands there.
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

cp -r "$root/usr/share/doc/libdriverfeature-dev/examples/minimal_host" "$work/host"
PKG_CONFIG_PATH=$root/usr/lib/$triplet/pkgconfig make -C "$work/host" run >"$work/make.log" 2>&1 ||
  fail "the example cannot be built or run:" "$(<"$work/make.log")"
grep -qxF '<< /NumCopies 3 >> setpagedevice' "$work/host/job.ps"

refuse "depends on libdriverfeature1" --remove libdriverfeature1
allow --remove driver-feature libdriverfeature-dev
[ ! -e "$root/usr/bin/driver-feature" ] || fail "the program is still there"
allow --purge libdriverfeature1
if inRoot --list '*driver*feature*'; then fail "dpkg still knows:" "$(<"$work/dpkg.log")"; fi
left=$(find "$root" -mindepth 1 ! -path "$root/var*")
[ -z "$left" ] || fail "this was left behind:" "$left"
