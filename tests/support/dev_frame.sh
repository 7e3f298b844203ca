# The frame of the task runner's tests; dev_test.sh reads it after setting
# source_dir.
#
# A copy of the task runner runs with a PATH that holds a few essential tools
# and, for all else, a stand-in, which writes its name and arguments to the file
# `calls` and then does what `act NAME` says. Scripts that it gives to bash have
# such a stand-in too, where the project has them.
#
# shellcheck shell=bash disable=SC2154  # source_dir
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
bash_path=$(command -v bash)
project=$work/project
failures=0
checks=0

prepareTools() {
  local tool
  mkdir "$work/tools" "$work/elsewhere"
  cat >"$work/stand_in" <<END
#!$bash_path
name=\${0##*/}
if [ \$name = bash ]; then
  case \$1 in -c) exec $bash_path "\$@" ;; esac
  [ -f "$source_dir/\$1" ] || exit 127
  name=\${1##*/}
  shift
fi
case \$name in id | nproc | dpkg-query) ;; *) echo "\$name \$*" >>"$work/calls" ;; esac
if [ -f "$work/act.\$name" ]; then . "$work/act.\$name"; fi
END
  chmod +x "$work/stand_in"
  for tool in cat dirname env find grep mkdir rm sed sort tail tr xargs; do
    ln -s "$(command -v "$tool")" "$work/tools/"
  done
  for tool in apt-get bash clang-format clang-tidy cmake cpack ctest dpkg-deb \
    dpkg-query gcovr git id nproc python3 shellcheck stat; do
    ln -s "$work/stand_in" "$work/tools/$tool"
  done
}

# begin NAME: a fresh copy of the project's frame; every package is there.
begin() {
  current=$1
  environment=(LANG=C)
  rm -rf "$project" "${work:?}/bin" "$work"/act.*
  cp -a "$work/tools" "$work/bin"
  mkdir -p "$project/cmake"
  cp "$source_dir/dev" "$project/"
  cp "$source_dir/cmake/debian-packages.txt" "$project/cmake/"
  : >"$work/calls"
  : >"$work/missing"
  : >"$work/removed"
  act id 'echo 0'
  act nproc 'echo 3'
  act git 'exit 128'
  # As for -W -f '${db:Status-Status} ${Package}\n'.
  act dpkg-query "shift 3
    printf '%s\n' \"\$@\" | grep -vxF -f '$work/missing' -f '$work/removed' | sed 's/^/installed /'
    sed 's/^/config-files /' '$work/removed'
    [ ! -s '$work/missing' ]"
}

# act NAME SHELL-LINES: what a tool or a script does.
act() { printf '%s\n' "$2" >"$work/act.$1"; }

# makeProgram FILE SHELL-LINES: a program that the project has built.
makeProgram() {
  mkdir -p "$(dirname "$project/$1")"
  printf '#!%s\n%s\n' "$bash_path" "$2" >"$project/$1"
  chmod +x "$project/$1"
}

# dev STATUS [ARGUMENT]...: runs the copy from another directory, without standard
# input, and expects that status.
dev() {
  local expected=$1 status
  shift
  (cd "$work/elsewhere" && exec env -i PATH="$work/bin" HOME="$work" "${environment[@]}" \
    "$bash_path" "$project/dev" "$@") <&- >"$work/out" 2>"$work/err"
  status=$?
  check "status $status, expected $expected" [ "$status" -eq "$expected" ]
}

# check FAULT COMMAND...: the command succeeds.
check() {
  checks=$((checks + 1))
  if "${@:2}"; then return; fi
  failures=$((failures + 1))
  printf 'FAILED %s: %s\n' "$current" "$1"
  sed 's/^/  /' "$work/out" "$work/err" "$work/calls"
}

# expectCalls [LINE]...: the calls are these, in this order.
expectCalls() {
  local expected=''
  if [ $# -gt 0 ]; then expected=$(printf '%s\n' "$@"); fi
  check "calls differ from: $expected" [ "$(<"$work/calls")" = "$expected" ]
}

# expectLine FILE TEXT: one line of FILE is TEXT.
expectLine() { check "no line '$2' in $1" grep -qxF -- "$2" "$work/$1"; }

# expectCount NUMBER PATTERN: so many calls have it.
expectCount() {
  check "not $1 calls with '$2'" [ "$(grep -cE -- "$2" "$work/calls")" -eq "$1" ]
}

prepareTools
