// Options of which several choices can be made, in a PPD that is made of a
// description: its switches.

#include <algorithm>
#include <string>
#include <vector>

#include "host/base/text.h"
#include "host/ppd/queue/choice_names.h"
#include "host/ppd/queue/made_options.h"
#include "host/ppd/queue/ppd_names.h"
#include "host/settings/settings_file.h"

namespace driver_feature::ppd {

std::optional<host::SwitchName> MadeOptionWriter::switchOf(const std::string& name,
                                                           const host::FeatureView& feature) {
  if (feature.kind() != host::FeatureKind::kMultiSelect || name.find('.') == std::string::npos) {
    return std::nullopt;
  }
  std::vector<std::string> options;
  for (const host::Choice& choice : feature.choices()) {
    if (choice.visible) options.push_back(choice.name);
  }
  return host::switchNameOf(name, options);
}

// The switches of one thing, in the order of the description. Hardware has a group
// of its own, so that switches of both kinds cannot be one option.
std::vector<MadeOptionWriter::Switch> MadeOptionWriter::switchesOf(const std::string& thing,
                                                                   bool isHardware) const {
  std::vector<Switch> switches;
  for (auto each = model_.features.lower_bound(thing + ".");
       each != model_.features.end() && each->first.starts_with(thing + "."); ++each) {
    const auto& [name, feature] = *each;
    const bool isOffered = feature.isVisible() && !feature.isEncrypted() &&
                           model_.index.recordsOf(name).empty() &&
                           hardware_.contains(name) == isHardware;
    const auto parts = isOffered ? switchOf(name, feature) : std::nullopt;
    if (!parts) continue;
    const bool isOn = feature.currentChoice().value_or("") == host::kSwitchedOn;
    switches.push_back({name, parts->choice, isOn});
  }
  std::stable_sort(
      switches.begin(), switches.end(), [this](const Switch& one, const Switch& other) {
        return model_.index.limitsOf(one.feature).line < model_.index.limitsOf(other.feature).line;
      });
  return switches;
}

// Why a PPD cannot have the option; empty when it can.
std::string MadeOptionWriter::obstacleOf(const std::string& thing,
                                         const std::vector<Switch>& switches) {
  if (!isOptionName(thing, true)) return "a PPD cannot have this name";
  if (hasFixedNames(thing)) return "a PPD has other names for the choices of this option";
  if (model_.features.contains(thing) || !names_.insert(host::toLower(thing)).second) {
    return kSameNameInPpd;
  }
  const auto isOn = [](const Switch& each) { return each.isOn; };
  const bool hasDefault = std::count_if(switches.begin(), switches.end(), isOn) < 2;
  return hasDefault ? "" : "a PPD has one default choice of " + thing + " at most";
}

// Those whose names a PPD can have. The others are losses.
std::vector<MadeOptionWriter::Switch> MadeOptionWriter::withUsableNames(
    const std::vector<Switch>& switches) {
  std::vector<Switch> usable;
  std::set<std::string> known = {"custom"};  // For values of the user's own.
  for (const Switch& each : switches) {
    if (!isChoiceName(each.choice)) {
      lose(each.feature, "a PPD cannot have this name");
    } else if (!known.insert(host::toLower(each.choice)).second) {
      lose(each.feature,
           host::toLower(each.choice) == "custom" ? kNameOfOwnValues : kSameNameInPpd);
    } else {
      usable.push_back(each);
    }
  }
  return usable;
}

// Writes all switches of the thing when the first of them comes.
void MadeOptionWriter::addSwitches(const std::string& feature, const std::string& thing) {
  if (switches_.contains(feature)) return;
  std::vector<Switch> switches = switchesOf(thing, hardware_.contains(feature));
  for (const Switch& each : switches) switches_.insert(each.feature);
  const std::string obstacle = obstacleOf(thing, switches);
  if (!obstacle.empty()) {
    for (const Switch& each : switches) lose(each.feature, obstacle);
    return;
  }
  switches = withUsableNames(switches);
  if (switches.empty()) return;
  const auto on =
      std::find_if(switches.begin(), switches.end(), [](const Switch& each) { return each.isOn; });
  open(thing, on != switches.end() ? on->choice : kUnknown, thing, "PickMany");
  for (const Switch& each : switches) {
    const std::string place = thing + " " + each.choice;
    line("*", place, texts_.textFor(place, each.feature), ": \"\"");
    options_[each.feature] = {thing, {{each.choice, host::kSwitchedOn}}, true};
  }
  line("*CloseUI: *" + thing);
}

}  // namespace driver_feature::ppd
