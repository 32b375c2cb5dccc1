# SPDX-License-Identifier: MIT
# Synthesised sound for tests and benchmarks. The first include defines the library.
if((CORVANE_TESTS OR CORVANE_BENCH) AND NOT TARGET corvane_signals)
  add_library(corvane_signals STATIC ${CMAKE_CURRENT_LIST_DIR}/signals.cpp)
  target_include_directories(corvane_signals PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(corvane_signals PRIVATE corvane_options)
endif()
