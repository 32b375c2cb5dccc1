# SPDX-License-Identifier: MIT
# Built by `check --all` besides the default target: tests of real audio servers, and benchmarks.
add_custom_target(everything)
add_custom_target(unit_tests)

if(NOT CORVANE_TESTS)
  # corvane_tests(...): no effect without tests.
  function(corvane_tests)
  endfunction()
  return()
endif()

find_package(GTest REQUIRED)
include(GoogleTest)

# Tests take longer to optimise than to run. The tested code is compiled as in the program.
add_library(corvane_test_options INTERFACE)
# All users of the precompiled header need the same options: Qt requires -fPIC, libpulse the definition.
target_compile_options(corvane_test_options INTERFACE -O0 -fPIC)
target_compile_definitions(corvane_test_options INTERFACE _REENTRANT)
target_link_libraries(corvane_test_options INTERFACE corvane_options GTest::gmock GTest::gtest_main)

# Only for tests: the program uses the compiler's linker, so that everyone builds the same bytes.
find_program(CORVANE_MOLD mold)
if(CORVANE_MOLD)
  target_link_options(corvane_test_options INTERFACE -fuse-ld=mold)
endif()

# Parsing the test framework takes longer than compiling most tests: all programs share a precompiled header. It belongs
# to a program because libraries have other flags.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/test_headers.cpp CONTENT "")
add_executable(corvane_test_headers ${PROJECT_BINARY_DIR}/test_headers.cpp)
target_link_libraries(corvane_test_headers PRIVATE corvane_test_options)
target_precompile_headers(corvane_test_headers PRIVATE
  <gmock/gmock.h> <gtest/gtest.h> <chrono> <cmath> <condition_variable> <filesystem> <functional>
  <map> <memory> <mutex> <optional> <ranges> <span> <string> <thread> <vector>)

# corvane_tests(NAME LABEL label SOURCES ... USES ... [PROPERTIES ...]): the GoogleTest program of one module. Each of its
# tests becomes a CTest test with that label, or "sanitizer" under a sanitizer, and with these CTest properties.
function(corvane_tests name)
  cmake_parse_arguments(arg "" "LABEL" "SOURCES;USES;PROPERTIES" ${ARGN})
  if(CORVANE_SANITIZE)
    set(arg_LABEL sanitizer)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_USES} corvane_test_options)
  if(arg_LABEL STREQUAL unit)
    add_dependencies(unit_tests ${name})
  endif()
  target_precompile_headers(${name} REUSE_FROM corvane_test_headers)
  gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                       PROPERTIES LABELS ${arg_LABEL} TIMEOUT 900 ${arg_PROPERTIES})
endfunction()
