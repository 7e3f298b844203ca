#!/usr/bin/env bash
# Compiles the locales of the tests into a folder, for LOCPATH. What is there
# already stays; nothing of the system changes.
#
# usage: make_locales.sh FOLDER
set -eu

folder=$1
mkdir -p -- "$folder"
# One has a decimal comma and groups digits; in the other, the small letter of
# "I" is not "i", too.
for language in de_DE tr_TR; do
  target=$folder/$language.UTF-8
  if [ -d "$target" ]; then continue; fi
  # Two builds may come here at once: the folder appears whole.
  making=$(mktemp -d "$folder/making.XXXXXX")
  if localedef -i "$language" -f UTF-8 "$making/locale"; then
    mv -T -- "$making/locale" "$target" 2>/dev/null || [ -d "$target" ]
    rm -rf -- "$making"
    continue
  fi
  rm -rf -- "$making"
  echo "the locale $language cannot be compiled; install Debian's package locales" >&2
  exit 1
done
