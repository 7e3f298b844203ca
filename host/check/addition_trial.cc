// The values of a description's features, as the library has them.

#include <unistd.h>

#include "Log.h"

#include "host/base/child_process.h"
#include "host/check/addition_rules.h"
#include "host/session/host_routines.h"
#include "host/session/routine_calls.h"
#include "host/settings/preset_settings.h"

namespace driver_feature::check {

namespace {

constexpr unsigned kRoutineSeconds = 10;  // For a routine that does not return.

// What the child returns: rows of three texts. A row of the first kind begins a
// preset.
constexpr std::size_t kRowSize = 3;
constexpr const char* kPresetRow = "preset";
constexpr const char* kValueRow = "value";
constexpr const char* kRefusalRow = "refusal";  // Line and text.

void drop(int, const char*, const char*, std::size_t, void*) {}

class Rows {
 public:
  void add(const char* kind, std::string first, std::string second) {
    texts_.insert(texts_.end(), {kind, std::move(first), std::move(second)});
  }

  void add(const std::vector<host::Setting>& settings) {
    for (const host::Setting& setting : settings) add(kValueRow, setting.name, setting.value);
  }

  void add(const host::Problem& problem) {
    add(kRefusalRow, std::to_string(problem.position.line), problem.text);
    for (const host::Problem& more : problem.more) {
      add(kRefusalRow, std::to_string(more.position.line), more.text);
    }
  }

  std::vector<std::string> take() { return std::move(texts_); }

 private:
  std::vector<std::string> texts_;
};

std::vector<std::string> load(const host::Plugin& plugin, const host::Document& document,
                              const std::vector<host::Preset>& presets) {
  void* description = document.description();
  ::alarm(kRoutineSeconds);
  SetLogHandler(&drop, nullptr);
  plugin.setUpdateCallback(&DriverFeatureHostUpdate);
  host::noteRoutineCalls(description, "");
  if (plugin.handOver(description) != 1) ::_exit(1);
  plugin.completeCreation();
  host::Model model{host::featuresOf(plugin.features()), host::DescriptionIndex(description),
                    document.path(), &plugin.features()};
  model.allowance.clear();
  Rows rows;
  rows.add(host::currentSettings(model));
  for (const host::Preset& preset : presets) {
    rows.add(kPresetRow, "", "");
    const auto tried = tryPreset(plugin.features(), model, preset);
    tried ? rows.add(*tried) : rows.add(tried.error());
  }
  return rows.take();
}

void take(const host::Preset& preset, const std::string& line, const std::string& text,
          PresetTrial& trial) {
  host::Problem problem{host::Problem::Kind::kRefused, text, ""};
  problem.file = preset.settingsPlace.file;
  problem.position = {std::stoi(line), 0};
  trial.problems.push_back(std::move(problem));
  trial.values.reset();
}

}  // namespace

std::optional<ValueTrial> tryValues(const host::Plugin& plugin, const host::Document& document,
                                    const std::vector<host::Preset>& presets) {
  const auto texts = host::runInChild(host::ChildStreams::kDropped,
                                      [&] { return load(plugin, document, presets); });
  if (!texts) return std::nullopt;
  ValueTrial trial;
  for (std::size_t i = 0; i + kRowSize <= texts->size(); i += kRowSize) {
    const std::string& kind = (*texts)[i];
    const std::string& first = (*texts)[i + 1];
    const std::string& second = (*texts)[i + 2];
    if (kind == kPresetRow) {
      trial.presets.push_back({{}, Values()});
    } else if (kind == kRefusalRow) {
      take(presets[trial.presets.size() - 1], first, second, trial.presets.back());
    } else {
      (trial.presets.empty() ? trial.defaults : *trial.presets.back().values)[first] = second;
    }
  }
  return trial;
}

}  // namespace driver_feature::check
