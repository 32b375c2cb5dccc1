#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# raw_icon.sh FOLDER: fails unless each SIZE.raw has the pixels of SIZE.png.
set -euo pipefail
for raw in "$1"/*.raw; do
  convert "${raw%.raw}.png" -depth 8 RGBA:- | cmp - "$raw"
  echo "$raw has the same pixels"
done
