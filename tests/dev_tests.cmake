# The task runner and the continuous-integration script, run with stand-ins.

find_program(BASH_PROGRAM bash REQUIRED)
add_test(NAME dev_script
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/dev_test.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(dev_script PROPERTIES TIMEOUT 120)

add_test(NAME i386_root_script
  COMMAND ${BASH_PROGRAM} ${CMAKE_CURRENT_LIST_DIR}/i386_root_test.sh ${PROJECT_SOURCE_DIR})
set_property(TEST dev_script i386_root_script APPEND PROPERTY LABELS once)
