# Tests that run the documents for authors of descriptions.

set(document_runner ${CMAKE_CURRENT_LIST_DIR}/description_docs/run_document.sh)
separate_arguments(document_compiler UNIX_COMMAND
  "${CMAKE_CXX_COMPILER} ${CMAKE_CXX_FLAGS} ${CMAKE_SHARED_LINKER_FLAGS}")

add_test(NAME description_format_examples
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/description-format.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME description_format_attributes
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/description_docs/attributes_test.sh
          ${CMAKE_CURRENT_LIST_DIR}/description_docs/elements.txt
          ${CMAKE_CURRENT_LIST_DIR}/description_docs/attributes.txt
          ${PROJECT_SOURCE_DIR}/docs/description-format.md)
add_test(NAME description_format_faults
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/description_docs/faults_test.sh
          ${CMAKE_CURRENT_LIST_DIR}/description_docs/faults.txt
          ${PROJECT_SOURCE_DIR}/docs/description-format.md $<TARGET_FILE:driver-feature>)
add_test(NAME tutorial
  COMMAND ${document_runner} grow ${PROJECT_SOURCE_DIR}/docs/tutorial.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME cookbook
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/cookbook.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME coming_from_ppd
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/coming-from-ppd.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME security_examples
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/security.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME checking
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/checking.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME driver_tests_document
  COMMAND ${document_runner} sessions ${PROJECT_SOURCE_DIR}/docs/driver-tests.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME rules_texts_presets
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/rules-texts-presets.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
add_test(NAME import_examples
  COMMAND ${document_runner} wrap ${PROJECT_SOURCE_DIR}/docs/import.md
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${document_compiler})
set_property(TEST 
  description_format_examples description_format_attributes description_format_faults tutorial
  cookbook checking coming_from_ppd security_examples driver_tests_document
  import_examples rules_texts_presets APPEND PROPERTY LABELS once)
