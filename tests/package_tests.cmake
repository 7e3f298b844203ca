# The installed tree: the program in it, hosts built against it, and the
# packages made of it.

find_program(BASH_PROGRAM bash REQUIRED)

add_test(NAME install
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/install_test.sh ${PROJECT_BINARY_DIR}
          ${CMAKE_CXX_COMPILER})

add_test(NAME minimal_host
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/minimal_host_test.sh
          ${PROJECT_SOURCE_DIR}/examples/minimal_host ${PROJECT_BINARY_DIR} ${CMAKE_CXX_COMPILER}
          "${CMAKE_CXX_FLAGS}")
set_tests_properties(install minimal_host PROPERTIES TIMEOUT 300 RESOURCE_LOCK install)
