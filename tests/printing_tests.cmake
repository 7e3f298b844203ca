# Tests of the filter for print queues: of its parts, of the built program, and
# of queues of a real print scheduler.

driver_feature_test(filter_unit_tests
  GLOB programs/filter/*_test.cc host/ppd/plain/*_test.cc host/ppd/queue/*_test.cc
  LINK driver_feature_filter Cups::Cups)

driver_feature_test(filter_program_tests
  GLOB tests/printing/*_test.cc tests/printing/filter_fixture.cc tests/printing/queue_fixture.cc
       tests/host/program_runner.cc
  LINK Cups::Cups)
target_compile_options(filter_program_tests PRIVATE -Wno-deprecated-declarations)
target_compile_definitions(filter_program_tests PRIVATE
  DRIVER_FEATURE_FILTER="$<TARGET_FILE:driver-feature-filter>"
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  PSTOPS="${PSTOPS_PROGRAM}"
  OFFICE_DESCRIPTION="${PROJECT_SOURCE_DIR}/descriptions/office_laser.xml"
  OFFICE_ROUTINES="$<TARGET_FILE:office_routines>"
  ROUTINES_LIBRARY="$<TARGET_FILE:host_test_routines>"
  PRINTING_FOLDER="${CMAKE_CURRENT_LIST_DIR}/printing")
add_dependencies(filter_program_tests
  driver-feature driver-feature-filter DriverFeature host_test_routines office_routines)

# What libcups writes of the PPDs of queues, beside those of the printers.
add_executable(queue_media printing/queue_media_main.cc)
target_link_libraries(queue_media PRIVATE driver_feature_compile_options Cups::Cups)
target_compile_options(queue_media PRIVATE -Wno-deprecated-declarations)

# What libcups finds in the PPDs of queues, beside those of the printers.
add_executable(queue_rules printing/queue_rules_main.cc)
target_link_libraries(queue_rules PRIVATE driver_feature_compile_options Cups::Cups)
target_compile_options(queue_rules PRIVATE -Wno-deprecated-declarations)
driver_feature_plain(queue_media queue_rules)
add_test(NAME queue_rules
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/queue_rules_test.sh
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})

add_test(NAME queue_ppds_conform
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/cupstestppd_test.sh
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
set_tests_properties(queue_ppds_conform PROPERTIES TIMEOUT 120)

# The scheduler is a program of the machine, which loads nothing of another
# kind; and what the address checks would find, the tests above find faster.
if(CMAKE_SIZEOF_VOID_P EQUAL 8 AND NOT CMAKE_CXX_FLAGS MATCHES "sanitize")
  add_test(NAME print_queue
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/print_queue_test.sh
            ${PROJECT_BINARY_DIR})
  add_test(NAME printing_examples
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/document_test.sh
            ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
  add_test(NAME page_accounting
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/page_accounting_test.sh
            ${PROJECT_BINARY_DIR})
  set_tests_properties(print_queue printing_examples PROPERTIES TIMEOUT 120)
  set_tests_properties(page_accounting PROPERTIES TIMEOUT 300)
endif()
