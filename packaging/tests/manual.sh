#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# manual.sh PAGE: formats the page and prints its warnings.
set -euo pipefail
LC_ALL=C.UTF-8 MANROFFSEQ= MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file --ditroff \
  --troff-device=utf8 "$1" >/dev/null
