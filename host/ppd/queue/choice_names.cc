#include "host/ppd/queue/choice_names.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string_view>

#include "host/base/text.h"
#include "host/ppd/queue/ppd_names.h"
#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kDuplex = "Duplex";

// What descriptions call a choice of Duplex, in small letters.
struct DuplexName {
  std::string_view word;
  const char* name;
};
constexpr std::array<DuplexName, 18> kDuplexNames = {{{"none", "None"},
                                                      {"off", "None"},
                                                      {"false", "None"},
                                                      {"simplex", "None"},
                                                      {"onesided", "None"},
                                                      {"one-sided", "None"},
                                                      {"duplexnotumble", "DuplexNoTumble"},
                                                      {"longedge", "DuplexNoTumble"},
                                                      {"long-edge", "DuplexNoTumble"},
                                                      {"twosidedlongedge", "DuplexNoTumble"},
                                                      {"two-sided-long-edge", "DuplexNoTumble"},
                                                      {"duplextumble", "DuplexTumble"},
                                                      {"shortedge", "DuplexTumble"},
                                                      {"short-edge", "DuplexTumble"},
                                                      {"twosidedshortedge", "DuplexTumble"},
                                                      {"two-sided-short-edge", "DuplexTumble"},
                                                      {"simplextumble", "SimplexTumble"},
                                                      {"simplex-tumble", "SimplexTumble"}}};

std::optional<std::string> duplexName(const std::string& text) {
  const std::string word = host::toLower(text);
  const auto* found = std::find_if(kDuplexNames.begin(), kDuplexNames.end(),
                                   [&word](const DuplexName& row) { return row.word == word; });
  if (found == kDuplexNames.end()) return std::nullopt;
  return found->name;
}

bool takeDots(std::string_view& text) {
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  if (digits == 0 || digits > 5 || text.front() == '0') return false;
  text.remove_prefix(digits);
  return true;
}

std::optional<std::string> resolutionName(const std::string& text) {
  std::string_view rest = text;
  if (!takeDots(rest)) return std::nullopt;
  if (rest.starts_with('x')) {
    rest.remove_prefix(1);
    if (!takeDots(rest)) return std::nullopt;
  }
  if (rest.empty()) return text + "dpi";
  if (rest != "dpi") return std::nullopt;
  return text;
}

// The PPD's name of an option of a feature with fixed names.
std::optional<std::string> fixedNameOf(const host::Model& model, const std::string& feature,
                                       const std::string& option) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  CoreOption* choice =
      found != nullptr ? found->fetchOptionByName(std::string("Name"), option) : nullptr;
  if (choice == nullptr) return std::nullopt;
  for (const std::string property : {"Name", "CLOKey", "TESKCommand"}) {
    std::string text;
    if (!choice->getOptionProperty(property, text)) continue;
    std::optional<std::string> name = feature == kDuplex ? duplexName(text) : resolutionName(text);
    if (name) return name;
  }
  return std::nullopt;
}

// Why a PPD cannot have the choice; empty when it can.
std::string obstacleOf(const std::optional<std::string>& name) {
  if (!name) return "a PPD has other names for the choices of this option";
  if (host::toLower(*name) == "custom") return kNameOfOwnValues;
  return isChoiceName(*name) ? "" : "a PPD cannot have this name";
}

}  // namespace

bool hasName(const std::vector<NamedChoice>& choices, const std::string& name) {
  return std::any_of(choices.begin(), choices.end(),
                     [&name](const NamedChoice& choice) { return choice.name == name; });
}

bool hasFixedNames(const std::string& feature) {
  return feature == kDuplex || feature == "Resolution" || feature == "JCLResolution" ||
         feature == "SetResolution";
}

std::vector<NamedChoice> namedChoices(const host::Model& model, const std::string& name,
                                      const host::FeatureView& feature,
                                      std::vector<std::string>& losses) {
  std::vector<NamedChoice> choices;
  std::set<std::string> names;  // With small letters.
  for (const host::Choice& choice : feature.choices()) {
    // What an import calls it when none of the choices is set.
    if (!choice.visible || choice.name == "not set") continue;
    std::optional<std::string> inPpd = choice.name;
    if (hasFixedNames(name)) inPpd = fixedNameOf(model, name, choice.name);
    std::string obstacle = obstacleOf(inPpd);
    if (obstacle.empty() && !names.insert(host::toLower(*inPpd)).second) obstacle = kSameNameInPpd;
    if (obstacle.empty()) {
      choices.push_back({*inPpd, choice.name});
    } else {
      losses.push_back(name);
      losses.back().append("=").append(choice.name).append(": ").append(obstacle);
    }
  }
  return choices;
}

}  // namespace driver_feature::ppd
