#include "loader/feature_builder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <optional>

#include "frame/master_set.h"
#include "loader/attribute_rows.h"
#include "loader/element.h"
#include "model/messages.h"
#include "model/vocabulary.h"

namespace driver_feature {

namespace {

using Kind = AttributeKind;

constexpr AttributeRow kOptionAttributes[] = {
    {Kind::kBool, "Sensitivity"}, {Kind::kText, "PJLCommand"},        {Kind::kText, "PSCommand"},
    {Kind::kText, "TESKCommand"}, {Kind::kText, "TESKTicketCommand"}, {Kind::kText, "SNMPValue"},
    {Kind::kText, "CLOKey"},
};

constexpr AttributeRow kFeatureAttributes[] = {
    {Kind::kBool, "Sensitivity"},
    {Kind::kBool, "Visibility"},
    {Kind::kBool, "Encrypted"},
    {Kind::kText, "PJLCommand"},
    {Kind::kText, "PSCommand"},
    {Kind::kText, "TESKOAAttributeName"},
    {Kind::kText, "TESKJTAttributeName"},
    {Kind::kText, "TESKAttributeSyntax"},
    {Kind::kText, "InstOptAttributeName"},
    {Kind::kText, "NonVORNAttributeName"},
    {Kind::kText, "AddCallbackRoutine"},
    {Kind::kText, "AddPJLCallbackRoutine"},
    {Kind::kText, "AddPSCallbackRoutine"},
    {Kind::kText, "AddVORNCallbackRoutine"},
    {Kind::kText, "SNMPOID"},
    {Kind::kText, "SNMPOIDPrefix"},
    {Kind::kText, "BiDiDataSection"},
    {Kind::kText, "CLOKey"},
};

constexpr AttributeRow kIntAttributes[] = {
    {Kind::kInt, "IntMaxValue"},
    {Kind::kInt, "IntMinValue"},
    {Kind::kInt, "DefaultValue", "DefaultIntValue", "CurrentIntValue"},
};

constexpr AttributeRow kFloatAttributes[] = {
    {Kind::kFloat, "FloatMaxValue"},
    {Kind::kFloat, "FloatMinValue"},
    {Kind::kFloat, "DefaultValue", "DefaultFloatValue", "CurrentFloatValue"},
};

constexpr AttributeRow kTextAttributes[] = {
    {Kind::kText, "TextValidationCharSet"},
    {Kind::kInt, "MaxTextLength"},
    {Kind::kText, "DefaultValue", "DefaultTextValue", "CurrentTextValue"},
};

// What the elements of one feature type hold beyond the common attributes.
struct TypeRow {
  const char* keyword;
  const NamedRows& (*attributes)() = nullptr;
};

// By feature-type code. The codes of groups have no keyword, and none finds
// them.
constexpr std::array<TypeRow, kHighestFeatureType + 1> kTypes = {{
    {kFeatureTypeNames[kUIOnly]},
    {kFeatureTypeNames[kMultiSelect]},
    {kFeatureTypeNames[kIntEntry], namedRows<kIntAttributes>},
    {kFeatureTypeNames[kTextEntry], namedRows<kTextAttributes>},
    {kFeatureTypeNames[kFloatEntry], namedRows<kFloatAttributes>},
    {kFeatureTypeNames[kMVCList]},
    {nullptr},
    {nullptr},
    {nullptr},
}};

std::optional<int> findType(const std::string& keyword) {
  for (std::size_t code = 0; code < kTypes.size(); ++code) {
    if (kTypes[code].keyword != nullptr && keyword == kTypes[code].keyword) {
      return static_cast<int>(code);
    }
  }
  return std::nullopt;
}

bool addOptions(void* element, DriverFeature& feature, const std::string& featureName) {
  const int count = pParserInstance->childCount(element);
  if (count == 0) {
    logFixed(Level::kError, "CreateFeature() - No options for MultiSelect feature");
    return false;
  }
  // Options are never freed: one piece of memory for all of them costs less than
  // one for each.
  const auto size = static_cast<std::size_t>(std::max(count, 0)) * sizeof(DriverFeatureOption);
  auto* room = static_cast<std::byte*>(::operator new(size));
  PropertyRoom& properties = masterSet().list().room();
  // Every child is an option, whatever its tag.
  ChildElements child(element);
  std::string text;
  for (int i = 0; i < count; ++i, child.next(), room += sizeof(DriverFeatureOption)) {
    child.read();
    DriverFeatureOption* option = CreateFeatureOption(child.attributes(), text, room);
    if (option == nullptr) {
      logFixed(Level::kError, "CreateFeature() - Could not create MultiSelect feature option");
      return false;
    }
    option->movePropertiesTo(properties);
    if (!feature.addOptionToFeature(option)) {
      std::string optionName;
      option->getOptionProperty(std::string("Name"), optionName);
      logComposed(Level::kError, "CreateFeature() - Cannot add option \"{}\" to feature \"{}\".",
                  optionName, featureName);
      return false;
    }
  }
  return true;
}

// The position of the default option; the first when none is named or found.
int findDefaultOption(const AttributeMap& attributes, DriverFeature& feature,
                      const std::string& featureName) {
  std::string value;
  if (!readAttribute(attributes, "DefaultValue", value)) {
    logComposed(Level::kWarning, "CreateFeature() - No default value for feature \"{}\", using 0.",
                featureName);
    return 0;
  }
  const int position = feature.fetchOptionIndexByName(value);
  if (position >= 0) return position;
  logComposed(Level::kWarning,
              "CreateFeature() - Cannot find default option \"{}\" for feature \"{}\", using 0.",
              value, featureName);
  return 0;
}

bool setDefaultOption(const AttributeMap& attributes, DriverFeature& feature,
                      const std::string& featureName) {
  const int position = findDefaultOption(attributes, feature, featureName);
  if (!feature.setFeaturePropertyWithConstraintControl(std::string("DefaultIntValue"), position,
                                                       true)) {
    logComposed(Level::kError, "CreateFeature() - Cannot set default value of feature \"{}\".",
                featureName);
    return false;
  }
  if (!feature.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), position,
                                                       true)) {
    logComposed(Level::kError, "CreateFeature() - Cannot set current value of feature \"{}\".",
                featureName);
    return false;
  }
  return true;
}

}  // namespace

