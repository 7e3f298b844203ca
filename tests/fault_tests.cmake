# Faults: memory that runs out, routines of the host that misbehave, and
# descriptions nested too deep.

driver_feature_test(fault_tests CORE
  GLOB tests/fault/*_test.cc tests/fault/failing_memory.cc tests/fault/faulty_host.cc
  LINK LibXml2::LibXml2 ${CMAKE_DL_LIBS})
target_compile_definitions(fault_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>")
add_dependencies(fault_tests DriverFeature)

# The program: its files when memory runs out, in this process with main()
# under another name, and deep descriptions with the built program.
driver_feature_test(host_fault_tests
  GLOB tests/fault/host/*_test.cc tests/fault/failing_memory.cc tests/host/program_runner.cc
       programs/driver_feature/main.cc
  LINK driver_feature_program LibXml2::LibXml2)
set_source_files_properties(${PROJECT_SOURCE_DIR}/programs/driver_feature/main.cc PROPERTIES
  COMPILE_DEFINITIONS main=driverFeatureMain SKIP_PRECOMPILE_HEADERS ON)
target_compile_definitions(host_fault_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  DRIVER_FEATURE_PROGRAM="$<TARGET_FILE:driver-feature>")
add_dependencies(host_fault_tests driver-feature DriverFeature)

# Memcheck knows nothing of the compiler's own checks, and one build is enough.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release"
   AND CMAKE_SIZEOF_VOID_P EQUAL 8)
  find_program(BASH_PROGRAM bash REQUIRED)
  add_test(NAME memcheck
    COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/fault/memcheck.sh ${PROJECT_BINARY_DIR}
            ${PROJECT_SOURCE_DIR} $<TARGET_FILE:office_routines>)
  set_tests_properties(memcheck PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)
endif()
