#!/usr/bin/env bash
# What cmake/build_id.cmake calls a build, in a small project of its own.
#
# usage: build_id_test.sh SOURCE_DIR
set -eu

source=$1
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
unset GIT_DIR GIT_WORK_TREE GIT_INDEX_FILE
export GIT_CEILING_DIRECTORIES=$work GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_NOSYSTEM=1
export GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a

project=$work/outer/project
mkdir -p "$project"
cat >"$project/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(Small LANGUAGES NONE)
include($source/cmake/build_id.cmake)
message(STATUS "build=\${DRIVER_FEATURE_BUILD}=")
END

# expect NAME [CMAKE_OPTION]...
expect() {
  local name=$1 got
  shift
  got=$(cmake -S "$project" -B "$work/build" "$@" | sed -n 's/^-- build=\(.*\)=$/\1/p')
  [ "$got" = "$name" ] && return
  echo "the build is called '$got', not '$name'"
  exit 1
}

commit() { git -C "$1" commit -q --allow-empty -m x; }

expect unknown
git -C "$work/outer" init -q
commit "$work/outer"
expect unknown

git -C "$project" init -q
expect unknown
commit "$project"
expect "$(git -C "$project" rev-parse --short HEAD)"
git -C "$project" tag v1.0.0
expect v1.0.0
expect mine -DDRIVER_FEATURE_BUILD=mine
expect v1.0.0 -DDRIVER_FEATURE_BUILD=

# A commit configures anew, and nothing else does.
# configured: whether a build has called the project something.
configured() { cmake --build "$work/build" | grep -- '^-- build='; }
if configured; then
  echo "a build without a change configures"
  exit 1
fi
sleep 1
commit "$project"
configured | grep -qxE -- '-- build=v1\.0\.0-1-g[0-9a-f]+='
