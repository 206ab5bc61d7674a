# The real program under Wine. It is built by the windows preset, beside this build folder.
get_filename_component(windows_build ${CMAKE_BINARY_DIR}/../windows ABSOLUTE)
add_test(NAME windows.scripts COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/run_wine.py
  --build ${windows_build} --all ${CMAKE_CURRENT_SOURCE_DIR}/scripts)
add_test(NAME windows.only COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/only_windows.py --build ${windows_build})
# A desktop has one screen and one keyboard: never two at a time. The scripts have one, all others share a second.
set_tests_properties(windows.scripts PROPERTIES LABELS windows RESOURCE_LOCK wine TIMEOUT 1800)
set_tests_properties(windows.only PROPERTIES LABELS windows RESOURCE_LOCK wine_beside TIMEOUT 1800)
# The longest first, so that the short ones fill in beside them.
set_tests_properties(windows.scripts PROPERTIES COST 1000)
set_tests_properties(windows.only PROPERTIES COST 900)
