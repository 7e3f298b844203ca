# Where an installation puts things, relative to its prefix.

# The libraries have a folder of their own: the plug-in is loaded by its path,
# and the development editions carry the names of the host's libraries, which
# the system's loader must not find instead.
set(DRIVER_FEATURE_LIBRARY_FOLDER ${CMAKE_INSTALL_LIBDIR}/driver-feature)

# The installed tree can be moved only when its parts are found from each other.
foreach(folder CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_BINDIR CMAKE_INSTALL_INCLUDEDIR)
  if(IS_ABSOLUTE "${${folder}}")
    message(FATAL_ERROR "${folder} is the absolute path ${${folder}}; give one relative to "
                        "CMAKE_INSTALL_PREFIX.")
  endif()
endforeach()

# Rules that name no component are the tools'.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME tools)

# Programs of the build tree find its libraries relative to their own place, too,
# so that no byte of them depends on where the tree is.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
