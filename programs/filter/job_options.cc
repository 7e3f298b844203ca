// What each option of a job means: a choice of the PPD, a feature, something
// that libcups knows, or work on the pages.

#include <algorithm>
#include <string_view>

#include "host/base/text.h"
#include "host/ppd/plain/keywords.h"
#include "host/settings/command_line_key.h"
#include "programs/filter/feature_key.h"
#include "programs/filter/job_settings.h"
#include "programs/filter/libcups_options.h"
#include "programs/filter/media_rule.h"
#include "programs/filter/messages.h"

namespace driver_feature::filter {

namespace {

const std::string kPageSize = "PageSize";
const std::string kMirror = "MirrorPrint";

std::string withoutCustom(const std::string& value) {
  constexpr std::string_view kCustom = "Custom.";
  return value.starts_with(kCustom) ? value.substr(kCustom.size()) : value;
}

bool hasChoice(const host::FeatureView& feature, const std::string& name) {
  const std::vector<host::Choice> choices = feature.choices();
  return std::any_of(choices.begin(), choices.end(),
                     [&name](const host::Choice& choice) { return choice.name == name; });
}

}  // namespace

void JobSettings::sort(const host::Setting& option) {
  if (isDirect_ && model_.features.contains(option.name)) return sortDirect(option);
  const auto keyword = ppd_ != nullptr ? ppd_->keywordOf(option.name) : std::nullopt;
  const auto feature = model_.features.find(keyword.value_or(option.name));
  const bool isChoice =
      feature == model_.features.end() || feature->second.kind() == host::FeatureKind::kMultiSelect;
  if (keyword && isChoice) return sortChoice(option, *keyword);
  if (feature != model_.features.end()) {
    const std::string value = keyword ? withoutCustom(option.value) : option.value;
    wish(option.name, {feature->first, value});
    return;
  }
  if (sortByKey(option)) return;
  sortUnknown(option);
}

// The PPD is there for the size of the sheets only.
void JobSettings::sortDirect(const host::Setting& option) {
  wish(option.name, option);
  if (ppd_->hasChoice(option.name, option.value)) forPpd_.push_back(option);
}

// A choice of the PPD. libcups does not give "PageRegion" a size of its own
// making; it means the same as such a "PageSize".
void JobSettings::sortChoice(const host::Setting& option, const std::string& keyword) {
  const bool isRegion = keyword == "PageRegion" && isCustom(option.value);
  const std::string& target = isRegion ? kPageSize : keyword;
  host::Result<> checked;
  if (isRegion && asksFor(kPageSize)) {
    checked = host::refused("it cannot be together with another PageSize; give one of them");
  } else if (!ppd_->hasChoice(target, option.value)) {
    // A PPD made of the description cannot have each of its choices.
    const auto feature = model_.features.find(target);
    if (feature != model_.features.end() && hasChoice(feature->second, option.value)) {
      return wish(option.name, {feature->first, option.value});
    }
    checked = host::refused("there is no choice \"" + option.value + "\"; choose one of " +
                            host::join(ppd_->choicesOf(keyword), ", "));
  } else if (target == kPageSize) {
    checked = checkCustomSize(option.value);
  }
  if (!checked) return refuse(option.name, checked.error().text);
  forPpd_.push_back({target, option.value});
  named_[target] = option.name;
  leaveToPages({target, option.value});
}

void JobSettings::wish(const std::string& option, const host::Setting& setting) {
  wishes_.push_back({option, setting, ""});
  leaveToPages(setting);
}

// A feature for the pages that writes nothing, but for tickets, leaves the pages as
// they are; then they are arranged here.
void JobSettings::leaveToPages(const host::Setting& setting) {
  if (!model_.features.contains(setting.name)) return;
  if (const auto forPages = settingWithoutCommands(model_, setting)) pages_.take(*forPages);
}

// An option of neither the PPD nor the features.
void JobSettings::sortUnknown(const host::Setting& option) {
  if (ppd_ != nullptr) {
    // A size that is asked for by name is stronger.
    const bool hasSize = asksFor(kPageSize) || asksFor("PageRegion");
    const host::Result<> checked = option.name == "media" && !hasSize
                                       ? checkMedia(*ppd_, option.value)
                                       : checkSides(*ppd_, option);
    if (!checked) return refuse(option.name, checked.error().text);
  }
  forPpd_.push_back(option);
  // libcups makes it a choice of the PPD.
  if (option.name == "mirror" && ppd_ != nullptr && ppd_->keywordOf(kMirror)) return;
  if (pages_.take(option)) return;
  if (ppd_ != nullptr && isKnownToLibcups(option.name) && ppd_->understands(option)) return;
  writeMessage(Message::kDebug,
               "option " + option.name + " is ignored, because this queue does not have it");
}

bool JobSettings::asksFor(const std::string& name) const {
  return std::any_of(
      arguments_->options.begin(), arguments_->options.end(),
      [&name](const host::Setting& option) { return ppd::equalKeywords(option.name, name); });
}

bool JobSettings::sortByKey(const host::Setting& option) {
  const auto feature = host::featureWithKey(model_, option.name);
  if (!feature) return false;
  const auto value = host::valueWithKey(model_, *feature, option.value);
  // A value that the feature does not know is then libcups' affair.
  if (!value && ppd_ != nullptr && isKnownToLibcups(option.name)) {
    const bool isStrict = option.name == "media" || option.name == "sides";
    if (!isStrict || ppd_->understands(option)) return false;
  }
  wish(option.name, {*feature, value.value_or(option.value)});
  return true;
}

}  // namespace driver_feature::filter
