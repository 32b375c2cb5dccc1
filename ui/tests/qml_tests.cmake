# The components, each by a file of its own: qml/tst_<Component>.qml.
find_package(Qt6 6.4 REQUIRED COMPONENTS QuickTest)

get_target_property(files corvane_ui QT_QML_MODULE_QML_FILES)
set(components)
foreach(file ${files})
  get_filename_component(component ${file} NAME_WE)
  list(APPEND components ${component})
  if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/qml/tst_${component}.qml)
    message(SEND_ERROR "The component ${component} has no test: qml/tst_${component}.qml is missing")
  endif()
endforeach()
list(JOIN components " " component_names)

add_executable(qml_tests qml_tests.cpp fake_tuner.h fake_tuner.cpp)
set_target_properties(qml_tests PROPERTIES AUTOMOC ON)
target_compile_definitions(qml_tests PRIVATE CORVANE_COMPONENTS="${component_names}"
                                             QML_TESTS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/qml")
target_link_libraries(qml_tests PRIVATE corvane_uiplugin corvane_ui corvane_options Qt6::QuickTest)

file(GLOB files CONFIGURE_DEPENDS qml/tst_*.qml)
foreach(file ${files})
  get_filename_component(test ${file} NAME_WE)
  string(REGEX REPLACE "^tst_" "" test ${test})
  add_test(NAME qml_tests.${test} COMMAND qml_tests -input ${file})
  set_tests_properties(qml_tests.${test} PROPERTIES LABELS qml TIMEOUT 120
                                                    ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endforeach()
