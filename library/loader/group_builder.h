// Builds static and dynamic groups from the description.
#ifndef LOADER_GROUP_BUILDER_H_
#define LOADER_GROUP_BUILDER_H_

class AttributeMap;
class DriverFeatureDynamicGroup;
class DriverFeatureStaticGroup;

namespace driver_feature {

// A new static group from its element and the element's attributes, with its
// features and nested groups, each filed in the master set before the group
// that holds it. Null, after a level 1 line, when it cannot be built; nothing
// that has been made by then is freed, because the process is about to end.
DriverFeatureStaticGroup* CreateStaticFeatureGroup(void* element, const AttributeMap& attributes);

// A new dynamic group, whose only child is its template. Null as above.
DriverFeatureDynamicGroup* CreateDynamicFeatureGroup(void* element, const AttributeMap& attributes);

}  // namespace driver_feature

#endif  // LOADER_GROUP_BUILDER_H_
