# The library's sources are compiled once. Unit tests link the objects; hosts
# and the plug-in tests load the shared library made of them.

add_library(driver_feature_objects OBJECT
  diagnostics/dump.cc
  frame/driver_feature_set.cc
  frame/plugin_record.cc
  frame/saved_values.cc
  frame/state.cc
  frame/value_access.cc
  loader/feature_builder.cc
  loader/group_builder.cc
  loader/tag_handler.cc
  model/driver_feature.cc
  model/driver_feature_constraints.cc
  model/driver_feature_dynamic_group.cc
  model/driver_feature_dynamic_group_records.cc
  model/driver_feature_option.cc
  model/driver_feature_options.cc
  model/driver_feature_static_group.cc
  model/feature_list.cc
  model/messages.cc
  model/notification.cc
  model/option_list.cc
  model/text_conversion.cc
  model/vocabulary.cc
  output/command_template.cc
  output/conversion.cc
  output/feature_text.cc
  output/group_text.cc
  output/group_ticket.cc
  output/text_serialization.cc
  output/ticket_attributes.cc
  output/ticket_serialization.cc
)
target_link_libraries(driver_feature_objects PUBLIC
  driver_feature_compile_options common_api xml_parser)
# Debugging information in every build: a host's crash can be read, and the
# binary interface can be compared. It names no folder of the build machine.
# Calls of other libraries need no stubs, which would resolve them late: all of
# them are resolved when the library is loaded.
target_compile_options(driver_feature_objects PRIVATE
  -g -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -fno-plt)

add_library(DriverFeature SHARED)
target_link_libraries(DriverFeature PRIVATE driver_feature_objects)
# Not linked with --no-undefined: isolat1ToUTF8 is reached through the ticket
# writer's library, and the linker would ask for the XML library itself, which
# hosts do not promise. Tests compare what is undefined with a list instead.
# Only libraries that it uses: clang names one more of the run-time system's.
target_link_options(DriverFeature PRIVATE
  LINKER:--as-needed
  LINKER:--version-script=${PROJECT_SOURCE_DIR}/driver_feature.map)
set_target_properties(DriverFeature PROPERTIES
  LINK_DEPENDS ${PROJECT_SOURCE_DIR}/driver_feature.map)
