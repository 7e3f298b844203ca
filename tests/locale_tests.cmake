# The locale of the process must not show in what is read and written.

find_program(LOCALEDEF localedef REQUIRED)

add_library(set_locale MODULE locales/set_locale.cc)
target_link_libraries(set_locale PRIVATE driver_feature_compile_options)
# Goes into the programs that a test starts as well, which know of no checks.
target_compile_options(set_locale PRIVATE -fno-sanitize=all)
target_link_options(set_locale PRIVATE -fno-sanitize=all)
add_executable(locale_probe locales/locale_probe.cc)
target_link_libraries(locale_probe PRIVATE driver_feature_compile_options)

set(locale_folder ${CMAKE_CURRENT_LIST_DIR}/locales)
add_test(NAME locales_made
  COMMAND ${BASH_PROGRAM} ${locale_folder}/make_locales.sh ${PROJECT_BINARY_DIR}/locales)
set_tests_properties(locales_made PROPERTIES FIXTURES_SETUP locales)

add_test(NAME locale_outputs
  COMMAND ${BASH_PROGRAM} ${locale_folder}/outputs_test.sh
          ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} $<TARGET_FILE:office_routines>)
# Leaks are looked for where the same commands run without a locale.
set_tests_properties(locale_outputs PROPERTIES FIXTURES_REQUIRED locales LABELS once TIMEOUT 300
  ENVIRONMENT ASAN_OPTIONS=detect_leaks=0)

# The unit tests of what reads and writes numbers and names. Numbers in Turkish are
# as in German, with a comma and grouped digits. `./dev test-locales` runs all tests
# in each locale. The agreement with the schema is about names alone, and takes seconds.
set(locale tr_TR.UTF-8)
foreach(program diagnostics frame loader model output templates platform host_unit filter_unit)
  add_test(NAME locale_${locale}_${program}
    COMMAND ${BASH_PROGRAM} ${locale_folder}/in_locale.sh ${PROJECT_BINARY_DIR} ${locale}
            $<TARGET_FILE:${program}_tests>
            --gtest_brief=1 --gtest_filter=-SchemaAgreement.*)
  set_tests_properties(locale_${locale}_${program} PROPERTIES
    FIXTURES_REQUIRED locales LABELS once)
endforeach()
