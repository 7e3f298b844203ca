# The binary interface, described by a tool and compared with what is
# committed. GCC's optimised builds are described; others differ in details
# that no host sees. ./dev abi compares both architectures, and tests that the
# comparison finds changes.

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
  find_program(ABIDW_PROGRAM abidw REQUIRED)
  find_program(ABIDIFF_PROGRAM abidiff REQUIRED)

  add_library(host_view SHARED abi/host_view.cc)
  target_link_libraries(host_view PRIVATE driver_feature_compile_options)
  target_include_directories(host_view PRIVATE
    ${PROJECT_SOURCE_DIR}/platform/common_api ${PROJECT_SOURCE_DIR}/platform/xml_parser)
  # Types that are only pointed to are described too.
  target_compile_options(host_view PRIVATE
    -g -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -femit-class-debug-always)

  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(abi_baseline ${CMAKE_CURRENT_SOURCE_DIR}/abi/baseline/i386)
  else()
    set(abi_baseline ${CMAKE_CURRENT_SOURCE_DIR}/abi/baseline/x86_64)
  endif()
  add_test(NAME abi_baseline
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/abi/compare.sh ${PROJECT_BINARY_DIR} ${abi_baseline})
  set_property(TEST abi_baseline PROPERTY LABELS core)
  add_dependencies(core_tests host_view)
endif()
