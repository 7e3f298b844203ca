# Tests of the shipped descriptions and their routines: in the process, and
# with the built program as a child process.

find_package(nlohmann_json REQUIRED)
find_program(GHOSTSCRIPT gs REQUIRED)

add_library(descriptions_test_text OBJECT ${PROJECT_SOURCE_DIR}/descriptions/printer_text.cc)
target_link_libraries(descriptions_test_text PUBLIC driver_feature_compile_options)

driver_feature_test(descriptions_tests
  GLOB descriptions/*_test.cc LINK descriptions_test_text driver_feature_program)
driver_feature_test(golden_tests FIRST
  GLOB tests/golden/*.cc tests/host/program_runner.cc)
target_link_libraries(golden_tests PRIVATE nlohmann_json::nlohmann_json)
# GCC 12 warns of the inside of std::regex when it compiles run-time checks in.
target_compile_options(golden_tests PRIVATE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)

foreach(program descriptions_tests golden_tests)
  target_compile_definitions(${program} PRIVATE
    DESCRIPTIONS_FOLDER="${PROJECT_SOURCE_DIR}/descriptions"
    DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
    DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>"
    GHOSTSCRIPT="${GHOSTSCRIPT}"
    GOLDEN_FOLDER="${CMAKE_CURRENT_LIST_DIR}/golden"
    ROUTINES_LIBRARY="$<TARGET_FILE:office_routines>")
  add_dependencies(${program} driver-feature DriverFeature office_routines)
endforeach()

add_test(NAME demo
  COMMAND ${PROJECT_SOURCE_DIR}/descriptions/demo.sh ${PROJECT_BINARY_DIR})

foreach(printer label_printer office_laser)
  add_test(NAME descriptions_cases_${printer}
    COMMAND driver-feature test --callbacks $<TARGET_FILE:office_routines>
            ${PROJECT_SOURCE_DIR}/descriptions/cases/${printer})
endforeach()

add_test(NAME descriptions_check
  COMMAND driver-feature check --strict --callbacks $<TARGET_FILE:office_routines>
          ${PROJECT_SOURCE_DIR}/descriptions/label_printer.xml
          ${PROJECT_SOURCE_DIR}/descriptions/office_laser.xml)
