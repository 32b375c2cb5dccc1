# What every target of ours is compiled with. Linked privately, so nobody who uses a module inherits it.
option(CORVANE_WERROR "Treat warnings as errors" OFF)

set(CORVANE_WARNINGS -Wall -Wextra -Wconversion -Wdouble-promotion -Wshadow)
if(CORVANE_WERROR)
  list(APPEND CORVANE_WARNINGS -Werror)
endif()

# A fused multiply-add rounds once where the written expression rounds twice, and compilers fuse as
# soon as the target allows it: readings would differ in the last bit between machines.
add_library(corvane_arithmetic INTERFACE)
target_compile_options(corvane_arithmetic INTERFACE -ffp-contract=off)
# On 32-bit x86 only: elsewhere SSE2 is the default or does not exist. x87 arithmetic rounds to a wider format.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86")
  target_compile_options(corvane_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()

add_library(corvane_options INTERFACE)
target_compile_options(corvane_options INTERFACE ${CORVANE_WARNINGS})
target_link_libraries(corvane_options INTERFACE corvane_arithmetic)
