#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# format.sh TREE: fails if a C++ file does not conform to .clang-format with clang-format 19.
set -euo pipefail
cd "$1"
mapfile -t files < <(find base pitch tunings platform engine ui tools tests bench fuzz \
  \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null)
[ "${#files[@]}" -gt 0 ] || { echo "no C++ files found"; exit 1; }
clang-format-19 --dry-run --Werror "${files[@]}"
echo "${#files[@]} files are formatted"
