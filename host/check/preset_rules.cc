// Presets: whether they can be used.

#include <set>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/settings/settings_text.h"

namespace driver_feature::check {

namespace {

void reportLine(const AdditionSubject& subject, const host::Preset& preset,
                const host::Problem& problem, Findings& findings) {
  const std::string words = "preset " + host::inQuotes(preset.name) + ": ";
  const std::size_t end = std::min(problem.text.rfind("; "), problem.text.size());
  const std::string remedy =
      end < problem.text.size() ? problem.text.substr(end + 2) : "correct the line";
  findings.push_back(findingAt(subject, Code::kPresetSetting, {problem.file, problem.position},
                               words + problem.text.substr(0, end), remedy));
}

// Those that the defaults do not break either.
void checkAgainstRules(const AdditionSubject& subject, const host::Preset& preset,
                       const Values& values, Findings& findings) {
  for (const host::Rule& rule : subject.additions.rules.rules) {
    const bool isNew = holdsWith(rule, values) && !holdsWith(rule, subject.trial->defaults);
    if (!isNew || !isSound(subject, rule)) continue;
    findings.push_back(findingAt(
        subject, Code::kPresetBreaksRule, preset.place,
        "preset " + host::inQuotes(preset.name) + " breaks rule " + host::inQuotes(rule.id),
        "set one of the rule's features otherwise"));
  }
}

}  // namespace

void checkPresets(const AdditionSubject& subject, Findings& findings) {
  std::set<std::string> known;
  const std::vector<host::Preset>& presets = subject.additions.presets;
  for (std::size_t i = 0; i < presets.size(); ++i) {
    if (!known.insert(presets[i].name).second) {
      findings.push_back(
          findingAt(subject, Code::kRepeatedPreset, presets[i].place,
                    "there is a preset " + host::inQuotes(presets[i].name) + " already",
                    "give each preset a name of its own"));
      continue;
    }
    if (!subject.trial || i >= subject.trial->presets.size()) continue;
    const PresetTrial& trial = subject.trial->presets[i];
    for (const host::Problem& problem : trial.problems) {
      reportLine(subject, presets[i], problem, findings);
    }
    if (trial.values) checkAgainstRules(subject, presets[i], *trial.values, findings);
  }
}

}  // namespace driver_feature::check
