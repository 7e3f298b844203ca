// What a program reads of a feature, through the feature's properties.
#ifndef HOST_SESSION_FEATURE_VIEW_H_
#define HOST_SESSION_FEATURE_VIEW_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/core_feature.h"
#include "model/core_feature_set.h"

#include "host/description/feature_kind.h"

namespace driver_feature::host {

// One option of a "MultiSelect" feature.
struct Choice {
  std::string name;
  bool available = true;
  bool visible = true;
};

// A view of one feature; it holds no copy, so every result is up to date. The
// feature belongs to the library and lives as long as the process.
class FeatureView {
 public:
  explicit FeatureView(IntermediateCoreFeature& feature) : feature_(&feature) {}

  FeatureKind kind() const;
  // "MultiSelect" and so on; "type N" for a code without a name.
  std::string typeName() const;
  bool hasValue() const { return holdsValue(kind()); }

  bool isAvailable() const { return flag("Sensitivity"); }
  bool isVisible() const { return flag("Visibility"); }
  bool isEncrypted() const { return flag("Encrypted"); }

  // The "DisplayText" of an option, which only routines set; empty without one.
  std::string displayTextOf(const std::string& option) const;

  // Whether the current value is the default one; true without a value.
  bool isAtDefault() const;

  int currentInt() const;
  float currentFloat() const;
  std::string currentText() const;
  // The name of a "MultiSelect" feature's current option; nothing when there
  // is none.
  std::optional<std::string> currentChoice() const;

  // The same of the default values.
  int defaultInt() const;
  float defaultFloat() const;
  std::string defaultText() const;
  std::optional<std::string> defaultChoice() const;

  // All options, in their order; none unless this is a "MultiSelect" feature.
  std::vector<Choice> choices() const;

  // The option at a position of choices(); null if there is none.
  IntermediateCoreOption* option(int position) const;

  // The template of "PJLCommand" or "PSCommand"; empty without one.
  std::string command(const std::string& property) const;

  // Stores the current value from a text. True when the library accepts it.
  bool setValue(const std::string& text) const;

 private:
  bool flag(const std::string& property) const;
  Choice choiceAt(int position) const;
  std::optional<std::string> nameAt(int position) const;

  IntermediateCoreFeature* feature_;
};

// A set's features by name, in the order in which the library writes them.
using FeatureMap = std::map<std::string, FeatureView>;
FeatureMap featuresOf(CoreFeatureSet& set);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_FEATURE_VIEW_H_
