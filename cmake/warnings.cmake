# What every target of ours is compiled with. Linked privately, so nobody who uses a module inherits it.
option(CORVANE_WERROR "Treat warnings as errors" OFF)

add_library(corvane_options INTERFACE)
target_compile_options(corvane_options INTERFACE
  -Wall -Wextra -Wconversion -Wdouble-promotion -Wshadow
  $<$<BOOL:${CORVANE_WERROR}>:-Werror>
  # A fused multiply-add rounds once where the written expression rounds twice, and compilers fuse
  # as soon as the target allows it: readings would differ in the last bit between machines.
  -ffp-contract=off)
