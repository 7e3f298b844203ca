// The properties of a feature and the messages of its eight property
// operations. For driver_feature.cc alone.
#ifndef MODEL_DRIVER_FEATURE_PROPERTIES_H_
#define MODEL_DRIVER_FEATURE_PROPERTIES_H_

#include <optional>
#include <string>

#include "model/driver_feature.h"
#include "model/messages.h"
#include "model/property_table.h"

// Required: the two bounds of an integer and the change routine can be set and
// not read back, and the PostScript routine's name reads as absent while it is
// empty.
struct DriverFeature::Properties {
  using Name = driver_feature::Property;
  using F = DriverFeature;
  using Needs = driver_feature::Needs;
  using Rule = driver_feature::Rule;
  using RowType = driver_feature::PropertyRow<DriverFeature, Name>;
  static constexpr driver_feature::Kept<F, std::string> kText{&F::kept_};
  static constexpr driver_feature::Kept<F, int> kInt{&F::kept_};
  static constexpr driver_feature::Kept<F, float> kFloat{&F::kept_};
  static constexpr auto kBoth = driver_feature::Access::kBoth;
  static constexpr auto kSet = driver_feature::Access::kSet;

  static constexpr driver_feature::PropertyTable kTable{std::to_array<RowType>({
      {Name::kAddCallbackRoutine, kText, kSet, Needs::kAny, Rule::kRoutine},
      {Name::kAddPJLCallbackRoutine, kText, kBoth},
      {Name::kAddPSCallbackRoutine, kText, kBoth, Needs::kAny, Rule::kHideEmpty},
      {Name::kAddVORNCallbackRoutine, kText, kBoth},
      {Name::kBiDiDataSection, kText, kBoth},
      {Name::kCLOKey, kText, kBoth},
      {Name::kCurrentFloatValue, &F::currentFloat_, kBoth, Needs::kFloat, Rule::kChange},
      {Name::kCurrentIntValue, &F::currentInt_, kBoth, Needs::kInt, Rule::kChange},
      {Name::kCurrentTextValue, kText, kBoth, Needs::kText, Rule::kChange},
      {Name::kDefaultFloatValue, kFloat, kBoth, Needs::kFloat},
      {Name::kDefaultIntValue, kInt, kBoth, Needs::kInt},
      {Name::kDefaultTextValue, kText, kBoth, Needs::kText},
      {Name::kDeferredFloatValue, kFloat, kBoth, Needs::kFloat},
      {Name::kDeferredIntValue, kInt, kBoth, Needs::kInt},
      {Name::kDeferredTextValue, kText, kBoth, Needs::kText},
      {Name::kEncrypted, &F::encrypted_, kBoth, Needs::kText, Rule::kFlag},
      {Name::kFeatureInGroup, &F::inGroup_, kBoth},
      {Name::kFeatureType, &F::type_, kBoth, Needs::kAny, Rule::kFeatureType},
      {Name::kFeatureValueType, &F::valueType_, kBoth, Needs::kAny, Rule::kValueType},
      {Name::kFloatMaxValue, kFloat, kBoth, Needs::kFloat},
      {Name::kFloatMinValue, kFloat, kBoth, Needs::kFloat},
      {Name::kInstOptAttributeName, kText, kBoth},
      {Name::kIntMaxValue, kInt, kSet, Needs::kInt},
      {Name::kIntMinValue, kInt, kSet, Needs::kInt},
      {Name::kMaxTextLength, kInt, kBoth, Needs::kText},
      {Name::kName, kText, kBoth},
      {Name::kNonVORNAttributeName, kText, kBoth},
      {Name::kOriginalFloatValue, kFloat, kBoth, Needs::kFloat},
      {Name::kOriginalIntValue, kInt, kBoth, Needs::kInt},
      {Name::kOriginalTextValue, kText, kBoth, Needs::kText},
      {Name::kPJLCommand, kText, kBoth, Needs::kAny, Rule::kTemplate},
      {Name::kPSCommand, kText, kBoth, Needs::kAny, Rule::kTemplate},
      {Name::kSNMPOID, kText, kBoth},
      {Name::kSNMPOIDPrefix, kText, kBoth},
      {Name::kSensitivity, &F::sensitive_, kBoth, Needs::kAny, Rule::kFlag},
      {Name::kTESKAttributeSyntax, kText, kBoth},
      {Name::kTESKJTAttributeName, kText, kBoth},
      {Name::kTESKOAAttributeName, kText, kBoth},
      {Name::kTextValidationCharSet, kText, kBoth, Needs::kText},
      // Where the value is depends on its type; the rule knows.
      {Name::kValueString, kText, kBoth, Needs::kAny, Rule::kValueString},
      {Name::kVisibility, &F::visible_, kBoth, Needs::kAny, Rule::kFlag},
  })};
};

namespace driver_feature {

// The value type that goes with a feature type; nothing when the feature type
// leaves it as it is.
constexpr std::optional<int> valueTypeOf(int featureType) {
  constexpr std::array<int, 5> kValueTypes = {kNoValue, kIntValue, kIntValue, kTextValue,
                                              kFloatValue};
  const auto index = static_cast<std::size_t>(featureType);
  if (index >= kValueTypes.size()) return std::nullopt;
  return kValueTypes[index];
}

// What the operations for one type of value say. Required: no closing quote
// and two blanks in most, a closing quote and one blank in the text getter's.
template <class Value>
struct Messages;

template <>
struct Messages<std::string> {
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeature::setFeatureProperty(string) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
  static constexpr MessageText<4> kWrongType{
      "DriverFeature::setFeatureProperty(string) - Attempt to set feature property:  \"{}\" for "
      "feature \"{}\" to {}where the feature is not a {} valued feature."};
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeature::getFeatureProperty(string&) - Unrecognized feature property: \"{}\" for "
      "feature \"{}\"."};
};

template <>
struct Messages<int> {
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeature::setFeatureProperty(int) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
  static constexpr MessageText<4> kWrongType{
      "DriverFeature::setFeatureProperty(int) - Attempt to set feature property:  \"{}\" for "
      "feature \"{}\" to {}where the feature is not a {} valued feature."};
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeature::getFeatureProperty(int*) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
};

template <>
struct Messages<float> {
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeature::setFeatureProperty(float) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
  static constexpr MessageText<4> kWrongType{
      "DriverFeature::setFeatureProperty(float) - Attempt to set feature property:  \"{}\" for "
      "feature \"{}\" to {}where the feature is not a {} valued feature."};
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeature::getFeatureProperty(float*) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
};

template <>
struct Messages<bool> {
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeature::setFeatureProperty(bool) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
  static constexpr MessageText<4> kWrongType{
      "DriverFeature::setFeatureProperty(bool) - Attempt to set feature property:  \"{}\" for "
      "feature \"{}\" to {}where the feature is not a {} valued feature."};
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeature::getFeatureProperty(bool*) - Unrecognized feature property:  \"{}\" for "
      "feature \"{}."};
};

}  // namespace driver_feature

#endif  // MODEL_DRIVER_FEATURE_PROPERTIES_H_
