# Read by ctest. Registers each suite of the test program NAME, whose file is PROGRAM,
# to be run in the folder FOLDER, with the properties PROPERTIES.

if(NOT EXISTS "${PROGRAM}")
  add_test("${NAME}_NOT_BUILT" "${PROGRAM}")
  return()
endif()

execute_process(
  COMMAND "${PROGRAM}" --gtest_list_tests
  WORKING_DIRECTORY "${FOLDER}"
  OUTPUT_VARIABLE listing
  RESULT_VARIABLE status)
# The line of a suite begins with its name and a dot; those of tests are indented.
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." suites "${listing}")
if(NOT status EQUAL 0 OR NOT suites)
  message(FATAL_ERROR "${PROGRAM} lists no tests: ${status}\n${listing}")
endif()

foreach(suite ${suites})
  string(STRIP "${suite}" suite)
  string(REGEX REPLACE "\\.$" "" suite "${suite}")
  # Two programs may have a suite of the same name.
  add_test("${NAME}.${suite}" "${PROGRAM}" "--gtest_filter=${suite}.*")
  set_tests_properties("${NAME}.${suite}" PROPERTIES
    WORKING_DIRECTORY "${FOLDER}" ${PROPERTIES})
endforeach()
