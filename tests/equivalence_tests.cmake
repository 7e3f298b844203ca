# The comparison of imported PPDs with libcups: its parts, and the built program
# with faults planted in what it compares.

find_program(BASH_PROGRAM bash REQUIRED)
# The filter before ours in the scheduler's chain.
find_program(PSTOPS_PROGRAM pstops PATHS /usr/lib/cups/filter /usr/libexec/cups/filter
  NO_DEFAULT_PATH REQUIRED)

driver_feature_test(equivalence_unit_tests
  GLOB equivalence/*_test.cc LINK equivalence_parts)
driver_feature_test(equivalence_program_tests
  GLOB tests/equivalence/*_test.cc tests/equivalence/equivalence_fixture.cc tests/host/program_runner.cc
  LINK util)
target_link_libraries(equivalence_program_tests PRIVATE nlohmann_json::nlohmann_json)

add_library(equivalence_test_routines MODULE equivalence/routines.cc)
target_link_libraries(equivalence_test_routines PRIVATE driver_feature_compile_options)
target_compile_definitions(equivalence_program_tests PRIVATE
  EQUIVALENCE_ROUTINES="$<TARGET_FILE:equivalence_test_routines>"
  EQUIVALENCE_TEST_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}/equivalence"
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  PROGRAM_FOLDER="$<TARGET_FILE_DIR:ppd_equivalence>"
  PSTOPS="${PSTOPS_PROGRAM}"
  PPD_EQUIVALENCE="$<TARGET_FILE:ppd_equivalence>")
add_dependencies(equivalence_program_tests DriverFeature equivalence_test_routines ppd_equivalence)

add_test(NAME equivalence_scripts
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_SOURCE_DIR}/equivalence/scripts_test.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(equivalence_scripts PROPERTIES TIMEOUT 120)
set_property(TEST equivalence_scripts APPEND PROPERTY LABELS once)
