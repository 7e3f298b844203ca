#!/usr/bin/env bash
# Writes the golden files of this folder anew:
#
#   tests/golden/refresh.sh BUILD_DIR
#
# What the program writes need not be right: read each difference that
# git shows afterwards, and keep it only when it is what was meant.
set -euo pipefail

if [ $# -ne 1 ]; then
  printf 'usage: %s BUILD_DIR\n' "$0" >&2
  exit 2
fi
build=$(cd -- "$1" && pwd)
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"

for description in office_laser label_printer; do
  for settings in default changed; do
    arguments=()
    ticketArguments=()
    if [ "$settings" != default ]; then
      mapfile -t arguments <"$description.$settings.arguments"
      ticketArguments=(--inst-opt)
      if [ "$description" = office_laser ]; then
        arguments+=(--records PageExceptions ../../descriptions/page_exceptions.json)
      fi
    fi
    program=("$build/bin/driver-feature" --callbacks "$build/lib/liboffice_routines.so")
    for form in ps pjl ticket; do
      "${program[@]}" emit "../../descriptions/$description.xml" --to "$form" \
        "${ticketArguments[@]}" "${arguments[@]}" --output "$description.$settings.$form"
    done
    "${program[@]}" dump --show-secrets "../../descriptions/$description.xml" "${arguments[@]}" \
      >"$description.$settings.dump"
  done
done
