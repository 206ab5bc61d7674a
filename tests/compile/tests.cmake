# Slips in formats that the compiler must refuse.
execute_process(COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/fragments.py --list
  OUTPUT_VARIABLE fragments OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" fragments "${fragments}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/fragments.py)
foreach(fragment ${fragments})
  add_test(NAME compile.${fragment} COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/fragments.py
    --compiler ${CMAKE_CXX_COMPILER} --include ${PROJECT_SOURCE_DIR}/src ${fragment})
endforeach()
