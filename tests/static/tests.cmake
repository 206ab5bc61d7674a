# What is checked by reading the sources.
add_test(NAME static.lint COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/lint.py)
add_test(NAME static.checks COMMAND ${PROJECT_SOURCE_DIR}/tools/static_checks ${CMAKE_BINARY_DIR})
set_tests_properties(static.lint static.checks PROPERTIES LABELS static TIMEOUT 900)
