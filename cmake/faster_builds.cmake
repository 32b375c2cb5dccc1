# SPDX-License-Identifier: MIT
# Used if installed. Changes only the build time.
find_program(CORVANE_CCACHE ccache)
if(CORVANE_CCACHE)
  # Required to cache files that use a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CORVANE_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)
  endif()
endif()
