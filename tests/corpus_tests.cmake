# The comparison of imported PPDs with libcups: its parts, and the built program
# with faults planted in what it compares.

find_program(BASH_PROGRAM bash REQUIRED)
# What stands in the scheduler's chain of filters in front of ours.
find_program(PSTOPS_PROGRAM pstops PATHS /usr/lib/cups/filter /usr/libexec/cups/filter
  NO_DEFAULT_PATH REQUIRED)

driver_feature_test(corpus_unit_tests
  GLOB corpus/*_test.cc LINK ppd_corpus driver_feature_host)
driver_feature_test(corpus_program_tests
  GLOB tests/corpus/*_test.cc tests/corpus/equivalence_fixture.cc tests/host/program_runner.cc
  LINK util)
target_link_libraries(corpus_program_tests PRIVATE nlohmann_json::nlohmann_json)

add_library(corpus_test_routines MODULE corpus/routines.cc)
target_link_libraries(corpus_test_routines PRIVATE driver_feature_compile_options)
target_compile_definitions(corpus_program_tests PRIVATE
  CORPUS_ROUTINES="$<TARGET_FILE:corpus_test_routines>"
  CORPUS_TEST_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}/corpus"
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  PROGRAM_FOLDER="$<TARGET_FILE_DIR:ppd_equivalence>"
  PSTOPS="${PSTOPS_PROGRAM}"
  PPD_EQUIVALENCE="$<TARGET_FILE:ppd_equivalence>")
add_dependencies(corpus_program_tests DriverFeature corpus_test_routines ppd_equivalence)

add_test(NAME corpus_scripts
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_SOURCE_DIR}/corpus/scripts_test.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(corpus_scripts PROPERTIES TIMEOUT 120)
set_property(TEST corpus_scripts APPEND PROPERTY LABELS once)
