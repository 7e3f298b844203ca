# What an installation holds, apart from the program and the descriptions,
# which their own folders install: the plug-in, the development editions that
# it runs with, the headers that a host includes, and the files by which CMake
# and pkg-config find all of them. Everything may be moved as one tree.
#
# Three components: library (what runs), development (what builds against it),
# tools (the program and the descriptions).

include(CMakePackageConfigHelpers)

set(cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/DriverFeature)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/driver_feature)

set_target_properties(DriverFeature common_api xml_parser PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS DriverFeature
  LIBRARY DESTINATION ${DRIVER_FEATURE_LIBRARY_FOLDER} COMPONENT library)

# The interfaces alone: a host that links this target gets no library. Targets
# of the build include from the root of the sources instead.
add_library(driver_feature_headers INTERFACE)
target_include_directories(driver_feature_headers INTERFACE $<INSTALL_INTERFACE:${header_folder}>)
target_compile_features(driver_feature_headers INTERFACE cxx_std_11)
set_target_properties(driver_feature_headers PROPERTIES EXPORT_NAME headers)

foreach(library common_api xml_parser)
  target_include_directories(${library}
    INTERFACE $<INSTALL_INTERFACE:${header_folder}/platform>)
  target_compile_features(${library} INTERFACE cxx_std_11)
endforeach()
install(TARGETS driver_feature_headers common_api xml_parser EXPORT DriverFeatureTargets
  LIBRARY DESTINATION ${DRIVER_FEATURE_LIBRARY_FOLDER} COMPONENT library)
install(EXPORT DriverFeatureTargets NAMESPACE DriverFeature::
  DESTINATION ${cmake_folder} COMPONENT development)

install(FILES
  library/model/core_feature.h
  library/model/core_feature_group.h
  library/model/core_feature_set.h
  library/model/core_option.h
  DESTINATION ${header_folder}/model COMPONENT development)
install(FILES library/frame/exports.h
  DESTINATION ${header_folder}/frame COMPONENT development)
install(FILES
  platform/common_api/AttributeList.h
  platform/common_api/AttributeMap.h
  platform/common_api/Log.h
  platform/common_api/Symbols.h
  platform/common_api/Text.h
  platform/common_api/UnicodeString.h
  platform/common_api/XMLDocument.h
  platform/common_api/XMLParser.h
  platform/xml_parser/VORNWriter.h
  DESTINATION ${header_folder}/platform COMPONENT development)

set(plugin_path ${DRIVER_FEATURE_LIBRARY_FOLDER}/libDriverFeature.so)
configure_package_config_file(cmake/DriverFeatureConfig.cmake.in
  ${PROJECT_BINARY_DIR}/DriverFeatureConfig.cmake
  INSTALL_DESTINATION ${cmake_folder} PATH_VARS plugin_path)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/DriverFeatureConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/DriverFeatureConfig.cmake
  ${PROJECT_BINARY_DIR}/DriverFeatureConfigVersion.cmake
  DESTINATION ${cmake_folder} COMPONENT development)

# The way from the folder of the .pc file back to the prefix, such as ../../..
cmake_path(SET prefix_from_pkgconfig /)
cmake_path(RELATIVE_PATH prefix_from_pkgconfig BASE_DIRECTORY /${pkgconfig_folder})
configure_file(cmake/driver-feature.pc.in ${PROJECT_BINARY_DIR}/driver-feature.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/driver-feature.pc
  DESTINATION ${pkgconfig_folder} COMPONENT development)

install(DIRECTORY examples/minimal_host
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libdriverfeature-dev/examples COMPONENT development)
