# SPDX-License-Identifier: MIT
# The options of all targets. Linked privately, so that users of a module do not inherit them.
option(CORVANE_WERROR "Treat warnings as errors" OFF)

set(CORVANE_WARNINGS -Wall -Wextra -Wconversion -Wdouble-promotion -Wshadow)
if(CORVANE_WERROR)
  list(APPEND CORVANE_WARNINGS -Werror)
endif()

# A fused multiply-add rounds once instead of twice, and compilers fuse if the target can: readings would differ in the
# last bit between machines.
add_library(corvane_arithmetic INTERFACE)
target_compile_options(corvane_arithmetic INTERFACE -ffp-contract=off)
# 32-bit x86 only, where x87 arithmetic rounds to a wider format. Elsewhere SSE2 is the default or does not exist.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86")
  target_compile_options(corvane_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()

add_library(corvane_options INTERFACE)
target_compile_options(corvane_options INTERFACE ${CORVANE_WARNINGS})
target_link_libraries(corvane_options INTERFACE corvane_arithmetic)
