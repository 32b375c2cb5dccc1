#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# hardening.sh PROGRAM: fails if the program lacks a hardening feature.
set -euo pipefail
program=$1

# is FEATURE COMMAND PATTERN: the output of `readelf COMMAND` matches the pattern.
is() {
  readelf --wide $2 "$program" | grep -E "$3" >/dev/null || { echo "it is not $1"; exit 1; }
  echo "it is $1"
}

is "position independent" --file-header "Type:\s+DYN"
is "read-only after relocation" --program-headers "GNU_RELRO"
is "bound at once" --dynamic "FLAGS.*\bNOW\b"
is "without an executable stack" --program-headers "GNU_STACK\s.*\bRW\s"
is "built with a stack protector" --dyn-syms "__stack_chk_fail"
is "built with fortified library calls" --dyn-syms "__[a-z]+_chk(@|\s|$)"
! readelf --wide --dyn-syms "$program" | grep PRIVATE_API ||
  { echo "it calls private functions of Qt"; exit 1; }
echo "it calls only public functions of Qt"
case $(uname -m) in
  x86_64)
    # Look at the code: the linker marks the program only if all objects, including Debian's C startup code, have
    # endbr64.
    objdump --disassemble=main --no-show-raw-insn "$program" | grep endbr64 >/dev/null ||
      { echo "it is not built with control flow protection"; exit 1; }
    echo "it is built with control flow protection" ;;
  *) echo "control flow protection is not checked on $(uname -m)" ;;
esac
