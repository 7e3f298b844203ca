#include "loader/group_builder.h"

#include <new>
#include <string>

#include "frame/master_set.h"
#include "loader/attribute_rows.h"
#include "loader/element.h"
#include "loader/feature_builder.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"

namespace driver_feature {

namespace {

using Kind = AttributeKind;

constexpr AttributeRow kStaticGroupAttributes[] = {
    {Kind::kText, "PJLCommand"},           {Kind::kText, "PSCommand"},
    {Kind::kText, "TESKOAAttributeName"},  {Kind::kText, "TESKJTAttributeName"},
    {Kind::kText, "TESKAttributeSyntax"},  {Kind::kText, "AddPJLCallbackRoutine"},
    {Kind::kText, "AddPSCallbackRoutine"}, {Kind::kText, "AddVORNCallbackRoutine"},
};

constexpr AttributeRow kDynamicGroupAttributes[] = {
    {Kind::kText, "PJLCommand"},          {Kind::kText, "PSCommand"},
    {Kind::kText, "TESKOAAttributeName"}, {Kind::kText, "TESKJTAttributeName"},
    {Kind::kText, "TESKAttributeSyntax"}, {Kind::kText, "SortFunctionName"},
};

std::string nameOfMember(CoreFeature& member) {
  std::string name;
  member.getFeatureProperty(std::string("Name"), name);
  return name;
}

bool addNestedGroup(ChildElements& child, DriverFeatureStaticGroup& group,
                    const std::string& groupName) {
  DriverFeatureStaticGroup* nested = CreateStaticFeatureGroup(child.handle(), child.attributes());
  if (nested == nullptr) {
    logComposed(Level::kError,
                "CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
                "group \"{}\".",
                groupName);
    return false;
  }
  if (group.addFeatureToGroup(nested)) return true;
  logComposed(Level::kError,
              "CreateStaticFeatureGroup() - Cannot add feature group \"{}\" to feature group "
              "\"{}\".",
              nameOfMember(*nested), groupName);
  return false;
}

bool addFeature(ChildElements& child, DriverFeatureStaticGroup& group,
                const std::string& groupName) {
  DriverFeature* feature = CreateFeature(child.handle(), child.attributes());
  if (feature == nullptr) {
    logFixed(Level::kError,
             "CreateStaticFeatureGroup() - Could not create feature for feature group");
    return false;
  }
  if (group.addFeatureToGroup(feature)) return true;
  logComposed(Level::kError,
              "CreateStaticFeatureGroup() - Cannot add feature \"{}\" to feature group \"{}\".",
              nameOfMember(*feature), groupName);
  return false;
}

bool addMember(ChildElements& child, DriverFeatureStaticGroup& group,
               const std::string& groupName) {
  if (child.tag() == "FeatureStaticGroup") return addNestedGroup(child, group, groupName);
  if (child.tag() == "Feature") return addFeature(child, group, groupName);
  logComposed(Level::kError, "CreateStaticFeatureGroup() - Invalid node tag \"{}\".", child.tag());
  return false;
}

// Builds the template from the only child of a dynamic group's element and
// hands it to the group.
bool addTemplate(void* element, DriverFeatureDynamicGroup& group, const std::string& groupName) {
  ChildElements child(element);
  child.read();
  if (child.tag() != "FeatureStaticGroup") {
    logComposed(Level::kError, "CreateDynamicFeatureGroup() - Invalid node tag \"{}\".",
                child.tag());
    return false;
  }
  DriverFeatureStaticGroup* shape = CreateStaticFeatureGroup(child.handle(), child.attributes());
  if (shape == nullptr) {
    logComposed(Level::kError,
                "CreateDynamicFeatureGroup() - Cannot create template static feature group to "
                "feature group \"{}\".",
                groupName);
    return false;
  }
  if (!shape->setFeatureProperty(std::string("FeatureType"),
                                 static_cast<int>(kDynamicGroupTemplate))) {
    logComposed(Level::kError,
                "CreateDynamicFeatureGroup() - Cannot set template static feature group feature "
                "type: \"{}\".",
                groupName);
    return false;
  }
  if (!group.addDefaultStaticGroupTemplate(shape)) {
    logComposed(Level::kError,
                "CreateDynamicFeatureGroup() - Cannot set template static feature group pointer: "
                "\"{}\".",
                groupName);
    return false;
  }
  return true;
}

}  // namespace

DriverFeatureStaticGroup* CreateStaticFeatureGroup(void* element, const AttributeMap& attributes) {
  std::string name;
  if (!readAttribute(attributes, "Name", name)) {
    logFixed(Level::kError, "CreateStaticFeatureGroup() - No name defined for feature group");
    return nullptr;
  }
  auto* group = new (std::nothrow) DriverFeatureStaticGroup(name);
  if (group == nullptr) {
    logFixed(Level::kError, "CreateStaticFeatureGroup() - Cannot create feature group object");
    return nullptr;
  }
  std::string text;
  applyAttributes<kStaticGroupAttributes>(attributes, text, *group, attributes.size() - 1);
  const int count = pParserInstance->childCount(element);
  if (count == 0) {
    logFixed(Level::kError, "CreateStaticFeatureGroup() - No features for feature group");
    return nullptr;
  }
  ChildElements child(element);
  for (int i = 0; i < count; ++i, child.next()) {
    child.read();
    if (!addMember(child, *group, name)) return nullptr;
  }
  if (masterSet().addStaticGroupToFeatureList(group) == 0) {
    logFixed(Level::kError,
             "CreateStaticFeatureGroup() - Could not add feature group to static feature group "
             "set");
    return nullptr;
  }
  return group;
}

DriverFeatureDynamicGroup* CreateDynamicFeatureGroup(void* element,
                                                     const AttributeMap& attributes) {
  std::string name;
  if (!readAttribute(attributes, "Name", name)) {
    logFixed(Level::kError, "CreateDynamicFeatureGroup() - No name defined for feature group");
    return nullptr;
  }
  auto* group = new (std::nothrow) DriverFeatureDynamicGroup(name);
  if (group == nullptr) {
    logFixed(Level::kError, "CreateDynamicFeatureGroup() - Cannot create feature group object");
    return nullptr;
  }
  std::string text;
  applyAttributes<kDynamicGroupAttributes>(attributes, text, *group, attributes.size() - 1);
  if (pParserInstance->childCount(element) != 1) {
    logFixed(Level::kError,
             "CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group");
    return nullptr;
  }
  if (!addTemplate(element, *group, name)) return nullptr;
  if (masterSet().addDynamicGroupToFeatureList(group) == 0) {
    logFixed(Level::kError,
             "CreateDynamicFeatureGroup() - Could not add dynamic group to dynamic feature group "
             "set");
    return nullptr;
  }
  return group;
}

}  // namespace driver_feature