DriverFeatureOption* CreateFeatureOption(const AttributeMap& attributes, std::string& text,
                                         void* room) {
  text.clear();
  if (!readAttribute(attributes, "Name", text)) {
    logFixed(Level::kError, "CreateFeatureOption() - No name defined for option");
    return nullptr;
  }
  auto* option = new (room) DriverFeatureOption(text);
  applyAttributes<kOptionAttributes>(attributes, text, *option, attributes.size() - 1);
  return option;
}

DriverFeature* CreateFeature(void* element, const AttributeMap& attributes) {
  std::string keyword;
  if (!readAttribute(attributes, "FeatureType", keyword)) {
    logFixed(Level::kError, "CreateFeature() - No keyword defined for feature type");
    return nullptr;
  }
  std::string name;
  if (!readAttribute(attributes, "Name", name)) {
    logFixed(Level::kError, "CreateFeature() - No name defined for feature");
    return nullptr;
  }
  auto* feature = new (std::nothrow) DriverFeature(name);
  if (feature == nullptr) {
    logFixed(Level::kError, "CreateFeature() - Cannot create feature object");
    return nullptr;
  }
  const auto type = findType(keyword);
  if (!type) {
    logComposed(Level::kError, "CreateFeature() - Invalid feature type \"{}\" for feature \"{}\".",
                keyword, name);
    return nullptr;
  }
  assign(*feature, "FeatureType", *type);
  long left = attributes.size() - 2;
  std::string text;
  applyAttributes(namedRows<kFeatureAttributes>(), attributes, text, *feature, left);
  if (const auto typeAttributes = kTypes[static_cast<std::size_t>(*type)].attributes) {
    applyAttributes(typeAttributes(), attributes, text, *feature, left);
  }
  if (*type == kMultiSelect) {
    if (!addOptions(element, *feature, name)) return nullptr;
    if (!setDefaultOption(attributes, *feature, name)) return nullptr;
  }
  masterSet().addFeatureToFeatureList(name, feature);
  return feature;
}

}  // namespace driver_feature
