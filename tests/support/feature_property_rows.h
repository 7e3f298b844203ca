// What a feature's property operations accept, one row per property, written by
// hand. A name without a row is accepted by no operation.
#ifndef TESTS_SUPPORT_FEATURE_PROPERTY_ROWS_H_
#define TESTS_SUPPORT_FEATURE_PROPERTY_ROWS_H_

namespace driver_feature::testing {

enum class Kind { kText, kInt, kFloat, kBool };

// Who hears of a store: nobody, everybody after a change, or the host always.
enum class Told { kNobody, kOnChange, kAlways };

inline constexpr int kAnyType = -1;

// What an operation of that kind accepts.
struct FeaturePropertyRow {
  const char* name;
  Kind kind;
  bool readable;
  int needed;  // The value type that a feature must have for setting it.
  Told told;
};

// "ValueString" depends on the value type and has tests of its own.
inline constexpr FeaturePropertyRow kFeaturePropertyRows[] = {
    {"AddCallbackRoutine", Kind::kText, false, kAnyType, Told::kNobody},
    {"AddPJLCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"AddPSCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"AddVORNCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"BiDiDataSection", Kind::kText, true, kAnyType, Told::kNobody},
    {"CLOKey", Kind::kText, true, kAnyType, Told::kNobody},
    {"CurrentFloatValue", Kind::kFloat, true, 3, Told::kOnChange},
    {"CurrentIntValue", Kind::kInt, true, 1, Told::kOnChange},
    {"CurrentTextValue", Kind::kText, true, 2, Told::kOnChange},
    {"DefaultFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"DefaultIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"DefaultTextValue", Kind::kText, true, 2, Told::kNobody},
    {"DeferredFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"DeferredIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"DeferredTextValue", Kind::kText, true, 2, Told::kNobody},
    {"Encrypted", Kind::kBool, true, 2, Told::kAlways},
    {"FeatureInGroup", Kind::kBool, true, kAnyType, Told::kNobody},
    {"FeatureType", Kind::kInt, true, kAnyType, Told::kNobody},
    {"FeatureValueType", Kind::kInt, true, kAnyType, Told::kNobody},
    {"FloatMaxValue", Kind::kFloat, true, 3, Told::kNobody},
    {"FloatMinValue", Kind::kFloat, true, 3, Told::kNobody},
    {"InstOptAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"IntMaxValue", Kind::kInt, false, 1, Told::kNobody},
    {"IntMinValue", Kind::kInt, false, 1, Told::kNobody},
    {"MaxTextLength", Kind::kInt, true, 2, Told::kNobody},
    {"Name", Kind::kText, true, kAnyType, Told::kNobody},
    {"NonVORNAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"OriginalFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"OriginalIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"OriginalTextValue", Kind::kText, true, 2, Told::kNobody},
    {"PJLCommand", Kind::kText, true, kAnyType, Told::kNobody},
    {"PSCommand", Kind::kText, true, kAnyType, Told::kNobody},
    {"SNMPOID", Kind::kText, true, kAnyType, Told::kNobody},
    {"SNMPOIDPrefix", Kind::kText, true, kAnyType, Told::kNobody},
    {"Sensitivity", Kind::kBool, true, kAnyType, Told::kAlways},
    {"TESKAttributeSyntax", Kind::kText, true, kAnyType, Told::kNobody},
    {"TESKJTAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"TESKOAAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"TextValidationCharSet", Kind::kText, true, 2, Told::kNobody},
    {"Visibility", Kind::kBool, true, kAnyType, Told::kAlways},
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_FEATURE_PROPERTY_ROWS_H_
