// The names by which hosts, descriptions and the library itself address the
// properties of features, groups and options, and the codes of feature types
// and value types.
#ifndef MODEL_VOCABULARY_H_
#define MODEL_VOCABULARY_H_

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace driver_feature {

// Properties of features and groups, in the order of their names.
enum class Property : unsigned char {
  kAddCallbackRoutine,
  kAddCallbackType,  // Known, and accepted by no operation.
  kAddPJLCallbackRoutine,
  kAddPSCallbackRoutine,
  kAddVORNCallbackRoutine,
  kBiDiDataSection,
  kCLOKey,
  kCurrentFloatValue,
  kCurrentIntValue,
  kCurrentTextValue,
  kDefaultFloatValue,
  kDefaultIntValue,
  kDefaultTextValue,
  kDeferredFloatValue,
  kDeferredIntValue,
  kDeferredTextValue,
  kEncrypted,
  kFeatureInGroup,
  kFeatureType,
  kFeatureValueType,
  kFloatMaxValue,
  kFloatMinValue,
  kInstOptAttributeName,
  kIntMaxValue,
  kIntMinValue,
  kMaxTextLength,
  kName,
  kNonVORNAttributeName,
  kOriginalFloatValue,
  kOriginalIntValue,
  kOriginalTextValue,
  kPJLCommand,
  kPSCommand,
  kRecordInFocus,
  kSNMPOID,
  kSNMPOIDPrefix,
  kSensitivity,
  kSortFunctionName,
  kTESKAttributeSyntax,
  kTESKCommand,  // Of options; known here and accepted by no operation.
  kTESKJTAttributeName,
  kTESKOAAttributeName,
  kTextValidationCharSet,
  kValueString,
  kVisibility,
};
inline constexpr std::size_t kPropertyCount = 45;

// Properties of options, in the order of their names.
enum class OptionProperty : unsigned char {
  kCLOKey,
  kDisplayText,
  kName,
  kPJLCommand,
  kPSCommand,
  kSNMPValue,
  kSensitivity,
  kTESKCommand,
  kTESKTicketCommand,
  kVisibility,
};
inline constexpr std::size_t kOptionPropertyCount = 10;

// The name of a property. The texts live as long as the library.
const char* nameOf(Property property);
const char* nameOf(OptionProperty property);

// All names as texts, in the order of the properties. The caller owns them.
const std::vector<std::string>* makeNameTexts();

// The name as the text that the operations of features and options take. All
// of them are made at the first call and never destroyed, so that naming a
// property costs no memory from then on.
inline const std::string& nameText(Property property) {
  static const std::vector<std::string>& texts = *makeNameTexts();
  return texts[static_cast<std::size_t>(property)];
}

// The property of that name, or nothing. Case counts, and a name that holds a
// NUL character is never known.
std::optional<Property> findProperty(const std::string& name);
std::optional<OptionProperty> findOptionProperty(const std::string& name);

// Feature-type codes. Codes 6 to 8 are groups and have no display name.
enum FeatureType : int {
  kUIOnly = 0,
  kMultiSelect = 1,
  kIntEntry = 2,
  kTextEntry = 3,
  kFloatEntry = 4,
  kMVCList = 5,
  kStaticGroup = 6,
  kDynamicGroupTemplate = 7,
  kDynamicGroup = 8,
};
inline constexpr int kHighestFeatureType = kDynamicGroup;

// Display names, which are also the keywords of the description.
inline constexpr std::array<const char*, 6> kFeatureTypeNames = {
    "UIOnly", "MultiSelect", "IntEntry", "TextEntry", "FloatEntry", "MVCList"};

// Value-type codes: which of a feature's values means something.
enum ValueType : int {
  kNoValue = 0,
  kIntValue = 1,
  kTextValue = 2,
  kFloatValue = 3,
};
inline constexpr int kHighestValueType = kFloatValue;

inline constexpr const char* kValueTypeNames[] = {"UIOnly", "Int", "Text", "Float"};

}  // namespace driver_feature

#endif  // MODEL_VOCABULARY_H_
