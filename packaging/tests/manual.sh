#!/usr/bin/env bash
# manual.sh PAGE: has the page set, which prints what is wrong with it.
set -euo pipefail
LC_ALL=C.UTF-8 MANROFFSEQ= MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file --ditroff \
  --troff-device=utf8 "$1" >/dev/null
