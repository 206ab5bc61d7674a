add_test(NAME samples.makerReproducesCommittedFiles
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/samples/same_bytes.py)
# The form's own output read back column by column, without the program.
add_test(NAME samples.convertedFields
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/samples/converted_fields.py
    $<TARGET_FILE:quillon-script> ${PROJECT_SOURCE_DIR}/samples/export)
set_tests_properties(samples.convertedFields PROPERTIES TIMEOUT 240)
