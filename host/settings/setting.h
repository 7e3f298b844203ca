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

// What is shown in place of the value of a feature that is marked "Encrypted".
inline constexpr const char* kMask = "****";

// Splits NAME=VALUE at the first equals sign. Refused without one and with an
// empty name.
Result<Setting> parseSetting(const std::string& text);

// Checks a setting in the present state of the features and stores it. A
// refused setting changes nothing. Refused are a name that is not a feature's,
// a feature without a value, an unavailable feature or option, an option that
// the feature does not have, a number that does not convert as a whole or is
// outside the limits, a text with more characters than allowed or with others
// than allowed, a value that is not safe in the feature's command
// (host/settings/value_safety.h). Characters are UTF-8 code points.
Result<> applySetting(const Model& model, const Setting& setting);

// applySetting() in the form for the load routine of a session.
Result<> applyLoadedSetting(const Model& model, const std::string& name, const std::string& value);

// The same checks, without storing anything.
Result<> checkSetting(const Model& model, const Setting& setting);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SETTING_H_
