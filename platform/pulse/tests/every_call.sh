#!/usr/bin/env bash
# Fails when LIBRARY calls a function of libpulse that is neither WRAPPED, which makes it fail, nor
# INFALLIBLE; and when one is named that it does not call. Both are lists with commas.
set -euo pipefail
library=$1
named=$(tr ',' '\n' <<<"$2,$3" | sort)
called=$(nm --undefined-only "$library" | grep -oE '\bpa_[a-z0-9_]+' | sort -u)
diff <(echo "$named") <(echo "$called") || { echo "left: named, right: called"; exit 1; }
echo "$(wc -w <<<"${2//,/ }") functions that can fail are made to; $(wc -w <<<"${3//,/ }") cannot"
