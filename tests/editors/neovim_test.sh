#!/usr/bin/env bash
# Proves that Neovim and the language server understand each other: findings at
# their places, an action that mends one, explanations, completion, the outline
# and jumps.
#
# usage: neovim_test.sh NEOVIM DRIVER_FEATURE ROUTINES
set -eu

neovim=$1
program=$(realpath "$2")
routines=$(realpath "$3")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
export HOME=$folder XDG_STATE_HOME=$folder XDG_CACHE_HOME=$folder XDG_DATA_HOME=$folder

cp -- "$tools/typed.xml" "$folder"
cd "$folder"
# In UTF-8 whatever the declaration says: what comes from an editor always is.
LC_ALL=C.UTF-8 timeout 20 "$neovim" --headless -u NONE -i NONE --cmd 'set encoding=utf-8' \
  --cmd "lua server = { '$program', '--callbacks', '$routines', 'lsp' }" typed.xml \
  -c "luafile $tools/neovim_test.lua" >said 2>messages || {
  cat said messages
  exit 1
}
diff -u "$tools/neovim_expected.txt" said
