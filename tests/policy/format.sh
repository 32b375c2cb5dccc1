#!/usr/bin/env bash
# Fails where a C++ file is not laid out as .clang-format says, by the one version whose layout counts.
# Given the top of the tree.
set -euo pipefail
cd "$1"
mapfile -t files < <(find base pitch tunings platform engine ui tools tests bench fuzz \
  \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null)
[ "${#files[@]}" -gt 0 ] || { echo "found no C++ files to look at"; exit 1; }
clang-format-19 --dry-run --Werror "${files[@]}"
echo "${#files[@]} files are laid out as agreed"
