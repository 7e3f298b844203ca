#include "host/settings/settings_file.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "host/base/child_process.h"
#include "host/base/input_file.h"
#include "host/base/text.h"
#include "host/session/group_view.h"
#include "host/settings/settings_plan.h"
#include "host/settings/settings_text.h"

namespace driver_feature::host {

namespace {

constexpr const char* kHeading =
    "# Settings of driver-feature.\n"
    "# NAME=VALUE sets a feature. \"[GROUP]\" begins a record of a dynamic group.\n"
    "# In values: \\\\ backslash, \\s blank at an end, \\t tab, \\n line end, \\xNN byte.\n";

constexpr const char* kPresetHeading =
    "# A preset of driver-feature: what differs from the default values.\n";

// What people may save, and how much of it.
enum class Extent { kAll, kChanged };

std::string notSaved(const std::string& what, Extent extent) {
  // A preset is for everybody: nothing saves it there.
  const char* remedy = extent == Extent::kAll ? "; --save-secrets saves it" : "";
  return "# " + what + " not saved, being marked Encrypted" + remedy + ".\n";
}

// The first member of the group that is marked "Encrypted"; empty without one.
std::string secretMember(CoreFeatureSet& set, const Model& model, const std::string& name) {
  const auto group = findDynamicGroup(set, model.index, name);
  if (!group) return "";
  for (const std::string& member : group->memberNames()) {
    const auto feature = model.features.find(member);
    if (feature != model.features.end() && feature->second.isEncrypted()) return member;
  }
  return "";
}

std::string recordLines(CoreFeatureSet& set, const Model& model, const std::string& name) {
  const auto group = findDynamicGroup(set, model.index, name);
  if (!group) return "";
  const std::vector<std::string> members = group->memberNames();
  const std::vector<Record> records = group->records();
  if (records.empty()) return "\n" + noRecordsLine(name);
  std::string lines;
  for (const Record& record : records) {
    lines += "\n" + recordLine(name);
    for (std::size_t i = 0; i < members.size(); ++i) {
      const auto feature = model.features.find(members[i]);
      if (feature == model.features.end() || !feature->second.hasValue()) continue;
      lines += settingLine({members[i], record[i]});
    }
  }
  return lines;
}

// The refusals of the plan when it runs in a copy of the process.
Problems rehearse(CoreFeatureSet& set, const Model& model, const SettingsText& text) {
  const auto texts = runInChild(ChildStreams::kDropped, [&] {
    std::vector<std::string> lines;
    for (const Problem& refusal : applyLines(set, model, text)) {
      lines.push_back(std::to_string(refusal.position.line));
      lines.push_back(refusal.text);
    }
    return lines;
  });
  if (!texts) {
    return {problemAt(0,
                      "applying these settings ends the program, probably in a routine of the "
                      "description; remove lines to find which one")};
  }
  Problems refusals;
  for (std::size_t i = 0; i + 1 < texts->size(); i += 2) {
    int number = 0;
    const std::string& line = (*texts)[i];
    std::from_chars(line.data(), line.data() + line.size(), number);
    refusals.push_back(problemAt(number, (*texts)[i + 1]));
  }
  return refusals;
}

bool isRefused(const Problems& refusals, int line) {
  return std::any_of(refusals.begin(), refusals.end(),
                     [line](const Problem& refusal) { return refusal.position.line == line; });
}

// Finds an order in which every line is accepted, by moving refused lines back
// or forward: a line may be allowed by the value of another one, or be
// forbidden by it, and then keeps a value that was made before. Returns the
// refusals of the file's own order when no order is found.
Problems findOrder(CoreFeatureSet& set, const Model& model, SettingsText& text) {
  enum class Move { kAfter, kBefore };
  constexpr Move kMoves[] = {Move::kAfter, Move::kAfter, Move::kBefore, Move::kBefore};
  const Problems first = rehearse(set, model, text);
  Problems refusals = first;
  for (const Move move : kMoves) {
    if (refusals.empty()) break;
    std::stable_partition(text.features.begin(), text.features.end(),
                          [&refusals, move](const SettingsLine& line) {
                            return isRefused(refusals, line.line) == (move == Move::kBefore);
                          });
    refusals = rehearse(set, model, text);
  }
  return refusals.empty() ? refusals : first;
}

std::string featureLines(const Model& model, bool hides, Extent extent) {
  std::string text;
  for (const auto& [name, feature] : model.features) {
    const auto value = settingText(feature);
    const bool isLeftOut =
        feature.isAtDefault() && (!feature.isVisible() || extent == Extent::kChanged);
    if (!value || isLeftOut || !model.index.recordsOf(name).empty()) continue;
    text += hides && feature.isEncrypted() ? notSaved(printable(name) + " is", extent)
                                           : settingLine({name, *value});
  }
  return text;
}

std::string savedLines(CoreFeatureSet& set, const Model& model, Secrets secrets, Extent extent) {
  const bool hides = secrets == Secrets::kLeftOut;
  std::string text = featureLines(model, hides, extent);
  for (const GroupEntry& group : model.index.groups()) {
    if (group.kind != GroupKind::kDynamic) continue;
    const std::string lines = recordLines(set, model, group.name);
    const bool isNone = lines == "\n" + noRecordsLine(group.name);
    if (isNone && extent == Extent::kChanged) continue;
    const bool isSecret = hides && !isNone && !secretMember(set, model, group.name).empty();
    text += isSecret ? "\n" + notSaved("The records of " + printable(group.name) + " are", extent)
                     : lines;
  }
  return text;
}

}  // namespace

std::string composeSettings(CoreFeatureSet& set, const Model& model) {
  std::string text = kHeading;
  for (const auto& [name, feature] : model.features) {
    if (const auto value = settingText(feature)) text += settingLine({name, *value});
  }
  for (const GroupEntry& group : model.index.groups()) {
    if (group.kind == GroupKind::kDynamic) text += recordLines(set, model, group.name);
  }
  return text;
}

std::string composeSavedSettings(CoreFeatureSet& set, const Model& model, Secrets secrets) {
  return kHeading + savedLines(set, model, secrets, Extent::kAll);
}

std::string composePreset(CoreFeatureSet& set, const Model& model) {
  return kPresetHeading + savedLines(set, model, Secrets::kLeftOut, Extent::kChanged);
}

Result<> loadSettings(CoreFeatureSet& set, const Model& model, const std::string& file) {
  Result<std::string> bytes = readFile(file);
  if (!bytes) {
    bytes.error().remedy = "give a settings file";
    return failureOf(bytes);
  }
  Result<> loaded = loadSettingsText(set, model, *bytes);
  if (loaded) return loaded;
  loaded.error().file = file;
  for (Problem& refusal : loaded.error().more) refusal.file = file;
  return loaded;
}

Result<> loadSettingsText(CoreFeatureSet& set, const Model& model, std::string_view text) {
  SettingsText lines = parseSettings(text);
  Problems refusals = lines.refusals;
  const Problems more = findOrder(set, model, lines);
  refusals.insert(refusals.end(), more.begin(), more.end());
  if (refusals.empty()) refusals = applyLines(set, model, lines);
  if (refusals.empty()) return {};
  std::ranges::stable_sort(refusals, {}, &Problem::position);
  return failureOfAll(std::move(refusals));
}

std::optional<std::string> settingText(const FeatureView& feature) {
  switch (feature.kind()) {
    case FeatureKind::kMultiSelect:
      return feature.currentChoice();
    case FeatureKind::kIntEntry:
      return std::to_string(feature.currentInt());
    case FeatureKind::kTextEntry:
      return feature.currentText();
    case FeatureKind::kFloatEntry:
      return numberText(feature.currentFloat());
    default:
      return std::nullopt;
  }
}

}  // namespace driver_feature::host
