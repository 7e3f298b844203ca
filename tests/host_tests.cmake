# Tests of the program driver-feature: of its parts, and of the built program
# as a child process.

driver_feature_test(host_unit_tests
  GLOB host/base/*_test.cc host/description/*_test.cc host/session/*_test.cc
       host/settings/*_test.cc host/check/*_test.cc programs/driver_feature/*_test.cc
  LINK driver_feature_program)
target_link_libraries(host_unit_tests PRIVATE LibXml2::LibXml2)
target_compile_definitions(host_unit_tests PRIVATE
  DESCRIPTION_SCHEMA="${PROJECT_SOURCE_DIR}/descriptions/feature_description.rng")
driver_feature_test(host_shell_tests GLOB programs/driver_feature/shell/*_test.cc LINK driver_feature_program)
driver_feature_test(host_program_tests FIRST
  GLOB tests/host/*_test.cc tests/host/check_*_rows.cc tests/host/program_runner.cc
       tests/host/shell_fixture.cc
  LINK util)
target_link_libraries(host_program_tests PRIVATE nlohmann_json::nlohmann_json)
# GCC 12 warns of the inside of std::regex when it compiles run-time checks in.
target_compile_options(host_program_tests PRIVATE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)

# Libraries that the tests load: routines that descriptions name, and two that
# are not a feature library of the right version.
add_library(host_test_routines MODULE
  host/libraries/routines.cc host/libraries/sort_routines.cc)
target_link_libraries(host_test_routines PRIVATE driver_feature_compile_options common_api)
target_compile_definitions(host_test_routines PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>")
add_library(host_test_no_plugin MODULE host/libraries/no_plugin.cc)
add_library(host_test_other_plugin MODULE host/libraries/other_plugin.cc)
target_link_libraries(host_test_other_plugin PRIVATE driver_feature_compile_options)

foreach(program host_unit_tests host_shell_tests host_program_tests)
  target_compile_definitions(${program} PRIVATE
    DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
    NO_PLUGIN_LIBRARY="$<TARGET_FILE:host_test_no_plugin>"
    OTHER_PLUGIN_LIBRARY="$<TARGET_FILE:host_test_other_plugin>"
    ROUTINES_LIBRARY="$<TARGET_FILE:host_test_routines>")
  add_dependencies(${program}
    DriverFeature host_test_no_plugin host_test_other_plugin host_test_routines)
endforeach()
target_compile_definitions(host_program_tests PRIVATE
  EDIT_FILE_NAME="${EDIT_FILE_NAME}" LIBXML2_FILE_NAME="${LIBXML2_FILE_NAME}"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  DRIVER_FEATURE_PROGRAM_VERSION="${PROJECT_VERSION}")
add_dependencies(host_program_tests driver-feature)

# What rules allow and forbid, judged by other solvers, too.
find_program(Z3_PROGRAM z3 REQUIRED)
find_program(MINISAT_PROGRAM minisat REQUIRED)
add_library(rule_judges STATIC support/smt_judge.cc)
target_link_libraries(rule_judges PUBLIC test_support host_rules)
driver_feature_test(host_rules_tests GLOB host/rules/*_test.cc LINK rule_judges host_rules)
target_compile_definitions(host_rules_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>" Z3_PROGRAM="${Z3_PROGRAM}"
  MINISAT_PROGRAM="${MINISAT_PROGRAM}")
add_dependencies(host_rules_tests DriverFeature)
