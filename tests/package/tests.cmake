# A release as ./package makes it, signed with a certificate of the moment, and its life under Wine. The programs are built by the
# presets windows and package, beside this build folder.
set(package_release ${CMAKE_BINARY_DIR}/package)
add_test(NAME package.release COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/release_test.py
  --build ${CMAKE_BINARY_DIR}/../windows --out ${package_release})
set_tests_properties(package.release PROPERTIES LABELS package FIXTURES_SETUP package_release TIMEOUT 600)
add_test(NAME windows.package COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/package_wine.py
  --build ${CMAKE_BINARY_DIR}/../windows --release ${package_release})
set_tests_properties(windows.package PROPERTIES LABELS "windows;package" FIXTURES_REQUIRED package_release
  COST 700 TIMEOUT 600)
