#include "model/vocabulary.h"

#include <cstring>
#include <string_view>

#include "AttributeList.h"

namespace driver_feature {

namespace {

template <class Name>
struct VocabularyRow {
  Name property;
  const char* name;
};

constexpr std::array<VocabularyRow<Property>, kPropertyCount> kPropertyRows = {{
    {Property::kAddCallbackRoutine, "AddCallbackRoutine"},
    {Property::kAddCallbackType, "AddCallbackType"},
    {Property::kAddPJLCallbackRoutine, "AddPJLCallbackRoutine"},
    {Property::kAddPSCallbackRoutine, "AddPSCallbackRoutine"},
    {Property::kAddVORNCallbackRoutine, "AddVORNCallbackRoutine"},
    {Property::kBiDiDataSection, "BiDiDataSection"},
    {Property::kCLOKey, "CLOKey"},
    {Property::kCurrentFloatValue, "CurrentFloatValue"},
    {Property::kCurrentIntValue, "CurrentIntValue"},
    {Property::kCurrentTextValue, "CurrentTextValue"},
    {Property::kDefaultFloatValue, "DefaultFloatValue"},
    {Property::kDefaultIntValue, "DefaultIntValue"},
    {Property::kDefaultTextValue, "DefaultTextValue"},
    {Property::kDeferredFloatValue, "DeferredFloatValue"},
    {Property::kDeferredIntValue, "DeferredIntValue"},
    {Property::kDeferredTextValue, "DeferredTextValue"},
    {Property::kEncrypted, "Encrypted"},
    {Property::kFeatureInGroup, "FeatureInGroup"},
    {Property::kFeatureType, "FeatureType"},
    {Property::kFeatureValueType, "FeatureValueType"},
    {Property::kFloatMaxValue, "FloatMaxValue"},
    {Property::kFloatMinValue, "FloatMinValue"},
    {Property::kInstOptAttributeName, "InstOptAttributeName"},
    {Property::kIntMaxValue, "IntMaxValue"},
    {Property::kIntMinValue, "IntMinValue"},
    {Property::kMaxTextLength, "MaxTextLength"},
    {Property::kName, "Name"},
    {Property::kNonVORNAttributeName, "NonVORNAttributeName"},
    {Property::kOriginalFloatValue, "OriginalFloatValue"},
    {Property::kOriginalIntValue, "OriginalIntValue"},
    {Property::kOriginalTextValue, "OriginalTextValue"},
    {Property::kPJLCommand, "PJLCommand"},
    {Property::kPSCommand, "PSCommand"},
    {Property::kRecordInFocus, "RecordInFocus"},
    {Property::kSNMPOID, "SNMPOID"},
    {Property::kSNMPOIDPrefix, "SNMPOIDPrefix"},
    {Property::kSensitivity, "Sensitivity"},
    {Property::kSortFunctionName, "SortFunctionName"},
    {Property::kTESKAttributeSyntax, "TESKAttributeSyntax"},
    {Property::kTESKCommand, "TESKCommand"},
    {Property::kTESKJTAttributeName, "TESKJTAttributeName"},
    {Property::kTESKOAAttributeName, "TESKOAAttributeName"},
    {Property::kTextValidationCharSet, "TextValidationCharSet"},
    {Property::kValueString, "ValueString"},
    {Property::kVisibility, "Visibility"},
}};

constexpr std::array<VocabularyRow<OptionProperty>, kOptionPropertyCount> kOptionPropertyRows = {{
    {OptionProperty::kCLOKey, "CLOKey"},
    {OptionProperty::kDisplayText, "DisplayText"},
    {OptionProperty::kName, "Name"},
    {OptionProperty::kPJLCommand, "PJLCommand"},
    {OptionProperty::kPSCommand, "PSCommand"},
    {OptionProperty::kSNMPValue, "SNMPValue"},
    {OptionProperty::kSensitivity, "Sensitivity"},
    {OptionProperty::kTESKCommand, "TESKCommand"},
    {OptionProperty::kTESKTicketCommand, "TESKTicketCommand"},
    {OptionProperty::kVisibility, "Visibility"},
}};

// The platform's look-up needs ascending byte order, and the position that it
// returns is used as the enumerator of the same position.
template <class Rows>
consteval bool isInOrder(const Rows& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (static_cast<std::size_t>(rows[i].property) != i) return false;
    if (i > 0 && std::string_view(rows[i - 1].name) >= std::string_view(rows[i].name)) return false;
  }
  return true;
}
static_assert(isInOrder(kPropertyRows));
static_assert(isInOrder(kOptionPropertyRows));

template <class Rows>
consteval auto namesOf(const Rows& rows) {
  std::array<const char*, std::tuple_size_v<Rows>> names{};
  for (std::size_t i = 0; i < rows.size(); ++i) names[i] = rows[i].name;
  return names;
}
constexpr auto kPropertyNames = namesOf(kPropertyRows);
constexpr auto kOptionPropertyNames = namesOf(kOptionPropertyRows);

template <class Name, std::size_t kCount>
std::optional<Name> find(const std::array<const char*, kCount>& names, const std::string& name) {
  // The platform reads the name up to its first NUL character.
  if (std::strlen(name.c_str()) != name.size()) return std::nullopt;
  constexpr int kHighest = static_cast<int>(kCount) - 1;
  const int index = ParseAttributeList_LowLevel(names.data(), kHighest, name.c_str());
  if (index < 0 || index > kHighest) return std::nullopt;
  return static_cast<Name>(index);
}

}  // namespace

const char* nameOf(Property property) {
  return kPropertyNames[static_cast<std::size_t>(property)];
}

const char* nameOf(OptionProperty property) {
  return kOptionPropertyNames[static_cast<std::size_t>(property)];
}

const std::vector<std::string>* makeNameTexts() {
  return new std::vector<std::string>(kPropertyNames.begin(), kPropertyNames.end());
}

std::optional<Property> findProperty(const std::string& name) {
  return find<Property>(kPropertyNames, name);
}

std::optional<OptionProperty> findOptionProperty(const std::string& name) {
  return find<OptionProperty>(kOptionPropertyNames, name);
}

}  // namespace driver_feature
