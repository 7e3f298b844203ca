// The rules of the check for what a description has beside its features. Each
// adds its findings in any order.
#ifndef HOST_CHECK_ADDITION_RULES_H_
#define HOST_CHECK_ADDITION_RULES_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/check/feature_table.h"
#include "host/check/findings.h"
#include "host/description/additions.h"
#include "host/session/plugin.h"

namespace driver_feature::check {

// The values of features, as settings write them.
using Values = std::map<std::string, std::string>;

// The result of a preset in the library.
struct PresetTrial {
  host::Problems problems;       // The refused lines.
  std::optional<Values> values;  // With the preset; nothing when it is refused.
};

// The values of a loaded description.
struct ValueTrial {
  Values defaults;
  std::vector<PresetTrial> presets;  // In their order.
};

// Loads the description in a child process, and tries each preset in a copy of
// it. Nothing when the child does not finish.
std::optional<ValueTrial> tryValues(const host::Plugin& plugin, const host::Document& document,
                                    const std::vector<host::Preset>& presets);

struct AdditionSubject {
  const host::Document& document;
  const host::Additions& additions;
  const FeatureTable& features;
  const std::optional<ValueTrial>& trial;
  std::string language;  // To be complete; may be empty.
};

void checkReading(const AdditionSubject& subject, Findings& findings);
void checkRules(const AdditionSubject& subject, Findings& findings);
// Finds what rules forbid together. `rules` are those without a fault.
void checkTogether(const AdditionSubject& subject, std::vector<host::Rule> rules,
                   Findings& findings);
void checkHardware(const AdditionSubject& subject, Findings& findings);
void checkTranslations(const AdditionSubject& subject, Findings& findings);
void checkPresets(const AdditionSubject& subject, Findings& findings);
void checkPanels(const AdditionSubject& subject, Findings& findings);
void checkMedia(const AdditionSubject& subject, Findings& findings);

// All of them.
Findings applyAdditionRules(const AdditionSubject& subject);

// A finding at a place, which may be in a file beside the description.
Finding findingAt(const AdditionSubject& subject, Code code, const host::SourcePlace& place,
                  std::string sentence, std::string remedy);

// Whether all conditions of the rule hold with these values.
bool holdsWith(const host::Rule& rule, const Values& values);

// Whether the rule can be judged: all it names exists and fits.
bool isSound(const AdditionSubject& subject, const host::Rule& rule);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_ADDITION_RULES_H_
