// The properties of features and groups, by their names and types, as a driver
// author reads and writes them one by one.
#ifndef HOST_SHELL_PROPERTIES_H_
#define HOST_SHELL_PROPERTIES_H_

#include <optional>
#include <string>
#include <vector>

#include "host/settings.h"
#include "model/core_feature.h"

namespace driver_feature {

// Which overload of the library's operations takes a property.
enum class PropertyType { kText, kInt, kFloat, kBool };

// The names of all properties of features and groups, in byte order. Which of
// them an object takes, and whether it gives them back, the library decides.
const std::vector<std::string>& propertyNames();

// Nothing for a name that no object knows.
std::optional<PropertyType> typeOfProperty(const std::string& name);

// Stores a property through the overload of its type; the library decides
// about it, and nothing else is checked. Refused: an unknown name, a text that
// is no value of the type (bool takes true, false, 1 and 0), and what the
// library answers false to.
Refusal writeProperty(CoreFeature& object, const std::string& name, const std::string& text);

// Reads a property through the overload of its type: a text as it is, a float
// as the shortest decimal number, a bool as true or false. Refused: an unknown
// name and what the library answers false to.
Refusal readProperty(CoreFeature& object, const std::string& name, std::string& text);

}  // namespace driver_feature

#endif  // HOST_SHELL_PROPERTIES_H_
