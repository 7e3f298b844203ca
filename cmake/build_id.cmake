# DRIVER_FEATURE_BUILD names the state of the sources: the nearest tag and the
# commit, or "unknown" where there is no history, as in an unpacked archive.
# Set in the cache, it is taken as it is. A new commit configures anew; what is
# changed and not committed does not show.

set(DRIVER_FEATURE_BUILD "" CACHE STRING "Name of the build; empty to take it from git")
if(DRIVER_FEATURE_BUILD)
  return()
endif()

# git_output(VARIABLE ARGUMENT...): empty when git or the history is missing.
function(git_output variable)
  execute_process(COMMAND git -C ${PROJECT_SOURCE_DIR} ${ARGN}
    OUTPUT_VARIABLE output ERROR_QUIET RESULT_VARIABLE failed OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(failed)
    set(output "")
  endif()
  set(${variable} "${output}" PARENT_SCOPE)
endfunction()

# The history may be that of a folder around an unpacked archive.
git_output(way_to_top rev-parse --show-cdup)
git_output(history rev-parse --path-format=absolute --git-path logs/HEAD)
git_output(commit describe --tags --always)
if(commit AND way_to_top STREQUAL "")
  set(DRIVER_FEATURE_BUILD ${commit})
  if(EXISTS "${history}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${history})
  endif()
else()
  set(DRIVER_FEATURE_BUILD unknown)
endif()
