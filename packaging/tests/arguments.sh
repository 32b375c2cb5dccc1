#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# arguments.sh PACKAGE: fails unless ./package rejects invalid arguments and resolves a relative directory.
set -uo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

refused() {
  "$package" "$@" >out 2>err
  status=$?
  [ "$status" = 2 ] && [ ! -s out ] && [ "$(wc -l <err)" = 1 ] && return
  echo "package $*: status $status"
  cat out err
  exit 1
}

package=$1
refused --help
refused --source --help
refused --source --recipes
refused -v
refused ""
refused here there
refused --source here there

mkdir stand
cd stand
archive=$(CORVANE_PACKAGES_INSTALLED=1 "$package" --source ../"some where" 2>/dev/null)
case "$archive" in
  "$folder"/some\ where/corvane-*.tar.xz) xz --test "$archive" ;;
  *) echo "Wrong path: $archive"; exit 1 ;;
esac
