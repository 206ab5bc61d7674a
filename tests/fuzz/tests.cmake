# Each fuzz target for a few seconds over its stored corpus and everything that was ever found. The targets are built by the
# preset fuzz, beside this build.
set(fuzz_build ${PROJECT_SOURCE_DIR}/build/fuzz)
file(GLOB fuzz_targets CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/*_target.cpp)
foreach(target ${fuzz_targets})
  get_filename_component(name ${target} NAME_WE)
  string(REPLACE "_target" "" name ${name})
  add_test(NAME fuzz.${name} COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/fuzz/run --seconds 3 ${name})
  set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz TIMEOUT 120)
endforeach()
