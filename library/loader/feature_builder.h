// Builds features and their options from the description.
#ifndef LOADER_FEATURE_BUILDER_H_
#define LOADER_FEATURE_BUILDER_H_

#include <string>

class AttributeMap;
class DriverFeature;
class DriverFeatureOption;

namespace driver_feature {

// A new option from the attributes of its element, made in `room`; null, after
// a level 1 line, when it has no name. `text` is for what is read, which the
// options of a list share.
DriverFeatureOption* CreateFeatureOption(const AttributeMap& attributes, std::string& text,
                                         void* room);

// A new feature from a "Feature" element and its attributes, filed in the
// master set under its name. Null, after a level 1 line, when the feature
// cannot be built; what has been made by then is neither filed nor freed,
// because the process is about to end.
//
// Each "Sensitivity" and "Visibility", and "Encrypted" on a text feature,
// calls the host's update callback.
DriverFeature* CreateFeature(void* element, const AttributeMap& attributes);

}  // namespace driver_feature

#endif  // LOADER_FEATURE_BUILDER_H_
