#!/usr/bin/env bash
# Proves that Neovim, with the settings of the document, and the language server
# understand each other: findings at their places, an action that mends one,
# explanations, completion, the outline and jumps.
#
# usage: neovim_test.sh NEOVIM DRIVER_FEATURE ROUTINES DOCUMENT
set -eu

neovim=$1
program=$(realpath "$2")
routines=$(realpath "$3")
tools=$(dirname -- "$(realpath "${BASH_SOURCE[0]}")")
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
export HOME=$folder XDG_STATE_HOME=$folder XDG_CACHE_HOME=$folder XDG_DATA_HOME=$folder

# shellcheck source=tests/description_docs/console.sh
. "$tools/../description_docs/console.sh"
mkdir "$folder/blocks" "$folder/bin"
list=$(listBlocks "$(realpath "$4")" "$folder/blocks")
block=$(awk '$4 == "neovim" { print $1 }' <<<"$list")
sed "s|callbacks = {}|callbacks = { '$routines' }|" "$folder/blocks/$block" >"$folder/init.lua"
ln -s -- "$program" "$folder/bin/driver-feature"
export PATH=$folder/bin:$PATH

cp -- "$tools/typed.xml" "$folder"
cd "$folder"
# In UTF-8 whatever the declaration says: what comes from an editor always is.
LC_ALL=C.UTF-8 timeout 20 "$neovim" --headless -u init.lua -i NONE typed.xml \
  -c "luafile $tools/neovim_test.lua" >said 2>messages || {
  cat said messages
  exit 1
}
diff -u "$tools/neovim_expected.txt" said
