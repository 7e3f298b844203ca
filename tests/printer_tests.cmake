# Tests of the printer program: of its parts, and of the built program with clients
# of others.

driver_feature_test(server_tests GLOB host/server/*_test.cc LINK host_server)

driver_feature_test(printer_unit_tests GLOB programs/printer/*_test.cc
  LINK driver_feature_printer ZLIB::ZLIB)
target_compile_definitions(printer_unit_tests PRIVATE
  OFFICE_DESCRIPTION="${PROJECT_SOURCE_DIR}/descriptions/office_laser.xml")

# printer_test(NAME SCRIPT [ARGUMENT...])
function(printer_test name script)
  add_test(NAME ${name}
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/printing/${script}
            ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${ARGN})
  set_tests_properties(${name} PROPERTIES TIMEOUT 120)
endfunction()

printer_test(printer_conformance printer_conformance_test.sh)
printer_test(printer_everywhere printer_everywhere_test.sh)
printer_test(printer_clients printer_clients_test.sh)
printer_test(printer_setting printer_setting_test.sh)
printer_test(printer_device printer_device_test.sh)
printer_test(printer_killed printer_kill_test.sh 6)
printer_test(printer_mutated printer_mutation_test.sh 2)
# Where addresses are checked, memory that is given back is kept for a while.
if(NOT CMAKE_CXX_FLAGS MATCHES "sanitize")
  printer_test(printer_memory printer_memory_test.sh 60 4)
endif()
printer_test(printer_conflicts printer_conflicts_test.sh 100
  ${CMAKE_CURRENT_LIST_DIR}/printing/rules.ppd)
file(GLOB printing_ppds CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/printing/*.ppd)
printer_test(printer_imports printer_imports_test.sh 2
  ${printing_ppds} ${CMAKE_CURRENT_LIST_DIR}/printing/trial/floor.ppd)
# The scheduler is a program of the machine, which loads nothing of another kind.
if(CMAKE_SIZEOF_VOID_P EQUAL 8 AND NOT CMAKE_CXX_FLAGS MATCHES "sanitize")
  printer_test(printer_queue printer_queue_test.sh)
  printer_test(printer_announced printer_announced_test.sh)
  set_tests_properties(printer_announced PROPERTIES SKIP_RETURN_CODE 77)
  printer_test(printer_trial printer_trial_test.sh 15 18)
endif()
