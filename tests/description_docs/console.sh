# shellcheck shell=bash
# Functions of the tests that run documents: fenced blocks, and console
# sessions in them. To be sourced by bash.

# listBlocks DOCUMENT FOLDER: writes the lines of every fenced block to
# FOLDER/NUMBER, and prints for each
#   NUMBER LANGUAGE LINE NOTE
# where NOTE is the HTML comment right above the block, without its marks.
# Fails when a block has no end.
listBlocks() {
  awk -v folder="$2" '
    !inside && /^```/ {
      inside = 1
      number++
      file = folder "/" number
      printf "" > file
      print number, substr($0, 4), NR, note
      note = ""
      next
    }
    inside && /^```$/ { inside = 0; close(file); next }
    inside { print > file; next }
    /^<!-- .* -->$/ { note = substr($0, 6, length($0) - 9); next }
    /./ { note = "" }
    END { if (inside) { print "a block has no end" > "/dev/stderr"; exit 1 } }' "$1"
}

# runSession FILE: runs the commands of a console block in the current folder
# and shell, and prints them with their output, as they are in the block. A
# command goes on in the next line after a backslash.
runSession() {
  local command next
  while IFS= read -r command; do
    [[ $command == '$ '* ]] || continue
    while [[ $command == *\\ ]] && IFS= read -r next; do command+=$'\n'$next; done
    printf '%s\n' "$command"
    eval "${command#'$ '}" </dev/null 2>&1 || :  # What it prints counts.
  done <"$1"
}
