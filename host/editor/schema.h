// The text of descriptions/feature_description.rng, which the build puts in.
#ifndef HOST_EDITOR_SCHEMA_H_
#define HOST_EDITOR_SCHEMA_H_

#include <string_view>

namespace driver_feature::editor {

extern const std::string_view kSchema;

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_SCHEMA_H_
