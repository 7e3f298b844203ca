# Tests of the translation between descriptions and IPP.

driver_feature_test(ipp_unit_tests GLOB host/ipp/*_test.cc LINK host_ipp)

# What a printer advertises of whole descriptions; by hand, of all imported PPDs.
add_executable(ipp_advertised ipp/advertised_main.cc ipp/advertised_examination.cc)
target_link_libraries(ipp_advertised PRIVATE host_ipp host_ppd_import)
# Imported descriptions find the host's routines by their names.
set_target_properties(ipp_advertised PROPERTIES ENABLE_EXPORTS ON)

# Whether clients find the conflicts of the rules; for printers that run.
add_executable(ipp_conflicts ipp/conflicts_main.cc)
target_link_libraries(ipp_conflicts PRIVATE host_ipp)
set_target_properties(ipp_conflicts PROPERTIES ENABLE_EXPORTS ON)
driver_feature_plain(ipp_advertised ipp_conflicts)

target_compile_definitions(ipp_unit_tests PRIVATE
  DRIVER_FEATURE_LIBRARY="$<TARGET_FILE:DriverFeature>"
  OFFICE_DESCRIPTION="${PROJECT_SOURCE_DIR}/descriptions/office_laser.xml"
  OFFICE_ROUTINES="$<TARGET_FILE:office_routines>")
add_dependencies(ipp_unit_tests DriverFeature office_routines)
add_dependencies(ipp_advertised DriverFeature office_routines)

file(GLOB ppd_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/ppd/files/*.ppd)
add_test(NAME ipp_advertised
  COMMAND ipp_advertised --library $<TARGET_FILE:DriverFeature>
          --routines $<TARGET_FILE:office_routines>
          ${PROJECT_SOURCE_DIR}/descriptions/office_laser.xml
          ${PROJECT_SOURCE_DIR}/descriptions/label_printer.xml ${ppd_files})
