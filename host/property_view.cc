#include "host/property_view.h"

#include <string>

#include <nlohmann/json.hpp>

#include "host/limits_view.h"
#include "host/log_printer.h"

namespace driver_feature {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kTextProperties[] = {"ValueString",
                                           "CurrentTextValue",
                                           "DefaultTextValue",
                                           "OriginalTextValue",
                                           "DeferredTextValue",
                                           "TextValidationCharSet",
                                           "PSCommand",
                                           "PJLCommand",
                                           "TESKAttributeSyntax",
                                           "TESKJTAttributeName",
                                           "TESKOAAttributeName",
                                           "NonVORNAttributeName",
                                           "InstOptAttributeName",
                                           "AddPSCallbackRoutine",
                                           "AddPJLCallbackRoutine",
                                           "AddVORNCallbackRoutine",
                                           "SortFunctionName",
                                           "CLOKey",
                                           "SNMPOID",
                                           "SNMPOIDPrefix",
                                           "BiDiDataSection"};
constexpr const char* kIntProperties[] = {"FeatureType",     "FeatureValueType", "CurrentIntValue",
                                          "DefaultIntValue", "OriginalIntValue", "DeferredIntValue",
                                          "MaxTextLength",   "RecordInFocus"};
constexpr const char* kFloatProperties[] = {"CurrentFloatValue",  "DefaultFloatValue",
                                            "OriginalFloatValue", "DeferredFloatValue",
                                            "FloatMinValue",      "FloatMaxValue"};
constexpr const char* kFlagProperties[] = {"Sensitivity", "Visibility", "Encrypted",
                                           "FeatureInGroup"};
constexpr const char* kOptionProperties[] = {"Name",       "DisplayText", "PSCommand",
                                             "PJLCommand", "TESKCommand", "TESKTicketCommand",
                                             "CLOKey",     "SNMPValue"};
constexpr const char* kOptionFlags[] = {"Sensitivity", "Visibility"};

}  // namespace

nlohmann::ordered_json propertiesOf(CoreFeature& object) {
  const LogSilence silence;  // The library logs each property that the object has not.
  Json json = Json::object();
  for (const char* property : kTextProperties) {
    std::string text;
    if (object.getFeatureProperty(std::string(property), text)) json[property] = text;
  }
  for (const char* property : kIntProperties) {
    int number = 0;
    if (object.getFeatureProperty(std::string(property), &number)) json[property] = number;
  }
  for (const char* property : kFloatProperties) {
    float number = 0;
    if (object.getFeatureProperty(std::string(property), &number)) {
      json[property] = floatJson(number);
    }
  }
  for (const char* property : kFlagProperties) {
    bool flag = false;
    if (object.getFeatureProperty(std::string(property), &flag)) json[property] = flag;
  }
  return json;
}

nlohmann::ordered_json optionsOf(CoreFeature& object) {
  const LogSilence silence;
  Json list = Json::array();
  for (int i = 0; i < object.fetchNumberOfOptions(); ++i) {
    CoreOption* option = object.fetchOptionByIndex(i);
    if (option == nullptr) continue;
    Json json = Json::object();
    for (const char* property : kOptionProperties) {
      std::string text;
      if (option->getOptionProperty(std::string(property), text)) json[property] = text;
    }
    for (const char* property : kOptionFlags) {
      bool flag = false;
      if (option->getOptionProperty(std::string(property), &flag)) json[property] = flag;
    }
    list.push_back(json);
  }
  return list;
}

}  // namespace driver_feature
