# What the tests of the Debian packages share.
# shellcheck shell=bash

readonly kVersion=1.0.0
own=$(dpkg --print-architecture)
readonly own

fail() {
  printf '%s\n' "$*"
  exit 1
}

# Every package, as NAME:ARCHITECTURE. Hosts may be 32-bit programs, so what they
# load and what they are built with comes for i386 too.
# shellcheck disable=SC2034  # for the tests
readonly kLibraryPackages=("libdriverfeature1:$own" "libdriverfeature-dev:$own"
  libdriverfeature1:i386 libdriverfeature-dev:i386)
# shellcheck disable=SC2034
readonly kAllPackages=("${kLibraryPackages[@]}" "driver-feature:$own")

# file NAME:ARCHITECTURE: where the package is, in the folder that the test has
# put into `packages`.
file() {
  printf '%s/%s_%s_%s.deb\n' "${packages:?}" "${1%:*}" "$kVersion" "${1#*:}"
}

# triplet ARCHITECTURE: the folder of its libraries, below lib.
triplet() {
  dpkg-architecture "-a$1" -qDEB_HOST_MULTIARCH 2>/dev/null
}
