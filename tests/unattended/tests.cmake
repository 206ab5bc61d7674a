# quillon-print as it is called.
add_test(NAME unattended.print COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/print_test.py
  $<TARGET_FILE:quillon-print> $<TARGET_FILE:quillon-script> ${PROJECT_SOURCE_DIR})
set_tests_properties(unattended.print PROPERTIES TIMEOUT 600)
