# What is checked by reading the sources.
add_test(NAME static.lint COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/lint.py)
add_test(NAME static.tidy COMMAND ${PROJECT_SOURCE_DIR}/tools/static_checks tidy ${CMAKE_BINARY_DIR})
add_test(NAME static.cppcheck COMMAND ${PROJECT_SOURCE_DIR}/tools/static_checks cppcheck ${CMAKE_BINARY_DIR})
add_test(NAME static.textsInTranscripts COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/texts_in_transcripts.py)
add_test(NAME static.textsInTranscriptsItself COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/texts_in_transcripts_test.py)
add_test(NAME static.messagesPage COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/messages_page.py)
add_test(NAME static.messagesPageItself COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/messages_page_test.py)
add_test(NAME static.manual COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/manual.py)
add_test(NAME static.manualItself COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/manual_test.py)
set_tests_properties(static.lint static.tidy static.cppcheck static.textsInTranscripts static.textsInTranscriptsItself
  static.messagesPage static.messagesPageItself static.manual static.manualItself PROPERTIES LABELS static TIMEOUT 1800)
set_tests_properties(static.tidy PROPERTIES COST 950)  # begun early, since it takes long
