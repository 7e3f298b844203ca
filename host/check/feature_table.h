// The features of a description by name, as rules, texts and presets see them.
#ifndef HOST_CHECK_FEATURE_TABLE_H_
#define HOST_CHECK_FEATURE_TABLE_H_

#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/description/element.h"

namespace driver_feature::check {

struct FeatureRow {
  const host::Element* element = nullptr;
  std::vector<std::string> options;  // In their order.
  std::set<std::string> optionSet;   // The same.
  bool isVisible = true;             // To people.
};

class FeatureTable {
 public:
  // The element must outlive it.
  explicit FeatureTable(const host::Element& description);

  // Null without a feature of that name. Of two of a name, the last one, as in
  // the library.
  const FeatureRow* find(const std::string& name) const;

  const std::map<std::string, FeatureRow>& features() const { return features_; }
  std::vector<std::string> names() const;
  const std::set<std::string>& groups() const { return groups_; }

 private:
  std::map<std::string, FeatureRow> features_;
  std::set<std::string> groups_;
};

}  // namespace driver_feature::check

#endif  // HOST_CHECK_FEATURE_TABLE_H_
