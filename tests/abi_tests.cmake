# The binary contract: what a host that was compiled elsewhere relies on.

# Sees no header of the project, and links to no library of it.
file(GLOB raw_slot_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/abi/raw_slots/*.cc)
add_executable(raw_slot_tests ${raw_slot_sources})
target_compile_options(raw_slot_tests PRIVATE
  $<TARGET_PROPERTY:driver_feature_compile_options,INTERFACE_COMPILE_OPTIONS>)
target_compile_definitions(raw_slot_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>")
set_target_properties(raw_slot_tests PROPERTIES
  ENABLE_EXPORTS ON CXX_VISIBILITY_PRESET default)
driver_feature_batch(raw_slot_tests SIZE 24)
target_link_libraries(raw_slot_tests PRIVATE
  GTest::gmock GTest::gtest GTest::gtest_main ${CMAKE_DL_LIBS})
add_dependencies(raw_slot_tests DriverFeature)
driver_feature_core_test(raw_slot_tests)

# The tables and the file of the built library, and what the headers promise.
driver_feature_test(abi_tests CORE
  GLOB tests/abi/*_test.cc tests/abi/elf_file.cc
  LINK ${CMAKE_DL_LIBS})
target_compile_definitions(abi_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  EXPORTS_LIST="${exports_list}"
  NEEDED_LIST="${CMAKE_CURRENT_SOURCE_DIR}/abi/needed.txt")
add_dependencies(abi_tests DriverFeature)
