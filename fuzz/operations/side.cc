#include "fuzz/operations/side.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace driver_feature::operations {

namespace {

// Routines that call back in may do so this deep, and so often in all: enough
// for every pair of operations to meet, little enough for every input to end.
constexpr int kDeepest = 3;
constexpr int kMostRuns = 60;

std::string shown(const Record& record) {
  std::string text = "{";
  for (const auto& [name, value] : record) text += quoted(name) + '=' + quoted(value) + ' ';
  return text + '}';
}

}  // namespace

std::string quoted(const std::string& text) {
  return '"' + text + '"';
}

std::string shown(bool value) {
  return value ? "true" : "false";
}

std::string shown(int value) {
  return std::to_string(value);
}

std::string shown(float value) {
  return std::isnan(value) ? "nan" : std::to_string(std::bit_cast<std::uint32_t>(value));
}

std::vector<std::string> Side::takeEvents() {
  return std::exchange(events_, {});
}

Host Side::host() {
  return {
      .log =
          [this](int level, const std::string& category, const std::string& text) {
            note("log " + std::to_string(level) + ' ' + category + ": " + text);
          },
      .update = [this] { runUpdateRoutine(); },
      .change = [this](int which) { runChangeRoutine(which); },
      .sort = [this](SortRule rule, Record& first,
                     Record& second) { return runSortRoutine(rule, first, second); },
      .load = [this](int mode) { return runLoadRoutine(mode); },
      .write = [this](std::string& text) { runTextRoutine(text); },
      .print = [this](const std::string& text) { note("standard output " + text); },
  };
}

void Side::runUpdateRoutine() {
  note("update callback");
  runScript(Routine::kUpdate);
}

void Side::runChangeRoutine(int which) {
  note("change routine " + std::to_string(which));
  runScript(which == 0 ? Routine::kChange0 : Routine::kChange1);
}

int Side::runLoadRoutine(int mode) {
  note("load routine " + std::to_string(mode));
  runScript(Routine::kLoad);
  random_ = random_ * 1103515245U + 12345U;
  return static_cast<int>(random_ / 65536U % 2);
}

// Does in the middle of an output what the load routine does.
void Side::runTextRoutine(std::string& text) {
  note("text routine after " + quoted(text));
  text += "<routine>";
  runScript(Routine::kLoad);
}

int Side::runSortRoutine(SortRule rule, Record& first, Record& second) {
  note("sort routine " + shown(first) + ' ' + shown(second));
  runScript(Routine::kSort);
  random_ = random_ * 1103515245U + 12345U;
  switch (rule) {
    case SortRule::kByValue:
      return first > second ? 7 : -1;
    case SortRule::kNeverSwap:
      return 0;
    case SortRule::kAlwaysSwap:
      return 1;
    case SortRule::kMeddling:
      first["Meddled"] = std::to_string(second.size());
      if (random_ / 65536U % 3 == 0) second.clear();
      break;
    case SortRule::kRandom:
      break;
  }
  return static_cast<int>(random_ / 65536U % 3) - 1;
}

void Side::runScript(Routine routine) {
  if (depth_ == kDeepest || runs_ == kMostRuns) return;
  ++depth_;
  ++runs_;
  for (const Operation& operation : program_.scripts[static_cast<std::size_t>(routine)]) {
    execute(operation);
  }
  --depth_;
}

}  // namespace driver_feature::operations
