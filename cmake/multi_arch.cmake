# Run by CPack when the packages are built: writes the field Multi-Arch, which
# CPack itself does since CMake 3.31 only. The variables that it reads are named
# as they are there. File times come from SOURCE_DATE_EPOCH, as CPack's do.

if(NOT CMAKE_VERSION VERSION_LESS 3.31)
  return()
endif()
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  cmake_path(GET package FILENAME file)
  set(kind "")
  foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} key)
    if(file MATCHES "^${CPACK_DEBIAN_${key}_PACKAGE_NAME}_")
      set(kind ${CPACK_DEBIAN_${key}_PACKAGE_MULTIARCH})
    endif()
  endforeach()
  if(NOT kind)
    message(FATAL_ERROR "${file} is the package of no component.")
  endif()

  set(unpacked ${package}.unpacked)
  file(REMOVE_RECURSE ${unpacked})
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${unpacked}
    COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${unpacked}/DEBIAN/control control)
  file(WRITE ${unpacked}/DEBIAN/control "Multi-Arch: ${kind}\n${control}")
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${unpacked} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${unpacked})
endforeach()
