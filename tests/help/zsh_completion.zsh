# Types a line and a tab into an interactive zsh and prints what the shell has
# made of the line.
#
# usage: zsh -f zsh_completion.zsh FUNCTIONS_FOLDER LINE
zmodload zsh/zpty || exit 3

# What the shell writes up to a text, without the escapes of a terminal.
readUpTo() {
  local chunk
  output=
  repeat 500; do
    if zpty -rt shell chunk; then output+=$chunk; else sleep 0.02; fi
    [[ $output == *$1* ]] && return 0
  done
  print -ru2 -- "no \"$1\" in: $output"
  exit 1
}

zpty -b shell TERM=dumb zsh -f -i
zpty -w shell "PS1= PS2=; unsetopt zle_bracketed_paste prompt_cr prompt_sp"
zpty -w shell "fpath=(${(q)1} \$fpath); autoload -Uz compinit; compinit -u -D"
# A key prints the line as it is then.
zpty -w shell "showLine() { print -r -- \"<<\$BUFFER>>\" >./line; print -r -- DO''NE }"
zpty -w shell "zle -N showLine; bindkey '^X^G' showLine; print REA''DY"
readUpTo READY
zpty -wn shell "$2"$'\t\x18\x07'
readUpTo DONE
zpty -d shell
print -r -- "$(<line)"
