# PDFs of all approved reports, as other programs read them.
add_executable(report_to_pdf ${CMAKE_CURRENT_LIST_DIR}/report_to_pdf.cpp)
target_link_libraries(report_to_pdf PRIVATE quillon_pages)
add_test(NAME pages.pdf COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/pdf_pages.py $<TARGET_FILE:report_to_pdf>
  ${CMAKE_CURRENT_SOURCE_DIR}/reports)
set_tests_properties(pages.pdf PROPERTIES TIMEOUT 600)
# quillon-pages.exe on printers of a spooler of the tests' own.
add_test(NAME windows.pages_print COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/print_wine.py ${CMAKE_BINARY_DIR}/../windows
  ${CMAKE_CURRENT_SOURCE_DIR}/reports)
set_tests_properties(windows.pages_print PROPERTIES LABELS windows RESOURCE_LOCK wine_beside COST 800 TIMEOUT 900)
add_test(NAME windows.pages_dialogs COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/dialog_wine.py ${CMAKE_BINARY_DIR}/../windows)
# Its keys go where the focus is, which a busy machine moves late: it has the machine to itself for its ten seconds.
set_tests_properties(windows.pages_dialogs PROPERTIES LABELS windows RESOURCE_LOCK wine_beside RUN_SERIAL ON COST 800 TIMEOUT 600)
# The window, worked as a user works it.
add_test(NAME windows.pages_window COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/window_wine.py ${CMAKE_BINARY_DIR}/../windows
  ${CMAKE_CURRENT_SOURCE_DIR}/reports)
set_tests_properties(windows.pages_window PROPERTIES LABELS windows RESOURCE_LOCK wine_beside COST 800 TIMEOUT 600)
