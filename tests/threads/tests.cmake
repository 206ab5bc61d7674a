# The thread beside a large report, under the thread sanitizer: the tests of the output once more, with what they need of the
# program built anew, since one program has one sanitizer.
find_package(Threads REQUIRED)
add_executable(output_thread_tests
  ${CMAKE_CURRENT_SOURCE_DIR}/unit/text/output_test.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/unit/support/own_folder.cpp
  ${PROJECT_SOURCE_DIR}/src/text/output.cpp
  ${PROJECT_SOURCE_DIR}/src/text/cells.cpp
  ${PROJECT_SOURCE_DIR}/src/text/encoding.cpp
  ${PROJECT_SOURCE_DIR}/src/desktop/scripted/files.cpp
  ${PROJECT_SOURCE_DIR}/src/desktop/scripted/faults.cpp
  ${PROJECT_SOURCE_DIR}/src/desktop/scripted/paths.cpp)
target_include_directories(output_thread_tests PRIVATE ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR}/unit)
target_compile_options(output_thread_tests PRIVATE -Wall -Wextra -Werror -O1 -g -fsanitize=thread)
target_link_options(output_thread_tests PRIVATE -fsanitize=thread)
target_link_libraries(output_thread_tests PRIVATE GTest::gtest_main Threads::Threads)
add_test(NAME threads.output COMMAND output_thread_tests)
