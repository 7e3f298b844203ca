// Feeds arbitrary documents to the reading of rules, texts, presets and media
// sizes. With and without the places of columns the same is read; all that is
// read can be named, and every place is in the document.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "Log.h"

#include "host/description/additions.h"

namespace driver_feature::fuzz {
namespace {

constexpr std::size_t kLongestInput = 65536;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

void keepSilent(int, const char*, const char*, std::size_t, void*) {}

class Places {
 public:
  explicit Places(const std::string& text)
      : lines_(1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'))) {}

  void check(host::Position place) const {
    require(place.line >= 1 && place.line <= lines_, "a place is in the document");
  }

 private:
  int lines_;
};

void checkRules(const host::Rules& rules, const Places& places) {
  for (const host::Rule& rule : rules.rules) {
    places.check(rule.place.position);
    require(!rule.id.empty() && !rule.conditions.empty(), "a rule has a name and conditions");
    for (const host::Condition& condition : rule.conditions) {
      places.check(condition.place.position);
      const bool isNumber = condition.kind == host::Condition::Kind::kAbove ||
                            condition.kind == host::Condition::Kind::kBelow;
      require(isNumber == condition.choices.empty(), "a condition says one thing");
      require(std::isfinite(condition.number), "a limit is a number");
      require(condition.choices.size() == condition.choicePositions.size(),
              "every choice has a place");
    }
  }
}

void checkOthers(const host::Additions& additions, const Places& places) {
  for (const host::TextsOfLanguage& language : additions.texts) {
    require(!language.language.empty(), "texts have a language");
    const host::TextLookUp texts(additions.texts, language.language);
    for (const host::Text& text : language.texts) {
      places.check(text.place.position);
      require(text.text.empty() || texts.textOf(text.key, "") != "", "a text is found");
    }
  }
  for (const host::Preset& preset : additions.presets) {
    places.check(preset.settingsPlace.position);
    require(!preset.name.empty(), "a preset has a name");
  }
  for (const host::Panel& panel : additions.panels) {
    places.check(panel.place.position);
    require(!panel.name.empty(), "a panel has a name");
    for (const host::PanelMember& member : panel.members) {
      places.check(member.place.position);
      require(!member.feature.empty(), "a member is a feature");
    }
  }
  for (const host::MediaSize& size : additions.media.sizes) {
    require(!size.option.empty() && std::isfinite(size.width), "a size has an option and a width");
  }
  for (const host::Problem& problem : additions.problems) {
    places.check(problem.position);
    require(!problem.text.empty() && !problem.remedy.empty(), "a problem says what to do");
  }
}

void tryDocument(const std::string& text) {
  // Standard input has no files beside it.
  auto document = host::Document::ofText(host::kStandardInput, text);
  if (!document) return;
  const host::Additions exact = readAdditions(*document);
  document->dropText();
  const host::Additions coarse = readAdditions(*document);
  const Places places(text);
  checkRules(exact.rules, places);
  checkOthers(exact, places);
  require(exact.rules.rules.size() == coarse.rules.rules.size() &&
              exact.rules.hardware.size() == coarse.rules.hardware.size() &&
              exact.texts.size() == coarse.texts.size() &&
              exact.presets.size() == coarse.presets.size() &&
              exact.media.sizes.size() == coarse.media.sizes.size() &&
              exact.problems.size() == coarse.problems.size(),
          "columns do not change what is read");
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > driver_feature::fuzz::kLongestInput) return 0;
  SetLogHandler(driver_feature::fuzz::keepSilent, nullptr);
  driver_feature::fuzz::tryDocument(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
