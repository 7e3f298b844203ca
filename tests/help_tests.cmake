# Tests of what explains the program: its help, its manual page, and the
# completion of its command line in shells.

driver_feature_test(help_unit_tests
  GLOB programs/driver_feature/completion/*_test.cc programs/driver_feature/manual/*_test.cc
  LINK driver_feature_program driver_feature_manual)
driver_feature_test(help_program_tests
  GLOB tests/help/*_test.cc tests/host/program_runner.cc)
target_compile_definitions(help_program_tests PRIVATE
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  DESCRIPTION_ATTRIBUTES="${CMAKE_CURRENT_LIST_DIR}/description_docs/attributes.txt"
  MANUAL_FOLDER="${PROJECT_BINARY_DIR}/man"
  MANUAL_PAGE="${PROJECT_BINARY_DIR}/man/driver-feature.1"
  OFFICE_ROUTINES="$<TARGET_FILE:office_routines>"
  SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
add_dependencies(help_program_tests driver-feature DriverFeature manual_page office_routines)
