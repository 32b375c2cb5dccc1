# The page that tells what the program does with sound comes with it: the program finds it from its own
# folder, so that both can be put anywhere together.
file(RELATIVE_PATH page ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DOCDIR}/privacy.html)
set(CORVANE_PRIVACY_URL "${page}" CACHE STRING
    "Web address of the privacy page, or where it lies as seen from the program's folder")

# And in the build tree as well.
cmake_path(ABSOLUTE_PATH page BASE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} NORMALIZE)
cmake_path(IS_PREFIX CMAKE_BINARY_DIR ${page} inside)
if(inside)
  configure_file(${PROJECT_SOURCE_DIR}/docs/privacy.html ${page} COPYONLY)
endif()
