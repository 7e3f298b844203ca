// Where the objects of a JSON array and their members are, which the JSON library
// does not report.
#ifndef HOST_SETTINGS_JSON_PLACES_H_
#define HOST_SETTINGS_JSON_PLACES_H_

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::host {

// An element of the array. Lines count from 1.
struct JsonPlace {
  int line = 0;
  std::map<std::string, int> members;  // The lines of an object's names.
};

// The elements of the array that is the text, which must be JSON.
std::vector<JsonPlace> jsonPlaces(std::string_view text);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_JSON_PLACES_H_
