# What is released must not tell where and when it was built, so that everyone builds the same bytes.
foreach(folder ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
  add_compile_options($<$<CONFIG:Release>:-ffile-prefix-map=${folder}/=>)
endforeach()

# corvane_reproducible_qml(TARGET): the QML of a target that becomes a QML module is compiled to the same
# code each time.
function(corvane_reproducible_qml target)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  get_target_property(qmlcachegen Qt6::qmlcachegen LOCATION)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/qmlcachegen.in ${PROJECT_BINARY_DIR}/qmlcachegen @ONLY)
  set_target_properties(${target} PROPERTIES
    QT_QMLCACHEGEN_EXECUTABLE ${PROJECT_BINARY_DIR}/qmlcachegen)
endfunction()
