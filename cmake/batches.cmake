# Most of the time that compiling takes is for the headers: several sources of a
# library are compiled as one. What they define for themselves, in namespaces
# without a name, has different names within a library. The preset clang and the
# compile database for clang-tidy have each source alone, so that a source which
# forgets an include is found.
option(DRIVER_FEATURE_BATCHES "Compile several sources of a library as one" ON)

# driver_feature_batch(TARGET... [SIZE COUNT]): COUNT sources at once, 17 unless given.
function(driver_feature_batch)
  cmake_parse_arguments(ARG "" "SIZE" "" ${ARGN})
  if(NOT ARG_SIZE)
    set(ARG_SIZE 17)
  endif()
  set_target_properties(${ARG_UNPARSED_ARGUMENTS} PROPERTIES
    UNITY_BUILD ${DRIVER_FEATURE_BATCHES} UNITY_BUILD_BATCH_SIZE ${ARG_SIZE})
endfunction()
