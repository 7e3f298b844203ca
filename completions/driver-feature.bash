# shellcheck shell=bash
# Completion of driver-feature in bash. The program itself knows what may
# follow; this file hands it the line and offers what it prints.

# The line up to the cursor as words. bash cuts words at "=" and ":" too; here
# pieces with no blank between them on the line are one word again. Quotes and
# backslashes are taken away.
_driver_feature_words() {
  local rest=${COMP_LINE:0:COMP_POINT} piece i
  driver_feature_words=()
  for ((i = 0; i <= COMP_CWORD; i++)); do
    piece=${COMP_WORDS[i]}
    if [[ $i -eq 0 || $rest == [[:blank:]]* ]]; then
      driver_feature_words+=("")
      rest=${rest#"${rest%%[![:blank:]]*}"}
    fi
    # The cursor may be within the last piece.
    [[ ${#piece} -le ${#rest} ]] || piece=$rest
    rest=${rest#"$piece"}
    piece=${piece//[\"\'\\]/}
    driver_feature_words[${#driver_feature_words[@]} - 1]+=$piece
  done
  for i in "${!driver_feature_words[@]}"; do
    # shellcheck disable=SC2088  # a tilde that was typed
    [[ ${driver_feature_words[i]} != "~/"* ]] ||
      driver_feature_words[i]=$HOME/${driver_feature_words[i]#"~/"}
  done
}

# Offers a text for the whole word: bash replaces only what follows the last
# "=" or ":" in it.
_driver_feature_offer() {
  local typed=${driver_feature_words[-1]} rest
  rest=${typed##*["${COMP_WORDBREAKS//[^=:]/}"$'\t']}
  COMPREPLY+=("${1:${#typed}-${#rest}}")
}

_driver_feature() {
  local driver_feature_words reply line prefix text
  COMPREPLY=()
  _driver_feature_words
  reply=$("${driver_feature_words[0]}" __complete "${driver_feature_words[@]:1}" 2>/dev/null) ||
    return 0
  line=${reply%%$'\n'*}
  if [[ $line == files* ]]; then
    prefix=${line#*$'\t'}
    compopt -o filenames 2>/dev/null
    while IFS= read -r text; do
      _driver_feature_offer "$prefix$text"
    done < <(compgen -f -- "${driver_feature_words[-1]#"$prefix"}")
    return 0
  fi
  while IFS=$'\t' read -r text _; do
    # The value follows a closing "=".
    [[ $text != *= ]] || compopt -o nospace 2>/dev/null
    # Names with blanks and the like are quoted.
    [[ $text != *[!-A-Za-z0-9_=,.:/+@%]* ]] || printf -v text %q "$text"
    _driver_feature_offer "$text"
  done < <(tail -n +2 <<<"$reply")
}

complete -F _driver_feature driver-feature
