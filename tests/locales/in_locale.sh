#!/usr/bin/env bash
# Runs a command in a locale that is taken by every program of it, whether it
# asks for one or not.
#
# usage: in_locale.sh BUILD LOCALE COMMAND [ARGUMENT]...
#
# LOCALE is C, de_DE.UTF-8 or tr_TR.UTF-8. Fails with status 125 when the locale
# is not in force.
set -eu

build=$(realpath "$1")
name=$2
shift 2
# Messages of the system stay English: tests compare them. The address checks
# expect to be loaded first; an option tells them that they are not.
setting=(LC_ALL="$name" LANGUAGE=en LOCPATH="$build/locales"
  LD_PRELOAD="$build/lib/libset_locale.so"
  ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=0}:verify_asan_link_order=0")
case $name in
  C) expected="2.5 105" ;;
  de_DE.UTF-8) expected="2,5 105" ;;
  tr_TR.UTF-8) expected="2,5 305" ;;
  *) expected= ;;
esac
found=$(env "${setting[@]}" "$build/bin/locale_probe")
if [ "$found" != "$expected" ]; then
  echo "the locale $name is not in force: a number and a letter are \"$found\"" >&2
  exit 125
fi
exec env "${setting[@]}" "$@"
