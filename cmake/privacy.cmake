# SPDX-License-Identifier: MIT
# The program finds the installed privacy page relative to its own directory, so that both can be moved together.
file(RELATIVE_PATH page ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DOCDIR}/privacy.html)
set(CORVANE_PRIVACY_URL "${page}" CACHE STRING
    "Address of the privacy page, or its path relative to the program's directory")

# The same path in the build tree.
cmake_path(ABSOLUTE_PATH page BASE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} NORMALIZE)
cmake_path(IS_PREFIX CMAKE_BINARY_DIR ${page} inside)
if(inside)
  configure_file(${PROJECT_SOURCE_DIR}/docs/privacy.html ${page} COPYONLY)
endif()
