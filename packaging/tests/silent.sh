#!/usr/bin/env bash
# silent.sh COMMAND...: fails when the command fails or has anything to say.
said=$("$@" 2>&1)
status=$?
printf '%s' "$said"
[ "$status" = 0 ] && [ -z "$said" ]
