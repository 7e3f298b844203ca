// Settings of the form NAME=VALUE: checked against what the description
// allows, then stored through the library's property interface.
#ifndef HOST_SETTINGS_SETTING_H_
#define HOST_SETTINGS_SETTING_H_

#include <string>

#include "host/base/result.h"
#include "host/session/model.h"

namespace driver_feature::host {

struct Setting {
  std::string name;
  std::string value;
};

// Splits NAME=VALUE at the first equals sign. Refused without one and with an
// empty name.
Result<Setting> parseSetting(const std::string& text);

// Checks a setting in the present state of the features and stores it. A
// refused setting changes nothing. What is refused: a name that belongs to no
// feature, a feature without a value, what is unavailable, an option that the
// feature does not have, a number that does not convert whole or lies outside
// the limits, a text with more characters than allowed or with others than
// allowed, a value that is not safe in the feature's command
// (host/settings/value_safety.h). Characters are UTF-8 code points.
Result<> applySetting(const Model& model, const Setting& setting);

// applySetting() as the load routine of a session takes it.
Result<> applyLoadedSetting(const Model& model, const std::string& name, const std::string& value);

// The same checks, and nothing stored.
Result<> checkSetting(const Model& model, const Setting& setting);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SETTING_H_
