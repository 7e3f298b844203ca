# Tests of the command "import": of its parts, and of the built program, whose
# descriptions are compared with what libcups itself writes.

driver_feature_test(ppd_unit_tests GLOB host/ppd/*_test.cc host/ppd/custom/*_test.cc host/ppd/import/*_test.cc
       programs/driver_feature/commands/*_test.cc
  LINK driver_feature_program Cups::Cups)
driver_feature_test(ppd_program_tests
  GLOB tests/ppd/*.cc tests/host/program_runner.cc
  LINK Cups::Cups util)
foreach(program ppd_unit_tests ppd_program_tests)
  # libcups declares the PPD interface out of date.
  target_compile_options(${program} PRIVATE -Wno-deprecated-declarations)
endforeach()
target_compile_definitions(ppd_unit_tests PRIVATE PPD_ROUTINES="$<TARGET_FILE:ppd_routines>")
target_link_libraries(ppd_unit_tests PRIVATE ${CMAKE_DL_LIBS})
add_dependencies(ppd_unit_tests ppd_routines)
target_compile_definitions(ppd_program_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  PPD_FILES="${CMAKE_CURRENT_SOURCE_DIR}/ppd/files")
add_dependencies(ppd_program_tests driver-feature DriverFeature)

# Instructions are counted where memcheck runs, too.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release"
   AND CMAKE_SIZEOF_VOID_P EQUAL 8)
  add_test(NAME import_growth
    COMMAND python3 -B ${CMAKE_CURRENT_LIST_DIR}/ppd/import_growth.py $<TARGET_FILE:driver-feature>)
  set_property(TEST import_growth PROPERTY TIMEOUT 120)
endif()
