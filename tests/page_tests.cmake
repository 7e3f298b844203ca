# Tests of the live page.

driver_feature_test(page_unit_tests
  GLOB host/page/*_test.cc tests/page_process/*.cc LINK host_page nlohmann_json::nlohmann_json)
target_compile_definitions(page_unit_tests PRIVATE
  DESCRIPTIONS="${PROJECT_SOURCE_DIR}/descriptions"
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
  OFFICE_ROUTINES="$<TARGET_FILE:office_routines>"
  ROUTINES_LIBRARY="$<TARGET_FILE:host_test_routines>")
add_dependencies(page_unit_tests
  DriverFeature driver-feature host_test_routines office_routines)

# Its server, with a process that plays the description's part.
driver_feature_test(page_server_tests
  GLOB host/page_server/*_test.cc LINK host_page_server)

# The programs from the outside.
foreach(name preview printer_page)
  add_test(NAME page_${name}
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/page_server/${name}_test.sh
            ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} $<TARGET_FILE:host_test_routines>)
  set_tests_properties(page_${name} PROPERTIES TIMEOUT 120)
endforeach()
