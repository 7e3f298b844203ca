# The libraries that the host's rooms and the programs use. The plug-in uses none
# of them. debian-packages.txt names the packages.

find_package(CLI11 REQUIRED)
find_package(Cups REQUIRED)
find_package(LibXml2 REQUIRED)
find_package(nlohmann_json REQUIRED)

find_path(EXPECTED_INCLUDE_FOLDER tl/expected.hpp REQUIRED)
add_library(libexpected INTERFACE)
target_include_directories(libexpected SYSTEM INTERFACE ${EXPECTED_INCLUDE_FOLDER})

# Lines at a terminal.
find_path(EDIT_INCLUDE_FOLDER histedit.h REQUIRED)
find_library(EDIT_LIBRARY edit REQUIRED)
