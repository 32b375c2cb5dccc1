#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tidy.sh TREE: runs clang-tidy on the product's C++ as preset "dev" compiles it, except ui/: its Qt headers take
# longer than all the rest.
set -euo pipefail
cd "$1"
# Clang cannot read headers that GCC precompiled.
mkdir -p build/tidy
sed 's/ -fpch-preprocess//; s/ -Winvalid-pch -include [^ ]*//' build/dev/compile_commands.json \
  >build/tidy/compile_commands.json
run-clang-tidy-19 -quiet -p build/tidy "^$PWD/(base|pitch|tunings|platform|engine|tools)/(?!.*tests/)" \
  >build/tidy/log 2>&1 || { grep -Ev '^(\[.*clang-tidy-19 .*|[0-9]+ warnings? generated\.|)$' build/tidy/log; exit 1; }
head -1 build/tidy/log
