// The properties of features and groups, by their names and types, as a driver
// author reads and writes them one by one.
#ifndef HOST_SESSION_PROPERTIES_H_
#define HOST_SESSION_PROPERTIES_H_

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/base/result.h"

#include "model/core_feature.h"

namespace driver_feature::host {

// Which overload of the library's operations takes a property.
enum class PropertyType { kText, kInt, kFloat, kBool };

struct PropertyEntry {
  const char* name;
  PropertyType type;
};

// All properties of features and groups, in the order in which they are shown.
// The library decides which of them an object accepts, and which it returns.
std::span<const PropertyEntry> properties();

// Their names in byte order.
const std::vector<std::string>& propertyNames();

// Nothing for an unknown name.
std::optional<PropertyType> typeOfProperty(const std::string& name);

// Stores a property through the overload of its type; the library decides
// whether to accept it, and nothing else is checked. Refused: an unknown name,
// a text that is not a value of the type (a bool is true, false, 1 or 0), and
// anything for which the library returns false.
Result<> writeProperty(CoreFeature& object, const std::string& name, const std::string& text);

// Reads a property through the overload of its type: a text as it is, a float
// as the shortest decimal number, a bool as true or false. Refused: an unknown
// name and anything for which the library returns false.
Result<std::string> readProperty(CoreFeature& object, const std::string& name);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_PROPERTIES_H_
