# The Debian packages, which CPack makes of the installation's components:
# ./dev package. A tree makes them when it is configured for the prefix /usr,
# because the folder of the libraries is known to the program.
#
# A tree for a foreign architecture makes the packages of the library only. The
# machine does not know which packages a foreign library comes from, so the tree
# is given what the library's package depends on: the same as the package for the
# machine's own architecture, which is built from the same sources.

find_program(DPKG_ARCHITECTURE dpkg-architecture)
if(NOT DPKG_ARCHITECTURE OR NOT CMAKE_INSTALL_PREFIX STREQUAL /usr)
  return()
endif()
set(DRIVER_FEATURE_PACKAGE_FOLDER ${PROJECT_BINARY_DIR}/packages CACHE PATH
    "Where CPack puts the Debian packages")
set(DRIVER_FEATURE_FOREIGN_ARCHITECTURE "" CACHE STRING
    "Debian's name of the packages' architecture; empty for the machine's own")
set(DRIVER_FEATURE_FOREIGN_DEPENDS "" CACHE STRING
    "What the library's package for a foreign architecture depends on")

set(foreign ${DRIVER_FEATURE_FOREIGN_ARCHITECTURE})
set(foreign_option "")
if(foreign)
  set(foreign_option -a${foreign})
endif()
if(foreign AND NOT DRIVER_FEATURE_FOREIGN_DEPENDS)
  message(FATAL_ERROR "The packages for ${foreign} need a list of what the library depends on: "
                      "set DRIVER_FEATURE_FOREIGN_DEPENDS.")
endif()
execute_process(COMMAND ${DPKG_ARCHITECTURE} ${foreign_option} -qDEB_HOST_MULTIARCH
  OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT CMAKE_INSTALL_LIBDIR STREQUAL lib/${folder})
  return()
endif()

# What every Debian package carries.
find_program(GZIP_PROGRAM gzip REQUIRED)
set(changelog ${PROJECT_BINARY_DIR}/changelog.gz)
execute_process(COMMAND ${GZIP_PROGRAM} -9nc ${PROJECT_SOURCE_DIR}/packaging/changelog
  OUTPUT_FILE ${changelog} COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/packaging/changelog)

# Debian wants manual pages compressed, in an installation for its own prefix.
# Only those that this installation has installed: the folder may hold others.
install(CODE [[
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    foreach(page IN LISTS CMAKE_INSTALL_MANIFEST_FILES)
      if(page MATCHES "/man/man[0-9]/[^/]+[.][0-9]$")
        execute_process(COMMAND gzip -9nf "$ENV{DESTDIR}${page}" COMMAND_ERROR_IS_FATAL ANY)
      endif()
    endforeach()
    list(TRANSFORM CMAKE_INSTALL_MANIFEST_FILES APPEND .gz REGEX "/man/man[0-9]/[^/]+[.][0-9]$")
  endif()
]] COMPONENT tools)

# debian_package(COMPONENT NAME SECTION MULTI_ARCH DEPENDENCY SUMMARY LINE...):
# the lines are the long description.
function(debian_package component name section multi_arch dependency summary)
  string(TOUPPER ${component} key)
  list(JOIN ARGN "\n" lines)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${dependency}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_MULTIARCH ${multi_arch} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${lines}" PARENT_SCOPE)
  install(FILES packaging/copyright ${changelog}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()

# Libraries that are loaded when they are needed are in no list of what a file is
# linked with.
set(same_library "libdriverfeature1 (= ${PROJECT_VERSION})")
set(library_depends libxml2)
if(foreign)
  set(library_depends "${DRIVER_FEATURE_FOREIGN_DEPENDS}")
endif()
debian_package(library libdriverfeature1 libs same "${library_depends}"
  "feature model and command generator for printer drivers"
  "A plug-in that holds the print settings of a printer driver and turns them"
  "into PostScript, PJL and job tickets. The settings come from an XML"
  "description."
  ""
  "With the plug-in come development editions of the two host libraries that"
  "it is linked to. They are in a folder of their own, which no loader"
  "searches.")
debian_package(development libdriverfeature-dev libdevel same "${same_library}"
  "feature model for printer drivers - development files"
  "The headers that a host of the plug-in libDriverFeature includes, the files"
  "by which CMake and pkg-config find it, and a small host as an example.")
# Not "foreign": the program loads host routines, and a package that brings some
# must ask for the program of its own architecture. A package that brings
# descriptions only may ask for driver-feature:any.
debian_package(tools driver-feature utils allowed
  "${same_library}, libedit2, libxml2"
  "show, check and emit the settings of a printer driver"
  "A program that loads the plug-in libDriverFeature as a driver's host does:"
  "it reads a feature description, shows and changes settings, and writes"
  "PostScript, PJL and job tickets. Descriptions of two printers are included.")

# Translations beside descriptions are read with the first, and printers announced by
# the second. The live page draws with Ghostscript, and is opened with xdg-open. All
# else works without them.
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS
  "libgettextpo0, avahi-daemon, ghostscript, xdg-utils")

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL library development)
if(foreign)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${foreign})
else()
  list(APPEND CPACK_COMPONENTS_ALL tools)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
endif()
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/multi_arch.cmake)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME driver-feature)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # Each package has its own.
set(CPACK_PACKAGE_DIRECTORY ${DRIVER_FEATURE_PACKAGE_FOLDER})
set(CPACK_PACKAGE_CONTACT "libDriverFeature maintainers <maintainers@libdriverfeature.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
include(CPack)
