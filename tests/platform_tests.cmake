# Tests of the development editions of the host's two libraries.

driver_feature_test(platform_tests CORE
  GLOB platform/common_api/*_test.cc platform/xml_parser/*_test.cc
  LINK LibXml2::LibXml2 ${CMAKE_DL_LIBS})

add_library(platform_test_library MODULE ${PROJECT_SOURCE_DIR}/platform/test_library/routine.cc)
target_link_libraries(platform_test_library PRIVATE driver_feature_compile_options)
add_dependencies(platform_tests platform_test_library)
target_compile_definitions(platform_tests PRIVATE
  LIBXML2_FILE_NAME="${LIBXML2_FILE_NAME}"
  PLATFORM_TEST_LIBRARY="$<TARGET_FILE:platform_test_library>"
  PLATFORM_COMMON_API="$<TARGET_FILE:common_api>"
  PLATFORM_XML_PARSER="$<TARGET_FILE:xml_parser>"
  TICKET_FORMAT_PAGE="${PROJECT_SOURCE_DIR}/docs/ticket-format.md")
