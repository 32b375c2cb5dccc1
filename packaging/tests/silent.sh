#!/usr/bin/env bash
# silent.sh COMMAND...: fails if the command fails or prints anything.
said=$("$@" 2>&1)
status=$?
printf '%s' "$said"
[ "$status" = 0 ] && [ -z "$said" ]
