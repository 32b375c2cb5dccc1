#!/usr/bin/env bash
# Fails where PROGRAM lacks one of the protections it is built with.
set -euo pipefail
program=$1

# is SENTENCE COMMAND PATTERN: what `readelf COMMAND` prints has the pattern.
is() {
  readelf --wide $2 "$program" | grep -E "$3" >/dev/null || { echo "it is not $1"; exit 1; }
  echo "it is $1"
}

is "position independent" --file-header "Type:\s+DYN"
is "read-only after relocation" --program-headers "GNU_RELRO"
is "bound at once" --dynamic "FLAGS.*\bNOW\b"
is "without an executable stack" --program-headers "GNU_STACK\s.*\bRW\s"
is "protected against smashed stacks" --dyn-syms "__stack_chk_fail"
is "built with checked library calls" --dyn-syms "__[a-z]+_chk(@|\s|$)"
! readelf --wide --dyn-syms "$program" | grep PRIVATE_API ||
  { echo "it calls private functions of Qt, whose next release may lack them"; exit 1; }
echo "it calls only public functions of Qt"
case $(uname -m) in
  x86_64)
    # The linker does not mark the program as a whole, because the C library's own start-up code,
    # on Debian, lacks the landing marks that ours has.
    objdump --disassemble=main --no-show-raw-insn "$program" | grep endbr64 >/dev/null ||
      { echo "it is not protected against diverted control flow"; exit 1; }
    echo "it is protected against diverted control flow" ;;
  *) echo "control-flow protection is not looked at on $(uname -m)" ;;
esac
