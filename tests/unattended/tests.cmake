# quillon-print as it is called.
add_test(NAME unattended.print COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/print_test.py
  $<TARGET_FILE:quillon-print> $<TARGET_FILE:quillon-script> ${PROJECT_SOURCE_DIR})
add_test(NAME unattended.guide COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/guide_test.py
  $<TARGET_FILE:quillon-print> $<TARGET_FILE:quillon-script> ${PROJECT_SOURCE_DIR})
set_tests_properties(unattended.print unattended.guide PROPERTIES TIMEOUT 600)
add_test(NAME windows.print COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/print_wine.py
  $<TARGET_FILE:quillon-print> ${CMAKE_BINARY_DIR}/../windows ${PROJECT_SOURCE_DIR}/samples/export)
set_tests_properties(windows.print PROPERTIES LABELS windows RESOURCE_LOCK wine_beside COST 800 TIMEOUT 600)
