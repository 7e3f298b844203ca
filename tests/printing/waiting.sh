# shellcheck shell=bash
# To be sourced by bash.

# waitFor SECONDS COMMAND...: until the command succeeds; fails when it does not in time.
waitFor() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.05
  done
}
