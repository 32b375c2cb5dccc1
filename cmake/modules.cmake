# corvane_module(NAME SOURCES ... USES ...): one of our libraries, included as "NAME/header.h".
function(corvane_module name)
  cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
  if(arg_SOURCES)
    add_library(corvane_${name} STATIC ${arg_SOURCES})
    target_include_directories(corvane_${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(corvane_${name} PUBLIC ${arg_USES} PRIVATE corvane_options)
  else()
    add_library(corvane_${name} INTERFACE)
    target_include_directories(corvane_${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(corvane_${name} INTERFACE ${arg_USES})
  endif()
  add_library(corvane::${name} ALIAS corvane_${name})
endfunction()

# Reading the test framework takes longer than compiling most tests: the programs of one folder, which
# are compiled alike, share what the first of them has read.
function(corvane_precompile_test_headers name)
  get_property(first DIRECTORY PROPERTY corvane_test_headers)
  if(first)
    target_precompile_headers(${name} REUSE_FROM ${first})
  else()
    target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    set_property(DIRECTORY PROPERTY corvane_test_headers ${name})
  endif()
endfunction()

# corvane_tests(NAME SOURCES ... USES ... [PROPERTIES ...]): a GoogleTest program named NAME; each
# of its tests becomes one CTest test. PROPERTIES are CTest properties of all of them.
function(corvane_tests name)
  if(NOT CORVANE_TESTS)
    return()
  endif()
  cmake_parse_arguments(arg "" "" "SOURCES;USES;PROPERTIES" ${ARGN})
  find_package(GTest REQUIRED)
  include(GoogleTest)
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_USES} corvane_options GTest::gmock GTest::gtest_main)
  # What is tested is compiled as it is used; the tests around it take longer to optimise than to run.
  target_compile_options(${name} PRIVATE -O0)
  corvane_precompile_test_headers(${name})
  gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 120 ${arg_PROPERTIES})
endfunction()
