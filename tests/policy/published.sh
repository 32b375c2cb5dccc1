#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# published.sh TREE: checks the licences, the links between pages, and the syntax of what forges and editors read.
set -euo pipefail
cd "$1"
yamllint --strict --config-data '{extends: relaxed, rules: {line-length: {max: 120}}}' .github
python3 -m json.tool .devcontainer/devcontainer.json >/dev/null

for page in *.md docs/*.md docs/decisions/*.md; do
  for target in $(grep -v '^    ' "$page" | grep -oP '\]\(\K(?!https?:)[^)#]+'); do
    [ -e "$(dirname "$page")/$target" ] || { echo "$page links to $target, which does not exist"; exit 1; }
  done
done

# reuse needs git to tell source files from built ones.
git rev-parse HEAD >/dev/null 2>&1 || { echo "Skipped the licences: no git history."; exit 0; }
reuse lint
lacking=$(git grep -IL 'SPDX-Licen[s]e-Identifier: MIT' -- '*.cpp' '*.h' '*.qml' '*.py' '*.sh' '*.cmake' \
  '*CMakeLists.txt' || true)
[ -z "$lacking" ] || { echo "These files lack their licence line:" $lacking; exit 1; }
