# The plug-in, the development editions it runs with, and the headers that a
# host includes. Programs and examples are installed by their own folders.

set_target_properties(DriverFeature common_api xml_parser PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS DriverFeature common_api xml_parser
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

install(FILES
  model/core_feature.h model/core_feature_group.h model/core_feature_set.h model/core_option.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/driver_feature/model)
install(FILES frame/exports.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/driver_feature/frame)
