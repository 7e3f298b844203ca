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
  LINKED_ROUTINES="$<TARGET_FILE:plugin_linked_routines>"
  NM_PROGRAM="${CMAKE_NM}"
  UNLINKED_ROUTINES="$<TARGET_FILE:plugin_unlinked_routines>")

# Libraries of routines as the authors of descriptions build them.
foreach(kind linked unlinked)
  add_library(plugin_${kind}_routines MODULE plugin/libraries/set_routine.cc)
  target_link_libraries(plugin_${kind}_routines PRIVATE driver_feature_compile_options)
  add_dependencies(plugin_tests plugin_${kind}_routines)
endforeach()
target_link_libraries(plugin_linked_routines PRIVATE DriverFeature)
# Nothing says where the plug-in is: the one that is loaded must be found.
set_target_properties(plugin_linked_routines PROPERTIES SKIP_BUILD_RPATH ON)

# Defines platform routines itself, which would be in the way of other tests.
driver_feature_test(plugin_interposition_tests CORE
  GLOB tests/plugin/interposition/*_test.cc
  LINK ${CMAKE_DL_LIBS})
target_compile_definitions(plugin_interposition_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>")

foreach(program plugin_tests plugin_interposition_tests)
  add_dependencies(${program} DriverFeature)
endforeach()
