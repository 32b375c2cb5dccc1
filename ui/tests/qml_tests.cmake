# SPDX-License-Identifier: MIT
# One program; each file of qml/ is a test.
find_package(Qt6 6.4 REQUIRED COMPONENTS QuickTest)

add_executable(qml_tests qml_tests.cpp fake_tuner.h fake_tuner.cpp probe.h)
set_target_properties(qml_tests PROPERTIES AUTOMOC ON)
target_compile_definitions(qml_tests PRIVATE QML_TESTS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/qml")
target_link_libraries(qml_tests PRIVATE corvane_uiplugin corvane_ui corvane_options Qt6::QuickTest)

file(GLOB files CONFIGURE_DEPENDS qml/tst_*.qml)
foreach(file ${files})
  get_filename_component(test ${file} NAME_WE)
  string(REGEX REPLACE "^tst_" "" test ${test})
  add_test(NAME qml_tests.${test} COMMAND qml_tests -input ${file})
  set_tests_properties(qml_tests.${test} PROPERTIES LABELS qml TIMEOUT 120
                                                    ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endforeach()
