// Feeds arbitrary settings files to their reader and to a model. A file that
// was read and written again reads the same; a refused file changes nothing;
// what is saved after an accepted one gives the same values and records.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/settings_model.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_plan.h"
#include "host/settings/settings_text.h"

namespace driver_feature::fuzz {
namespace {

constexpr std::size_t kLongestInput = 16384;

// A file is tried in copies of the process before it is loaded, which takes a
// thousand times as long as all the rest. A fuzzer does this for one input of
// many; a test for every one.
constexpr std::size_t kInputsPerFile = FUZZ_INPUTS_PER_FILE;

std::string write(const host::SettingsText& text) {
  std::string written;
  for (const host::SettingsLine& line : text.features) written += settingLine(line.setting);
  for (const host::SettingsRecord& record : text.records) {
    written += record.isNone ? host::noRecordsLine(record.group) : host::recordLine(record.group);
    for (const host::SettingsLine& member : record.members) written += settingLine(member.setting);
  }
  return written;
}

// All bytes, but not the line numbers, which may differ when written again.
std::string spell(const std::vector<host::SettingsLine>& lines) {
  std::string spelled;
  for (const auto& [line, setting] : lines) {
    spelled += std::to_string(setting.name.size()) + ":" + setting.name;
    spelled += std::to_string(setting.value.size()) + ":" + setting.value;
  }
  return spelled;
}

std::string spell(const host::SettingsText& text) {
  std::string spelled = spell(text.features);
  for (const host::SettingsRecord& record : text.records) {
    spelled += record.isNone ? "none " : "record ";
    spelled += std::to_string(record.group.size()) + ":" + record.group + spell(record.members);
  }
  return spelled;
}

void checkReading(const host::SettingsText& text, const std::string& input) {
  const auto lines = 1 + std::count(input.begin(), input.end(), '\n');
  for (const host::Problem& refusal : text.refusals) {
    const int line = refusal.position.line;
    require(line >= 1 && line <= lines, "a refused line is one of the file's");
    require(!refusal.text.empty(), "a refused line has a reason");
  }
  const std::string written = write(text);
  const host::SettingsText again = host::parseSettings(written);
  require(again.refusals.empty(), "what is written is not refused: " + written);
  require(spell(again) == spell(text), "what is written reads the same: " + written);
}

// What is saved after making the settings in the order of the file; nothing
// when a line is refused.
std::optional<std::string> savedAfter(const host::SettingsText& text) {
  const SettingsModel model;
  const auto refusals = applyLines(model.set(), model.model(), text);
  if (!refusals.empty() || !text.refusals.empty()) return std::nullopt;
  return composeSettings(model.set(), model.model());
}

// The same through a file, as a user does it. A refused file changes nothing.
std::optional<std::string> savedAfterLoading(const std::string& input) {
  const SettingsModel model;
  const MemoryFile file(input);
  const std::string before = model.state();
  const host::Result<> loaded = loadSettings(model.set(), model.model(), file.path());
  if (loaded) return composeSettings(model.set(), model.model());
  require(loaded.error().file == file.path(), "a refusal names the file");
  for (const host::Problem& refusal : loaded.error().more) {
    require(refusal.file == file.path(), "every refusal names the file");
  }
  require(model.state() == before, "a refused file changes nothing");
  return std::nullopt;
}

// Not every saved file can be made in the order of its lines; loading finds
// another order.
void checkSaved(const std::string& saved) {
  std::optional<std::string> again = savedAfter(host::parseSettings(saved));
  if (!again) again = savedAfterLoading(saved);
  require(again.has_value(), "what is saved can be loaded: " + saved);
  require(again == saved, "what is saved comes back: " + saved);
}

void tryInput(const std::string& input) {
  const host::SettingsText text = host::parseSettings(input);
  checkReading(text, input);
  const auto direct = savedAfter(text);
  if (direct) checkSaved(*direct);
  if (std::hash<std::string>()(input) % kInputsPerFile != 0) return;
  const auto loaded = savedAfterLoading(input);
  require(!direct || direct == loaded, "a file that needs no other order is loaded as it is");
  if (loaded && loaded != direct) checkSaved(*loaded);
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > driver_feature::fuzz::kLongestInput) return 0;
  driver_feature::fuzz::tryInput(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
