# Used where they are installed. They change how long a build takes and nothing else.
find_program(CORVANE_CCACHE ccache)
if(CORVANE_CCACHE)
  # Files that use a precompiled header can only be cached with these.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CORVANE_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)
  endif()
endif()
