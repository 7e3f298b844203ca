# The pages on writing a host: their tables are complete,
# and the program in them is built and prints what they say.

set(HOST_INTERFACE_PAGE ${PROJECT_SOURCE_DIR}/docs/host-interface.md)
set(HOST_INTERFACE_FOLDER ${CMAKE_CURRENT_LIST_DIR}/host_interface_doc)
find_program(BASH_PROGRAM bash REQUIRED)
find_program(AWK_PROGRAM awk REQUIRED)

# host_interface_blocks(LANGUAGE FILE)
function(host_interface_blocks language file)
  add_custom_command(
    OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${file}
    COMMAND ${BASH_PROGRAM} ${HOST_INTERFACE_FOLDER}/extract_blocks.sh ${language}
            ${HOST_INTERFACE_PAGE} > ${CMAKE_CURRENT_BINARY_DIR}/${file}
    DEPENDS ${HOST_INTERFACE_PAGE} ${HOST_INTERFACE_FOLDER}/extract_blocks.sh
    VERBATIM)
endfunction()
host_interface_blocks(cpp host_interface_examples.cc)
host_interface_blocks(text host_interface_examples.txt)

add_executable(host_interface_examples
  ${CMAKE_CURRENT_BINARY_DIR}/host_interface_examples.cc
  ${CMAKE_CURRENT_BINARY_DIR}/host_interface_examples.txt)
# Routines that the description names are found in the program.
set_target_properties(host_interface_examples PROPERTIES
  ENABLE_EXPORTS ON CXX_VISIBILITY_PRESET default)
target_include_directories(host_interface_examples PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(host_interface_examples
  PRIVATE driver_feature_compile_options common_api xml_parser ${CMAKE_DL_LIBS})

driver_feature_test(host_interface_doc_tests GLOB tests/host_interface_doc/*_test.cc tests/host_interface_doc/markdown.cc
  LINK ${CMAKE_DL_LIBS})
target_compile_definitions(host_interface_doc_tests PRIVATE
  DOCS_FOLDER="${PROJECT_SOURCE_DIR}/docs"
  EXPORTS_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}/plugin"
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  EXAMPLES_SOURCE="${CMAKE_CURRENT_BINARY_DIR}/host_interface_examples.cc"
  EXAMPLES_PROGRAM="$<TARGET_FILE:host_interface_examples>"
  EXAMPLES_OUTPUT="${CMAKE_CURRENT_BINARY_DIR}/host_interface_examples.txt")
add_dependencies(host_interface_doc_tests host_interface_examples DriverFeature)
