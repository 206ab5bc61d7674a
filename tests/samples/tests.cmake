add_test(NAME samples.makerReproducesCommittedFiles
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/samples/same_bytes.py)
