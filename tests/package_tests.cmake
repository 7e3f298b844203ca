# The installed tree: the program in it, hosts built against it, and the
# packages made of it.

find_program(BASH_PROGRAM bash REQUIRED)

add_test(NAME install
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/install_test.sh ${PROJECT_BINARY_DIR}
          ${CMAKE_CXX_COMPILER})

add_test(NAME minimal_host
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/minimal_host_test.sh
          ${PROJECT_SOURCE_DIR}/examples/minimal_host ${PROJECT_BINARY_DIR} ${CMAKE_CXX_COMPILER}
          "${CMAKE_CXX_FLAGS}" "${CMAKE_EXE_LINKER_FLAGS}")

add_test(NAME new_driver
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/new_driver_test.sh ${PROJECT_BINARY_DIR}
          ${CMAKE_CXX_COMPILER} "${CMAKE_CXX_FLAGS}" "${CMAKE_SHARED_LINKER_FLAGS}")

# Libraries that the build takes from a folder of its own are looked for there
# by installed programs too.
list(JOIN CMAKE_BUILD_RPATH ":" foreign_libraries)
set_tests_properties(install minimal_host new_driver PROPERTIES
  TIMEOUT 300 RESOURCE_LOCK install ENVIRONMENT "LD_LIBRARY_PATH=${foreign_libraries}")

add_test(NAME build_id
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/build_id_test.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(build_id PROPERTIES TIMEOUT 120)
set_property(TEST install build_id new_driver APPEND PROPERTY LABELS once)
set_property(TEST minimal_host APPEND PROPERTY LABELS core)
