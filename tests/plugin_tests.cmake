# The built library as a host sees it: loaded with dlopen, with none of its
# objects or classes linked in.

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(exports_list ${CMAKE_CURRENT_SOURCE_DIR}/plugin/exports.i386.txt)
else()
  set(exports_list ${CMAKE_CURRENT_SOURCE_DIR}/plugin/exports.x86_64.txt)
endif()

driver_feature_test(plugin_tests CORE
  GLOB tests/plugin/*_test.cc
  LINK ${CMAKE_DL_LIBS})
target_compile_definitions(plugin_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  EXPORTS_LIST="${exports_list}"
  IMPORTS_LIST="${CMAKE_CURRENT_SOURCE_DIR}/plugin/platform_imports.txt"
  NM_PROGRAM="${CMAKE_NM}")

# Defines platform routines itself, which would be in the way of other tests.
driver_feature_test(plugin_interposition_tests CORE
  GLOB tests/plugin/interposition/*_test.cc
  LINK ${CMAKE_DL_LIBS})
target_compile_definitions(plugin_interposition_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>")

foreach(program plugin_tests plugin_interposition_tests)
  add_dependencies(${program} DriverFeature)
endforeach()
