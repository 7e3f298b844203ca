// What IPP clients learn about a description, as plain data: read once from a
// session, and passed as JSON to a process that never loads the plug-in.
#ifndef HOST_IPP_CAPABILITIES_H_
#define HOST_IPP_CAPABILITIES_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/description/additions.h"
#include "host/description/feature_kind.h"
#include "host/session/model.h"
#include "host/settings/setting.h"

namespace driver_feature::ipp {

// One visible option of a list.
struct ChoiceCapability {
  std::string name;
  std::string key;         // "CLOKey".
  std::string ticketName;  // "TESKCommand".
  // Of a page size, in hundredths of a millimetre; 0 when it is not known.
  int width = 0;
  int height = 0;
  // Margins that cannot be printed on.
  int left = 0;
  int bottom = 0;
  int right = 0;
  int top = 0;

  bool hasSize() const { return width > 0 && height > 0; }
  bool operator==(const ChoiceCapability&) const = default;
};

// One visible feature that holds a value. Members of the records of a dynamic
// group are not among them.
struct FeatureCapability {
  std::string name;
  host::FeatureKind kind = host::FeatureKind::kTextEntry;  // A list, a number or a text.
  std::string group;        // The ticket name of the innermost group around it, or its name.
  std::string key;          // "CLOKey".
  std::string ticketName;   // The first of its names in tickets; empty without one.
  std::string syntax;       // "TESKAttributeSyntax".
  bool isHardware = false;  // Says what the printer has: set once, not with each job.
  bool isEncrypted = false;
  // Lists.
  std::vector<ChoiceCapability> choices;
  // The value without a job's settings; that of a list is the name of an option,
  // and empty when no visible one is chosen.
  std::string value;
  // Limits of numbers and of texts.
  std::optional<int> intMin;
  std::optional<int> intMax;
  std::optional<float> floatMin;
  std::optional<float> floatMax;
  std::optional<int> maxTextLength;  // In characters.
  std::string allowedCharacters;     // Empty: all.
  // A choice of another feature that makes this one available; without a name
  // when it is available already, or when no choice does it.
  host::Setting enabler = {};

  bool isList() const { return kind == host::FeatureKind::kMultiSelect; }
};

struct PresetCapability {
  std::string name;
  std::vector<host::Setting> settings;  // Those of features; records are left out.
};

struct ConditionCapability {
  std::string feature;
  host::Condition::Kind kind = host::Condition::Kind::kIs;
  std::vector<std::string> choices;
  double number = 0;
};

struct RuleCapability {
  std::string id;
  std::vector<ConditionCapability> conditions;
};

// Texts by their keys (host/description/texts.h).
struct LanguageCapability {
  std::string language;  // Empty for the description's own texts.
  std::map<std::string, std::string> texts;
};

struct Capabilities {
  std::vector<FeatureCapability> features;  // In the order of their names.
  std::string sizeFeature;                  // The list that chooses the page size; may be empty.
  std::vector<PresetCapability> presets;
  std::vector<RuleCapability> rules;
  std::vector<LanguageCapability> languages;  // In the description's order.

  const FeatureCapability* find(const std::string& feature) const;
};

// Reads a session's model in its present state, and what the description has
// beside its features. Tries choices to learn which of them make a feature
// available, and restores what it has changed.
Capabilities capabilitiesOf(const host::Model& model, const host::Additions& additions);

// The visible lists that say what the printer has.
std::vector<std::string> hardwareLists(const host::Model& model, const host::Additions& additions);

// As JSON in UTF-8, on one line without a line end. A byte that is not UTF-8
// comes back as it was.
std::string toJson(const Capabilities& capabilities);

// Problem: kMalformed for a text that toJson() has not made.
host::Result<Capabilities> capabilitiesFromJson(const std::string& text);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_CAPABILITIES_H_
