#!/usr/bin/env bash
# Runs the browser tests of the live page.
#
# usage: run.sh BUILD [--all] [--screenshots] [NAME]...
#
# The packages are those of package-lock.json; they go into build/page-tests, and are
# fetched again only when that file has changed.
set -euo pipefail

tests=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
source_dir=$(cd -- "$tests/../.." && pwd)
packages=$source_dir/build/page-tests/packages

PAGE_TEST_BUILD=$(realpath -- "$1")
export PAGE_TEST_BUILD
shift
names=()
for word in "$@"; do
  case $word in
    --all) export PAGE_TEST_ALL=1 ;;
    --screenshots) export PAGE_TEST_SCREENSHOTS=1 ;;
    -*)
      echo "page tests: unknown option $word; there are --all and --screenshots" >&2
      exit 2
      ;;
    *) names+=("$word") ;;
  esac
done

if ! cmp -s "$tests/package-lock.json" "$packages/fetched.json"; then
  mkdir -p "$packages"
  cp "$tests/package.json" "$tests/package-lock.json" "$packages/"
  if ! npm ci --prefix "$packages" --ignore-scripts --no-audit --no-fund >"$packages/npm.log" 2>&1; then
    cat "$packages/npm.log" >&2
    echo "page tests: npm could not fetch the packages" >&2
    exit 1
  fi
  cp "$tests/package-lock.json" "$packages/fetched.json"
fi

exec node --test-reporter=spec "$tests/main.js" "${names[@]}"
