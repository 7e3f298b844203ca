// The types of features, and the words that descriptions have for them.
#ifndef HOST_DESCRIPTION_FEATURE_KIND_H_
#define HOST_DESCRIPTION_FEATURE_KIND_H_

#include <optional>
#include <string>
#include <vector>

namespace driver_feature::host {

// The library's feature-type codes.
enum class FeatureKind : int {
  kUIOnly = 0,
  kMultiSelect = 1,
  kIntEntry = 2,
  kTextEntry = 3,
  kFloatEntry = 4,
  kMVCList = 5,
};

// The words of the attribute "FeatureType", in the order of their codes.
const std::vector<std::string>& featureTypeWords();

const char* wordOf(FeatureKind kind);

// Nothing for a word that does not name a type.
std::optional<FeatureKind> kindNamed(const std::string& word);

// Whether features of the type hold a value that can be set.
bool holdsValue(FeatureKind kind);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_FEATURE_KIND_H_
