# SPDX-License-Identifier: MIT
set(CORVANE_SANITIZE "" CACHE STRING "Sanitizers, as in -fsanitize=..., or empty")

if(CORVANE_SANITIZE)
  add_compile_options(-fsanitize=${CORVANE_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${CORVANE_SANITIZE})
endif()

# Clang only: coverage feedback for the fuzzers.
if(CORVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
