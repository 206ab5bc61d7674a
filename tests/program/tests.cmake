# quillon-script as it is called: with a file, from standard input, and wrongly.
add_test(NAME program.arguments COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/arguments.py $<TARGET_FILE:quillon-script>)
