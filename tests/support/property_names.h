// Every property name of features and groups, and names that are none, written
// out for tests that try them all.
#ifndef TESTS_SUPPORT_PROPERTY_NAMES_H_
#define TESTS_SUPPORT_PROPERTY_NAMES_H_

#include <string>
#include <vector>

namespace driver_feature::testing {

inline const std::vector<std::string> kAllPropertyNames = {"AddCallbackRoutine",
                                                           "AddCallbackType",
                                                           "AddPJLCallbackRoutine",
                                                           "AddPSCallbackRoutine",
                                                           "AddVORNCallbackRoutine",
                                                           "BiDiDataSection",
                                                           "CLOKey",
                                                           "CurrentFloatValue",
                                                           "CurrentIntValue",
                                                           "CurrentTextValue",
                                                           "DefaultFloatValue",
                                                           "DefaultIntValue",
                                                           "DefaultTextValue",
                                                           "DeferredFloatValue",
                                                           "DeferredIntValue",
                                                           "DeferredTextValue",
                                                           "Encrypted",
                                                           "FeatureInGroup",
                                                           "FeatureType",
                                                           "FeatureValueType",
                                                           "FloatMaxValue",
                                                           "FloatMinValue",
                                                           "InstOptAttributeName",
                                                           "IntMaxValue",
                                                           "IntMinValue",
                                                           "MaxTextLength",
                                                           "Name",
                                                           "NonVORNAttributeName",
                                                           "OriginalFloatValue",
                                                           "OriginalIntValue",
                                                           "OriginalTextValue",
                                                           "PJLCommand",
                                                           "PSCommand",
                                                           "RecordInFocus",
                                                           "SNMPOID",
                                                           "SNMPOIDPrefix",
                                                           "Sensitivity",
                                                           "SortFunctionName",
                                                           "TESKAttributeSyntax",
                                                           "TESKCommand",
                                                           "TESKJTAttributeName",
                                                           "TESKOAAttributeName",
                                                           "TextValidationCharSet",
                                                           "ValueString",
                                                           "Visibility"};

inline const std::vector<std::string> kUnknownNames = {"",
                                                       "name",
                                                       "NAME",
                                                       "Names",
                                                       "Nam",
                                                       " Name",
                                                       "Name ",
                                                       "DisplayText",
                                                       "SNMPValue",
                                                       "TESKTicketCommand",
                                                       "Aardvark",
                                                       "Visibility2",
                                                       "zzz",
                                                       std::string("Name\0", 5),
                                                       std::string("\0Name", 5)};

// Both lists together.
inline std::vector<std::string> everyName() {
  std::vector<std::string> names = kAllPropertyNames;
  names.insert(names.end(), kUnknownNames.begin(), kUnknownNames.end());
  return names;
}

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_PROPERTY_NAMES_H_
