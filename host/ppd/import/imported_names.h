// The features that an import has created, and the names of their options.
#ifndef HOST_PPD_IMPORT_IMPORTED_NAMES_H_
#define HOST_PPD_IMPORT_IMPORTED_NAMES_H_

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "host/ppd/import/imported_element.h"

namespace driver_feature::ppd {

class ImportedNames {
 public:
  // Of a description's element.
  explicit ImportedNames(const ImportedElement& description) { add(description); }

  bool hasFeature(const std::string& feature) const { return features_.contains(feature); }
  bool hasOption(const std::string& feature, const std::string& option) const {
    const auto found = features_.find(feature);
    return found != features_.end() && found->second.contains(option);
  }

 private:
  void add(const ImportedElement& element);

  std::unordered_map<std::string, std::unordered_set<std::string>> features_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_IMPORTED_NAMES_H_
