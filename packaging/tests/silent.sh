#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# silent.sh COMMAND...: fails if the command fails or prints anything.
said=$("$@" 2>&1)
status=$?
printf '%s' "$said"
[ "$status" = 0 ] && [ -z "$said" ]
