#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fails if LIBRARY calls a function of libpulse that is neither WRAPPED, so that tests can make it
# fail, nor INFALLIBLE, or if one is named that it does not call. Both are comma-separated lists.
set -euo pipefail
library=$1
named=$(tr ',' '\n' <<<"$2,$3" | sort)
called=$(nm --undefined-only "$library" | grep -oE '\bpa_[a-z0-9_]+' | sort -u)
diff <(echo "$named") <(echo "$called") || { echo "left: named, right: called"; exit 1; }
echo "$(wc -w <<<"${2//,/ }") functions that can fail are made to; $(wc -w <<<"${3//,/ }") cannot"
