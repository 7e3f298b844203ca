// Values that would end the string, token or line in which a command writes
// them. The library writes values as the templates say and escapes nothing, so
// the program refuses such values.
#ifndef HOST_SETTINGS_VALUE_SAFETY_H_
#define HOST_SETTINGS_VALUE_SAFETY_H_

#include <string>

#include "host/settings/setting.h"

namespace driver_feature::host {

// Refuses a value of a feature that its PJL or PostScript command, with those
// of the groups around it, would put where the value can end the string, the
// token or the line around it. Only texts can do that, and numbers that are
// written as a character (%c). The commands are read as they are now. Nothing
// is refused when the model allows control characters, for other features, and
// for names that are not a feature's.
Result<> refuseUnsafeValue(const Model& model, const std::string& name, const std::string& value);

// The same for one property of a feature. Nothing is refused for properties
// that do not hold its value.
Result<> refuseUnsafeProperty(const Model& model, const std::string& name,
                              const std::string& property, const std::string& value);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_VALUE_SAFETY_H_
