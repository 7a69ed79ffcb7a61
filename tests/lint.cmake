# What can be said of the sources without running them.
option(CHECK_SOURCES "Test the sources' layout, clang-tidy's findings and the layer rule" ON)
if(NOT CHECK_SOURCES)
  return()
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)
if(NOT CMAKE_CROSSCOMPILING)
  add_test(NAME lint.format COMMAND ${PROJECT_SOURCE_DIR}/tools/check_format)
  add_test(NAME layers.includes COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/layers/check_layers.py
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
  set_tests_properties(lint.format PROPERTIES LABELS lint)
endif()
add_test(NAME lint.tidy COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/check_tidy ${PROJECT_BINARY_DIR})
# Looks at every source when nothing is remembered, on all cores.
set_tests_properties(lint.tidy PROPERTIES LABELS lint TIMEOUT 3600 PROCESSORS 2)
