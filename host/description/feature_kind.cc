#include "host/description/feature_kind.h"

#include <algorithm>

namespace driver_feature::host {

const std::vector<std::string>& featureTypeWords() {
  static const std::vector<std::string> kWords = {"UIOnly",    "MultiSelect", "IntEntry",
                                                  "TextEntry", "FloatEntry",  "MVCList"};
  return kWords;
}

const char* wordOf(FeatureKind kind) {
  return featureTypeWords()[static_cast<std::size_t>(kind)].c_str();
}

std::optional<FeatureKind> kindNamed(const std::string& word) {
  const auto& words = featureTypeWords();
  const auto found = std::find(words.begin(), words.end(), word);
  if (found == words.end()) return std::nullopt;
  return static_cast<FeatureKind>(found - words.begin());
}

bool holdsValue(FeatureKind kind) {
  switch (kind) {
    case FeatureKind::kMultiSelect:
    case FeatureKind::kIntEntry:
    case FeatureKind::kTextEntry:
    case FeatureKind::kFloatEntry:
      return true;
    default:
      return false;
  }
}

}  // namespace driver_feature::host
