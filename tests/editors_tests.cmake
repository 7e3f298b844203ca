# Tests of what editors need: the grammar, and the language server with editors
# that are not ours.

find_program(EMACS emacs REQUIRED)
find_program(NEOVIM nvim REQUIRED)
find_program(RNC2RNG rnc2rng REQUIRED)

add_test(NAME grammar
  COMMAND python3 ${CMAKE_CURRENT_LIST_DIR}/description_docs/grammar_test.py
          ${PROJECT_SOURCE_DIR}/descriptions ${PROJECT_SOURCE_DIR}/docs/description-format.md
          ${RNC2RNG})
add_test(NAME emacs
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/editors/emacs_test.sh ${EMACS}
          ${PROJECT_SOURCE_DIR}/descriptions ${PROJECT_SOURCE_DIR}/docs/editors.md)
set_property(TEST grammar emacs PROPERTY LABELS once)

driver_feature_test(editor_tests
  GLOB host/editor/*_test.cc programs/driver_feature/lsp/*_test.cc
  LINK driver_feature_program)
target_link_libraries(editor_tests PRIVATE nlohmann_json::nlohmann_json)
target_compile_definitions(editor_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  ROUTINES_LIBRARY="$<TARGET_FILE:host_test_routines>")
add_dependencies(editor_tests DriverFeature host_test_routines)

add_test(NAME neovim
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/editors/neovim_test.sh ${NEOVIM}
          $<TARGET_FILE:driver-feature> $<TARGET_FILE:office_routines>
          ${PROJECT_SOURCE_DIR}/docs/editors.md)
set_tests_properties(neovim PROPERTIES TIMEOUT 60)
