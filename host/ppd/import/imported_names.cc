#include "host/ppd/import/imported_names.h"

namespace driver_feature::ppd {

namespace {

const std::string& nameOf(const ImportedElement& element) {
  static const std::string kNone;
  for (const auto& [name, value] : element.attributes) {
    if (name == "Name") return value;
  }
  return kNone;
}

}  // namespace

void ImportedNames::add(const ImportedElement& element) {
  if (element.tag != "Feature") {
    for (const ImportedElement& child : element.children) add(child);
    return;
  }
  std::unordered_set<std::string>& options = features_[nameOf(element)];
  for (const ImportedElement& option : element.children) options.insert(nameOf(option));
}

}  // namespace driver_feature::ppd
