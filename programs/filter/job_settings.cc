#include "programs/filter/job_settings.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "host/settings/settings_file.h"
#include "host/settings/command_line_key.h"
#include "programs/filter/messages.h"

namespace driver_feature::filter {

namespace {

constexpr const char* kPageRegion = "PageRegion";
constexpr const char* kSizeOption = "PageSize";
constexpr const char* kMirrorPrint = "MirrorPrint";

std::string keywordPart(const std::string& name) {
  return name.substr(0, name.find('.'));
}

}  // namespace

bool JobSettings::apply(const FilterArguments& arguments) {
  arguments_ = &arguments;
  for (const host::Setting& option : arguments.options) sort(option);
  copiesFeature_ = copiesFeature();
  if (!settlePages()) return false;
  leaveSizeUnset();
  addCopies(arguments.copies);
  addDefault("job-name", harmless(arguments.title));
  addDefault("user-name", harmless(arguments.user));
  for (;;) {
    std::vector<Wish> refused = settle(collect());
    for (Wish& wish : refused) {
      if (wish.option.empty()) wish.option = translated(wish.setting);
    }
    bool again = false;
    for (const Wish& wish : refused) {
      if (wish.option.empty()) {
        writeMessage(Message::kDebug, "the queue's default of " + wish.setting.name +
                                          " is not used: " + wish.reason);
        continue;
      }
      refuse(wish.option, wish.reason);
      again = drop(wish.option) || again;
    }
    if (!again || hasFailed_) return !hasFailed_ && keepRules();
  }
}

// What the job asks for other than the queue's defaults has been set by a
// person.
void JobSettings::noteAsked() {
  std::vector<host::Setting> usual;
  if (takesMarks()) {
    ppd_->mark({});
    usual = ppd_->marked();
  }
  const auto isUsual = [&usual](const host::Setting& setting) {
    return std::any_of(usual.begin(), usual.end(), [&setting](const host::Setting& other) {
      return other.name == setting.name && other.value == setting.value;
    });
  };
  if (takesMarks()) {
    for (const Wish& wish : marked()) {
      if (!isUsual(wish.setting)) keeper_.noteSet(wish.setting.name);
    }
  }
  for (const Wish& wish : wishes_) {
    if (!wish.option.empty() && !isUsual(wish.setting)) keeper_.noteSet(wish.setting.name);
  }
}

bool JobSettings::keepRules() {
  const bool asksForNothing = arguments_->options.empty() && arguments_->copies == 1;
  if (asksForNothing || rules_ == host::RuleConduct::kIgnore || !keeper_.hasRules()) return true;
  noteAsked();
  const bool mends = refusedValue_ == RefusedValue::kDefault;
  const auto kept = keeper_.keep(mends ? host::RuleConduct::kMend : rules_);
  if (kept) {
    for (const std::string& line : *kept) writeMessage(Message::kWarning, line);
    return true;
  }
  const std::string reason = describe(kept.error());
  if (mends) writeMessage(Message::kWarning, reason + "; the job is printed as it is");
  if (!mends) writeMessage(Message::kError, reason);
  return mends;
}

// Who works on the pages. The scheduler's filter mirrors them for the PPD's own
// choice as well, and that choice is written all the same, as for a queue without
// a description.
bool JobSettings::settlePages() {
  if (ppd_ != nullptr) ppd_->mark(forPpd_);
  const bool isMirrored = ppd_ != nullptr && ppd_->isMarked(kMirrorPrint, "True");
  if (isMirrored) pages_.takeMirror();
  const host::Result<> decided = pages_.decide(takesCopies());
  if (!decided) writeMessage(Message::kError, decided.error().text);
  return decided.has_value();
}

bool JobSettings::isSizeChosen(const std::string& unset) const {
  if (asksFor(kSizeOption) || asksFor(kPageRegion) || !ppd_->isMarked(kSizeOption, unset))
    return true;
  return std::any_of(forPpd_.begin(), forPpd_.end(), [&unset](const host::Setting& option) {
    const bool isNamed = ("," + option.value + ",").find("," + unset + ",") != std::string::npos;
    return option.name == "media" && isNamed;
  });
}

// Some printers take the size of the tray until somebody chooses one; the PPD has a
// default all the same.
void JobSettings::leaveSizeUnset() {
  if (!takesMarks() || !model_.features.contains(kSizeOption)) return;
  for (const std::string& unset : ppd_->attributes("DriverFeatureUnsetSize")) {
    if (!isSizeChosen(unset)) wishes_.push_back({"", {kSizeOption, "not set"}, ""});
  }
}

std::string JobSettings::copiesFeature() const {
  std::string name = "Copies";
  if (!model_.features.contains(name)) name = host::featureWithKey(model_, "copies").value_or("");
  const auto feature = model_.features.find(name);
  const bool isCount =
      feature != model_.features.end() && feature->second.kind() == host::FeatureKind::kIntEntry;
  return isCount ? name : "";
}

// Copies that the pages make are not made once more, whatever the job asks of the
// feature.
void JobSettings::addCopies(int copies) {
  if (copiesFeature_.empty()) return;
  if (pages_.makesCopies()) {
    std::erase_if(wishes_, [this](const Wish& one) { return one.setting.name == copiesFeature_; });
    copies = 1;
  }
  if (isAsked(copiesFeature_)) return;
  wishes_.push_back({"copies", {copiesFeature_, std::to_string(copies)}, ""});
}

int JobSettings::copiesMade(int asked) const {
  if (copiesFeature_.empty()) return asked;
  const std::string text = settingText(model_.features.at(copiesFeature_)).value_or("");
  int made = asked;
  std::from_chars(text.data(), text.data() + text.size(), made);
  return std::max(made, 1);
}

void JobSettings::markAll() {
  if (ppd_ == nullptr) return;
  std::vector<host::Setting> options = forPpd_;
  for (const Wish& wish : wishes_) {
    const bool isChoice = ppd_->hasChoice(wish.setting.name, wish.setting.value);
    if (isChoice && wish.reason.empty()) options.push_back(wish.setting);
  }
  ppd_->mark(options);
}

// A feature that is named after something that every job has gets it, unless
// its value is refused or an option asks for another one.
void JobSettings::addDefault(const std::string& key, const std::string& value) {
  const auto feature = host::featureWithKey(model_, key);
  if (feature && !isAsked(*feature)) wishes_.push_back({"", {*feature, value}, ""});
}

bool JobSettings::isAsked(const std::string& feature) const {
  return std::any_of(wishes_.begin(), wishes_.end(),
                     [&feature](const Wish& wish) { return wish.setting.name == feature; });
}

std::vector<JobSettings::Wish> JobSettings::collect() {
  std::vector<Wish> all = takesMarks() ? marked() : std::vector<Wish>();
  all.insert(all.end(), wishes_.begin(), wishes_.end());
  return all;
}

// What the PPD's marked choices mean for the features.
std::vector<JobSettings::Wish> JobSettings::marked() {
  ppd_->mark(forPpd_);
  std::vector<Wish> wishes;
  std::string parameter;  // The value of the last parameter of a custom choice.
  for (host::Setting& setting : ppd_->marked()) {
    const auto feature = model_.features.find(setting.name);
    if (feature == model_.features.end()) {
      parameter = setting.value;
      continue;
    }
    const bool isChoice = feature->second.kind() == host::FeatureKind::kMultiSelect;
    const bool isOption = setting.name == keywordPart(setting.name);
    if (!isChoice && isOption && setting.value == "not set") continue;
    if (!isChoice && isOption && setting.value == "Custom") setting.value = parameter;
    const auto option = named_.find(keywordPart(setting.name));
    wishes.push_back({option != named_.end() ? option->second : "", std::move(setting), ""});
  }
  return wishes;
}

bool JobSettings::isMarkedBy(const std::vector<host::Setting>& options,
                             const host::Setting& setting) const {
  ppd_->mark(options);
  const std::vector<host::Setting> marked = ppd_->marked();
  return std::any_of(marked.begin(), marked.end(), [&setting](const host::Setting& other) {
    return other.name == setting.name && other.value == setting.value;
  });
}

// The job's option that libcups has turned into the setting, such as "media";
// empty when it is a default.
std::string JobSettings::translated(const host::Setting& setting) const {
  if (ppd_ == nullptr) return "";
  std::string name;
  if (!isMarkedBy({}, setting)) {
    const auto option = std::find_if(forPpd_.begin(), forPpd_.end(), [&](const host::Setting& one) {
      return !named_.contains(one.name) && isMarkedBy({one}, setting);
    });
    if (option != forPpd_.end()) name = option->name;
  }
  ppd_->mark(forPpd_);
  return name;
}

// Applies the wishes, and again those that were refused as long as others have
// changed something: an option may be available because of another one.
// Returns the wishes that remain refused.
std::vector<JobSettings::Wish> JobSettings::settle(std::vector<Wish> wishes) const {
  for (std::size_t before = wishes.size() + 1; wishes.size() < before;) {
    before = wishes.size();
    std::erase_if(wishes, [this](Wish& wish) { return isDone(wish); });
  }
  return wishes;
}

bool JobSettings::isDone(Wish& wish) const {
  const auto feature = model_.features.find(wish.setting.name);
  if (feature != model_.features.end() && settingText(feature->second) == wish.setting.value) {
    return true;
  }
  const host::Result<> applied = applySetting(model_, wish.setting);
  wish.reason = applied ? "" : applied.error().text;
  return applied.has_value();
}

void JobSettings::refuse(const std::string& option, const std::string& reason) {
  if (refusedValue_ == RefusedValue::kFail) {
    hasFailed_ = true;
    writeMessage(Message::kError, "option " + option + ": " + reason);
  } else {
    writeMessage(Message::kWarning,
                 "option " + option + ": " + reason + "; the queue's default is used instead");
  }
}

// Takes an option back. False when that changes nothing.
bool JobSettings::drop(const std::string& option) {
  const auto taken = std::erase_if(wishes_, [&](const Wish& w) { return w.option == option; });
  std::string keyword = option;  // Of one that libcups translates, its own name.
  for (const auto& [name, asked] : named_) {
    if (asked == option) keyword = name;
  }
  named_.erase(keyword);
  return std::erase_if(forPpd_, [&](const host::Setting& s) { return s.name == keyword; }) + taken >
         0;
}

}  // namespace driver_feature::filter
