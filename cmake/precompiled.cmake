# What most sources of a host include, read once. The library goes without: it is
# what others build. So do the preset clang and ./dev lint, where each source is
# compiled alone and one that forgets an include is found.

# What lets ccache use a precompiled header: with GCC, which files it was made of;
# with clang, that the time of these files does not matter.
set(DRIVER_FEATURE_PRECOMPILED_OPTIONS
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
  "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")

add_library(host_precompiled OBJECT ${CMAKE_CURRENT_LIST_DIR}/precompiled.cc)
target_link_libraries(host_precompiled PRIVATE driver_feature_compile_options)
target_precompile_headers(host_precompiled PRIVATE
  <algorithm> <array> <charconv> <filesystem> <functional> <map> <memory> <optional> <set> <string>
  <string_view> <utility> <vector>)
set(precompiled_options ${DRIVER_FEATURE_PRECOMPILED_OPTIONS})
target_compile_options(host_precompiled PRIVATE ${precompiled_options})
# GCC 12 sees endless copies in the joining of texts, and with a precompiled header
# it also reports them.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND precompiled_options -Wno-array-bounds -Wno-stringop-overflow)
endif()

# driver_feature_precompile(TARGET...): for libraries of the host's wing.
function(driver_feature_precompile)
  foreach(target ${ARGN})
    target_precompile_headers(${target} REUSE_FROM host_precompiled)
    target_compile_options(${target} PRIVATE ${precompiled_options})
  endforeach()
endfunction()
