#include "programs/driver_feature/show/property_view.h"

#include <optional>
#include <string>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/session/log.h"
#include "host/session/properties.h"
#include "programs/driver_feature/show/limits_view.h"
#include "programs/driver_feature/show/secrets.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kOptionProperties[] = {"Name",       "DisplayText", "PSCommand",
                                             "PJLCommand", "TESKCommand", "TESKTicketCommand",
                                             "CLOKey",     "SNMPValue"};
constexpr const char* kOptionFlags[] = {"Sensitivity", "Visibility"};

std::optional<Json> valueOf(CoreFeature& object, const host::PropertyEntry& property) {
  const std::string name = property.name;
  std::string text;
  int number = 0;
  float decimal = 0;
  bool flag = false;
  switch (property.type) {
    case host::PropertyType::kInt:
      if (object.getFeatureProperty(name, &number)) return number;
      break;
    case host::PropertyType::kFloat:
      if (object.getFeatureProperty(name, &decimal)) return floatJson(decimal);
      break;
    case host::PropertyType::kBool:
      if (object.getFeatureProperty(name, &flag)) return flag;
      break;
    case host::PropertyType::kText:
      if (object.getFeatureProperty(name, text)) return shownProperty(object, name, text);
      break;
  }
  return std::nullopt;
}

}  // namespace

nlohmann::ordered_json propertiesOf(CoreFeature& object) {
  const host::LogSilence silence;  // The library logs each property that the object has not.
  Json json = Json::object();
  for (const host::PropertyEntry& property : host::properties()) {
    if (property.name == std::string("Name")) continue;  // The caller has shown it.
    if (auto value = valueOf(object, property)) json[property.name] = std::move(*value);
  }
  return json;
}

nlohmann::ordered_json optionsOf(CoreFeature& object) {
  const host::LogSilence silence;
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

}  // namespace driver_feature::cli
