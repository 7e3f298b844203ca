# Tests of the translation between descriptions and IPP.

driver_feature_test(ipp_unit_tests GLOB host/ipp/*_test.cc LINK host_ipp)

# What a printer advertises of whole descriptions; by hand, of all imported PPDs.
add_executable(ipp_advertised ipp/advertised_main.cc)
target_link_libraries(ipp_advertised PRIVATE host_ipp host_ppd_import)
# Imported descriptions find the host's routines by their names.
set_target_properties(ipp_advertised PROPERTIES ENABLE_EXPORTS ON)
