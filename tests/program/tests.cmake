# quillon-script as it is called: with a file, from standard input, and wrongly.
add_test(NAME program.arguments COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/arguments.py $<TARGET_FILE:quillon-script>)
add_test(NAME program.fullDisk COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/program/full_disk.py
  $<TARGET_FILE:quillon-script> ${PROJECT_SOURCE_DIR}/samples/export)
set_tests_properties(program.fullDisk PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)
