# The manual pages, of which the first is written by a program that knows the
# arguments of driver-feature, and the completion functions for shells, which
# ask the program itself.

set(manual_page ${PROJECT_BINARY_DIR}/man/driver-feature.1)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man)
add_custom_command(
  OUTPUT ${manual_page}
  COMMAND write_manual ${PROJECT_SOURCE_DIR}/docs/man/driver-feature.1.in ${manual_page}
          ${PROJECT_VERSION}
  DEPENDS write_manual ${PROJECT_SOURCE_DIR}/docs/man/driver-feature.1.in
  COMMENT "Writing the manual page"
  VERBATIM)
add_custom_target(manual_page ALL DEPENDS ${manual_page})

install(FILES ${manual_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)

# The pages for the form of descriptions and of settings files.
set(VERSION ${PROJECT_VERSION})
foreach(form description settings)
  set(page driver-feature-${form}.5)
  configure_file(docs/man/${page}.in ${PROJECT_BINARY_DIR}/man/${page} @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/man/${page}
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man5 COMPONENT tools)
endforeach()

install(FILES completions/driver-feature.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
# The folder in which zsh looks below /usr/local; packages of Debian have
# another one.
set(zsh_folder site-functions)
if(CMAKE_INSTALL_PREFIX STREQUAL /usr AND EXISTS /etc/debian_version)
  set(zsh_folder vendor-completions)
endif()
install(FILES completions/_driver-feature
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${zsh_folder} COMPONENT tools)
