#!/usr/bin/env bash
# Tests the Debian packages as files: their fields, what is in them, that Debian's
# own checker finds no fault, and that a second build gives the same bytes.
#
# usage: contents_test.sh SOURCE_DIR PACKAGE_DIR
#
# The trees that the packages were made of are those of the presets release and
# i386.
set -euo pipefail
shopt -s inherit_errexit

source=$1
packages=$2
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
unset DESTDIR

# shellcheck source=tests/package/common.sh
. "$source/tests/package/common.sh"

readonly kMaintainer='libDriverFeature maintainers <maintainers@libdriverfeature.invalid>'

# treeOf ARCHITECTURE
treeOf() {
  if [ "$1" = "$own" ]; then printf '%s/build/release\n' "$source"; else printf '%s/build/%s\n' "$source" "$1"; fi
}

found=$(cd "$packages" && printf '%s\n' *.deb | sort)
expected=$(for package in "${kAllPackages[@]}"; do basename -- "$(file "$package")"; done | sort)
[ "$found" = "$expected" ] || fail "there are other packages:" "$found"

# Fields.

# expectFields PACKAGE SECTION MULTI-ARCH: the fields that do not come from the
# compiler.
expectFields() {
  local package=$1 name=${1%:*} got
  # shellcheck disable=SC2016  # dpkg fills these in
  got=$(dpkg-deb --show --showformat \
    '${Package}:${Architecture}|${Version}|${Section}|${Priority}|${Multi-Arch}|${Maintainer}' \
    "$(file "$package")")
  [ "$got" = "$package|$kVersion|$2|optional|$3|$kMaintainer" ] ||
    fail "$name has other fields:" "$got"
  got=$(dpkg-deb --ctrl-tarfile "$(file "$package")" | tar -t | sed 's|^\./||' | sort | tr '\n' ' ')
  [ "$got" = " control md5sums " ] || fail "$package has other control files:" "$got"
}

# expectDependencies PACKAGE WORD...: the packages that it needs, no others.
expectDependencies() {
  local package=$1 got
  shift
  got=$(dpkg-deb --field "$(file "$package")" Depends | sed -e 's/, /\n/g' | sed -e 's/ (>=.*//' |
    sort)
  [ "$got" = "$(printf '%s\n' "$@")" ] ||
    fail "$package depends on other packages:" "$got"
}

for architecture in "$own" i386; do
  expectFields "libdriverfeature1:$architecture" libs same
  expectFields "libdriverfeature-dev:$architecture" libdevel same
  expectDependencies "libdriverfeature1:$architecture" libc6 libgcc-s1 libstdc++6 libxml2
  expectDependencies "libdriverfeature-dev:$architecture" "libdriverfeature1 (= $kVersion)"
done
expectFields "driver-feature:$own" utils allowed
expectDependencies "driver-feature:$own" libavahi-client3 libavahi-common3 libc6 libcups2 \
  "libdriverfeature1 (= $kVersion)" libedit2 libgcc-s1 libgnutls30 libstdc++6 libxml2 zlib1g

# Debian's own checker finds no error and nothing to warn of.
for package in "${kAllPackages[@]}"; do file "$package"; done >"$work/files"
xargs lintian --no-cfg --ignore-lintian-env --allow-root --fail-on error,warning \
  --show-overrides <"$work/files" >"$work/lintian.log" 2>&1 ||
  fail "lintian finds faults:" "$(<"$work/lintian.log")"

# Files. Each one that an installation has is in exactly one package of its
# architecture.

mkdir "$work/unpacked"
for architecture in "$own" i386; do
  components=(library development)
  if [ "$architecture" = "$own" ]; then components+=(tools); fi
  for component in "${components[@]}"; do
    DESTDIR=$work/installed/$architecture cmake --install "$(treeOf "$architecture")" \
      --component "$component"
  done >"$work/install.log"
  (cd "$work/installed/$architecture" && find . ! -type d) | sort >"$work/expected"
  for package in "${kAllPackages[@]}"; do
    if [ "${package#*:}" != "$architecture" ]; then continue; fi
    name=${package%:*} folder=$work/unpacked/$package
    dpkg-deb -x "$(file "$package")" "$folder"
    (cd "$folder" && find . ! -type d)
    dpkg-deb --ctrl-tarfile "$(file "$package")" | tar -x -C "$work" ./md5sums
    (cd "$folder" && md5sum --quiet -c "$work/md5sums")
    for text in copyright changelog.gz; do
      [ -s "$folder/usr/share/doc/$name/$text" ] || fail "$package has no $text"
    done
  done >"$work/found"
  diff -u "$work/expected" <(sort "$work/found") ||
    fail "the packages for $architecture hold other files than an installation"
done

# expectHolds PACKAGE FILE...
expectHolds() {
  local package=$1 path
  shift
  for path in "$@"; do
    [ -f "$work/unpacked/$package/$path" ] || fail "$package does not hold $path"
  done
}
for architecture in "$own" i386; do
  folder=usr/lib/$(triplet "$architecture")
  expectHolds "libdriverfeature1:$architecture" \
    "$folder"/driver-feature/{libDriverFeature,libCommonAPI,libXMLParser}.so
  expectHolds "libdriverfeature-dev:$architecture" "$folder/pkgconfig/driver-feature.pc" \
    "$folder/cmake/DriverFeature/DriverFeatureConfig.cmake" \
    usr/include/driver_feature/{model/core_feature_set,frame/exports,platform/AttributeMap}.h \
    usr/share/doc/libdriverfeature-dev/examples/minimal_host/minimal_host.cc
