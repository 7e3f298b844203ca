#include "host/settings_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>

#include "host/group_view.h"
#include "host/input_file.h"
#include "host/process_copy.h"
#include "host/settings_plan.h"
#include "host/settings_text.h"

namespace driver_feature {

namespace {

constexpr const char* kHeading =
    "# Settings of driver-feature.\n"
    "# NAME=VALUE sets a feature. \"[GROUP]\" begins a record of a dynamic group.\n"
    "# In values: \\\\ backslash, \\s blank at an end, \\t tab, \\n line end, \\xNN byte.\n";

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

// The refusals that the plan has in a copy of the process.
std::vector<LineRefusal> rehearse(CoreFeatureSet& set, const Model& model,
                                  const SettingsText& text) {
  const auto texts = runInCopy(CopyStreams::kMuted, [&] {
    std::vector<std::string> told;
    for (const LineRefusal& refusal : applyLines(set, model, text)) {
      told.push_back(std::to_string(refusal.line));
      told.push_back(refusal.reason);
    }
    return told;
  });
  if (!texts) {
    return {{0,
             "the program ends when the settings are made, which a routine of the description may "
             "do; leave lines out to find the one"}};
  }
  std::vector<LineRefusal> refusals;
  for (std::size_t i = 0; i + 1 < texts->size(); i += 2) {
    LineRefusal refusal{0, (*texts)[i + 1]};
    const std::string& line = (*texts)[i];
    std::from_chars(line.data(), line.data() + line.size(), refusal.line);
    refusals.push_back(refusal);
  }
  return refusals;
}

bool isRefused(const std::vector<LineRefusal>& refusals, int line) {
  return std::any_of(refusals.begin(), refusals.end(),
                     [line](const LineRefusal& refusal) { return refusal.line == line; });
}

// Finds an order in which every line can be made, by making refused lines
// later or sooner: a line may be allowed by the value of another one, or be
// forbidden by it, and then keeps a value that was made before. Answers the
// refusals of the file's own order when no order is found.
std::vector<LineRefusal> findOrder(CoreFeatureSet& set, const Model& model, SettingsText& text) {
  enum class Move { kBehind, kBefore };
  constexpr Move kMoves[] = {Move::kBehind, Move::kBehind, Move::kBefore, Move::kBefore};
  const std::vector<LineRefusal> first = rehearse(set, model, text);
  std::vector<LineRefusal> refusals = first;
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

std::vector<std::string> loadSettings(CoreFeatureSet& set, const Model& model,
                                      const std::string& file) {
  std::string bytes;
  if (!readFile(file, bytes)) {
    return {file + ": cannot be read: " + std::strerror(errno) + "; give a settings file"};
  }
  SettingsText text = parseSettings(bytes);
  std::vector<LineRefusal> refusals = text.refusals;
  const std::vector<LineRefusal> more = findOrder(set, model, text);
  refusals.insert(refusals.end(), more.begin(), more.end());
  if (refusals.empty()) refusals = applyLines(set, model, text);
  std::stable_sort(refusals.begin(), refusals.end(),
                   [](const LineRefusal& a, const LineRefusal& b) { return a.line < b.line; });
  std::vector<std::string> told;
  for (const LineRefusal& refusal : refusals) {
    const std::string place = refusal.line > 0 ? ":" + std::to_string(refusal.line) : "";
    told.push_back(file + place + ": " + refusal.reason);
  }
  return told;
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

}  // namespace driver_feature
