#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# readme.sh TREE: fails unless README.md names exactly the packages that ./run installs to build the tuner.
set -euo pipefail
cd "$1"
. tools/packages.sh
named=$(sed -n '/^    sudo apt install g++/,/^    cmake/p' README.md | grep -v '^    cmake' |
  sed 's/sudo apt install//; s/\\$//' | xargs -n 1 | sort)
diff <(printf '%s\n' $build_packages | sort) - <<<"$named"