done
expectHolds "driver-feature:$own" usr/bin/driver-feature{,-filter,-preview,-printer} \
  usr/lib/cups/filter/driver-feature-filter \
  "usr/lib/$(triplet "$own")/driver-feature"/lib{office,ppd}_routines.so \
  usr/share/driver-feature/{label_printer,office_laser}.xml \
  usr/share/driver-feature/{feature_description.rnc,feature_description.rng,schemas.xml} \
  usr/share/man/man1/driver-feature{,-preview}.1.gz \
  usr/share/man/man8/driver-feature-{filter,printer}.8.gz \
  usr/lib/systemd/system/driver-feature-printer.service \
  usr/share/bash-completion/completions/driver-feature.bash \
  usr/share/zsh/vendor-completions/_driver-feature

# What both architectures install in the same place is the same.
for name in libdriverfeature1 libdriverfeature-dev; do
  shared=$(comm -12 <(cd "$work/unpacked/$name:$own" && find . ! -type d | sort) \
    <(cd "$work/unpacked/$name:i386" && find . ! -type d | sort))
  for path in "./usr/share/doc/$name/copyright" "./usr/share/doc/$name/changelog.gz"; do
    grep -qxF -- "$path" <<<"$shared" || fail "$path is not in both packages $name"
  done
  while read -r path; do
    cmp "$work/unpacked/$name:$own/$path" "$work/unpacked/$name:i386/$path"
  done <<<"$shared"
done

# Everything belongs to root, and nobody else may write to it.
for package in "${kAllPackages[@]}"; do
  if dpkg-deb -c "$(file "$package")" |
    grep -vE '^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x|lrwxrwxrwx) root/root '; then
    fail "$package has files with other owners or permissions"
  fi
done

# Programs.

# Nothing shows where it was built, and nothing is left for a debugger.
for place in "$source" "$packages"; do
  if grep -rlF -- "$place" "$work/unpacked"; then fail "these files name $place"; fi
done

# runPathOf PROGRAM-NAME: where it looks for libraries.
runPathOf() {
  # shellcheck disable=SC2016  # a word of the loader's, not of the shell's
  case $1 in
    driver-feature | driver-feature-preview | driver-feature-printer) printf '%s\n' '$ORIGIN/../lib/'"$(triplet "$own")"/driver-feature ;;
    driver-feature-filter) printf '%s\n' '$ORIGIN/../../'"$(triplet "$own")"/driver-feature ;;
    libppd_routines.so) ;; # Needs no library of ours.
    *) printf '%s\n' '$ORIGIN' ;;
  esac
}

programs=$(find "$work/unpacked" -type f \
  \( -name '*.so' -o -path '*/bin/driver-feature' -o -path '*/bin/driver-feature-p*' -o -path '*/cups/filter/*' \))
[ "$(wc -l <<<"$programs")" -eq 12 ] || fail "there are other programs:" "$programs"
while read -r program; do
  if readelf -SW "$program" | grep -E '\.(debug_info|symtab)'; then
    fail "$program is not stripped"
  fi
  path=$(readelf -d "$program" | sed -n 's/.*R\(UN\)\{0,1\}PATH.*\[\(.*\)\]/\2/p')
  [ "$path" = "$(runPathOf "${program##*/}")" ] || fail "$program looks for libraries in: $path"
done <<<"$programs"

# needs ARCHITECTURE: the libraries that the library's package needs, and of each
# set of versioned symbols the newest one.
needs() {
  local folder
  folder=$work/unpacked/libdriverfeature1:$1/usr/lib/$(triplet "$1")/driver-feature
  (
    cd "$folder"
    for library in *.so; do
      readelf -d "$library" | sed -n "s/.*(NEEDED).*\[\(.*\)\]/$library needs \1/p" | grep -v 'ld-linux'
    done
    readelf -V -W ./*.so | grep -oE 'Name: [A-Z0-9]+_[0-9.]+' | sort -u -V |
      awk -F_ '{ newest[$1] = $0 } END { for (set in newest) print newest[set] }' | sort
  )
}

# The list of what the 32-bit library depends on was made for the other one.
needs "$own" >"$work/needs"
diff -u "$work/needs" <(needs i386) || fail "the 32-bit libraries need something else"
[ "$(dpkg-deb --field "$(file libdriverfeature1:i386)" Depends)" = \
  "$(dpkg-deb --field "$(file "libdriverfeature1:$own")" Depends)" ] ||
  fail "the packages of the library depend on different versions"
for program in "$work/unpacked/libdriverfeature1:i386"/usr/lib/*/driver-feature/*.so; do
  readelf -h "$program" | grep -qE 'Machine: +Intel 80386' || fail "$program is not a 32-bit program"
done

# A second time, the packages come out the same.

epoch=$(stat -c %Y "$work/unpacked/driver-feature:$own/usr/bin/driver-feature")
for architecture in "$own" i386; do
  SOURCE_DATE_EPOCH=$epoch cpack --config "$(treeOf "$architecture")/CPackConfig.cmake" \
    -B "$work/again" >"$work/cpack.log" 2>&1 || fail "cpack failed:" "$(<"$work/cpack.log")"
done
for package in "${kAllPackages[@]}"; do
  cmp "$(file "$package")" "$work/again/$(basename -- "$(file "$package")")"
done
