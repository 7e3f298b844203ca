# The libraries that the host's rooms and the programs use. The plug-in uses none
# of them. debian-packages.txt names the packages.

# loaded_file_name(VARIABLE LIBRARY): the name, such as libxml2.so.2, that a program
# linked with the library's file would look for. For libraries that are loaded when
# they are needed.
function(loaded_file_name variable library)
  file(REAL_PATH "${library}" file)
  get_filename_component(file "${file}" NAME)
  string(REGEX MATCH "^[^.]+[.]so[.][0-9]+" name "${file}")
  if(NOT name)
    message(FATAL_ERROR "${library} is not a shared library with a version")
  endif()
  set(${variable} "${name}" PARENT_SCOPE)
endfunction()

find_package(CLI11 REQUIRED)
find_package(Cups REQUIRED)
find_package(LibXml2 REQUIRED)
loaded_file_name(LIBXML2_FILE_NAME "${LIBXML2_LIBRARY}")
find_package(nlohmann_json REQUIRED)

find_path(EXPECTED_INCLUDE_FOLDER tl/expected.hpp REQUIRED)
add_library(libexpected INTERFACE)
target_include_directories(libexpected SYSTEM INTERFACE ${EXPECTED_INCLUDE_FOLDER})

find_package(ZLIB REQUIRED)

# The encryption that libcups uses, too.
find_path(GNUTLS_INCLUDE_FOLDER gnutls/gnutls.h REQUIRED)
find_library(GNUTLS_LIBRARY gnutls REQUIRED)
add_library(GnuTls INTERFACE)
target_include_directories(GnuTls SYSTEM INTERFACE ${GNUTLS_INCLUDE_FOLDER})
target_link_libraries(GnuTls INTERFACE ${GNUTLS_LIBRARY})

# Announces printers. libcups uses it, too.
find_path(AVAHI_INCLUDE_FOLDER avahi-client/client.h REQUIRED)
find_library(AVAHI_CLIENT_LIBRARY avahi-client REQUIRED)
find_library(AVAHI_COMMON_LIBRARY avahi-common REQUIRED)
add_library(Avahi INTERFACE)
target_include_directories(Avahi SYSTEM INTERFACE ${AVAHI_INCLUDE_FOLDER})
target_link_libraries(Avahi INTERFACE ${AVAHI_CLIENT_LIBRARY} ${AVAHI_COMMON_LIBRARY})

# Lines at a terminal.
find_path(EDIT_INCLUDE_FOLDER histedit.h REQUIRED)
find_library(EDIT_LIBRARY edit REQUIRED)
loaded_file_name(EDIT_FILE_NAME "${EDIT_LIBRARY}")
