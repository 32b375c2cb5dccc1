# SPDX-License-Identifier: MIT
# Releases contain no build path or date, so that everyone builds the same bytes.
foreach(folder ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
  add_compile_options($<$<CONFIG:Release>:-ffile-prefix-map=${folder}/=>)
endforeach()
