#include "host/ppd/plain/plain_queue_ppd.h"

#include <algorithm>
#include <utility>

#include "host/base/input_file.h"
#include "host/ppd/plain/job_language.h"
#include "host/ppd/plain/keywords.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kNotSet = "not set";

bool hasChoicesAsDefaults(const PlainText& text) {
  return std::all_of(text.options.begin(), text.options.end(), [](const PlainOption& option) {
    return option.defaultName.empty() || option.find(option.defaultName);
  });
}

// Options in the order in which libcups marks them. Of several with one name the
// last has effect.
std::vector<host::Setting> sortedOptions(const std::vector<host::Setting>& options) {
  std::vector<host::Setting> sorted;
  for (const host::Setting& option : options) {
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), option,
                                        [](const auto& left, const auto& right) {
                                          return compareKeywords(left.name, right.name) < 0;
                                        });
    if (place != sorted.end() && equalKeywords(place->name, option.name)) {
      place->value = option.value;
    } else {
      sorted.insert(place, option);
    }
  }
  return sorted;
}

}  // namespace

std::unique_ptr<PlainQueuePpd> PlainQueuePpd::open(const std::string& path) {
  host::Result<std::string> bytes = host::readFile(path);
  if (!bytes) return nullptr;
  std::unique_ptr<PlainQueuePpd> ppd = of(path, std::move(*bytes));
  if (!ppd) return nullptr;
  const PlainText& text = ppd->text_;
  if (text.attribute(kStampKeyword) != text.stamp || !hasChoicesAsDefaults(text)) return nullptr;
  if (equalKeywords(text.attribute("DefaultOutputOrder").value_or(""), "Reverse")) return nullptr;
  return ppd;
}

std::unique_ptr<PlainQueuePpd> PlainQueuePpd::of(const std::string& path, std::string text) {
  auto bytes = std::make_unique<const std::string>(std::move(text));
  std::optional<PlainText> read = readPlainText(*bytes);
  if (!read) return nullptr;
  std::unique_ptr<PlainQueuePpd> ppd(new PlainQueuePpd(path, std::move(bytes), std::move(*read)));
  return ppd;
}

PlainQueuePpd::PlainQueuePpd(const std::string& path, std::unique_ptr<const std::string> bytes,
                             PlainText text)
    : path_(path),
      bytes_(std::move(bytes)),
      text_(std::move(text)),
      foreignNames_(PlainQueuePpd::attributes("DriverFeatureChoice")),
      marks_(text_.options.size()),
      pageSize_(optionNamed("PageSize")),
      pageRegion_(optionNamed("PageRegion")),
      inputSlot_(optionNamed("InputSlot")),
      manualFeed_(optionNamed("ManualFeed")) {}

bool PlainQueuePpd::knows(const host::Setting& option) const {
  const Place place = optionNamed(option.name);
  return !place || hasChoice(option.name, option.value);
}

std::vector<std::string> PlainQueuePpd::attributes(const std::string& name) const {
  std::vector<std::string> values;
  for (const auto& [each, value] : text_.attributes) {
    if (each == name) values.emplace_back(value);
  }
  return values;
}

PlainQueuePpd::Place PlainQueuePpd::optionNamed(std::string_view name) const {
  for (std::size_t i = 0; i < text_.options.size(); ++i) {
    if (equalKeywords(text_.options[i].keyword, name)) return i;
  }
  return std::nullopt;
}

std::optional<std::string> PlainQueuePpd::keywordOf(const std::string& option) const {
  const Place place = optionNamed(option);
  if (!place) return std::nullopt;
  return std::string(text_.options[*place].keyword);
}

bool PlainQueuePpd::hasChoice(const std::string& option, const std::string& value) const {
  const Place place = optionNamed(option);
  return place && text_.options[*place].find(foreignNames_.choiceNamed(option, value));
}

bool PlainQueuePpd::understands(const host::Setting& option) {
  return hasChoice(option.name, option.value);
}

std::vector<std::string> PlainQueuePpd::choicesOf(const std::string& option) const {
  std::vector<std::string> names;
  const Place place = optionNamed(option);
  if (!place) return names;
  for (const PlainChoice& choice : text_.options[*place].choices) names.emplace_back(choice.name);
  return names;
}

void PlainQueuePpd::mark(const std::vector<host::Setting>& options) {
  std::fill(marks_.begin(), marks_.end(), std::nullopt);
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    // Its default is that of PageSize.
    if (i != pageRegion_) markNamed(i, text_.options[i].defaultName);
  }
  for (const host::Setting& option : sortedOptions(options)) {
    markNamed(optionNamed(option.name), foreignNames_.choiceNamed(option.name, option.value));
  }
  settlePageSize();
}

void PlainQueuePpd::markNamed(Place option, std::string_view name) {
  if (!option) return;
  if (const Place choice = text_.options[*option].find(name)) markChoice(*option, *choice);
}

void PlainQueuePpd::unmark(Place option) {
  if (option) marks_[*option].reset();
}

// Marks the choice and takes those away that cannot be together with it.
void PlainQueuePpd::markChoice(std::size_t option, std::size_t choice) {
  marks_[option] = choice;
  const std::string_view name = text_.options[option].choices[choice].name;
  if (option == pageSize_ || option == pageRegion_) {
    size_ = name;
    unmark(option == pageSize_ ? pageRegion_ : pageSize_);
  }
  if (option == inputSlot_) unmark(manualFeed_);
  if (option == manualFeed_ && equalKeywords(name, "True")) unmark(inputSlot_);
}

// Whether the size is written as PageSize, as PageRegion or not at all depends
// on where the paper comes from. The queue's PPD has a filter, which counts
// where it has no rule.
void PlainQueuePpd::settlePageSize() {
  if (size_.empty()) return;
  const Place slot = inputSlot_ ? marks_[*inputSlot_] : std::nullopt;
  const Place manual = manualFeed_ ? marks_[*manualFeed_] : std::nullopt;
  const bool isNotManual =
      manual && equalKeywords(text_.options[*manualFeed_].choices[*manual].name, "False");
  const bool isBare = !slot || text_.options[*inputSlot_].choices[*slot].isBare;
  const std::optional<std::string_view> rule = pageRegionRule();
  if ((!manual && !slot) || (isNotManual && isBare) || !rule) {
    markNamed(pageSize_, size_);
  } else if (equalKeywords(*rule, "True")) {
    markNamed(pageRegion_, size_);
  } else {
    unmark(pageSize_);
    unmark(pageRegion_);
  }
}

// Of the marked tray, or of all.
std::optional<std::string_view> PlainQueuePpd::pageRegionRule() const {
  constexpr const char* kRule = "RequiresPageRegion ";
  std::optional<std::string_view> rule;
  if (const Place slot = inputSlot_ ? marks_[*inputSlot_] : std::nullopt) {
    rule = text_.attribute(kRule + std::string(text_.options[*inputSlot_].choices[*slot].name));
  }
  return rule ? rule : text_.attribute(kRule + std::string("All"));
}

std::vector<host::Setting> PlainQueuePpd::marked() const {
  std::vector<host::Setting> settings;
  settings.reserve(marks_.size());
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const PlainOption& option = text_.options[i];
    std::string keyword(option.keyword);
    std::string name =
        marks_[i] ? foreignNames_.nameOf(keyword, std::string(option.choices[*marks_[i]].name))
                  : kNotSet;
    settings.push_back({std::move(keyword), std::move(name)});
  }
  return settings;
}

bool PlainQueuePpd::isMarked(const std::string& option, const std::string& choice) const {
  const Place place = optionNamed(option);
  return place && marks_[*place] && text_.options[*place].choices[*marks_[*place]].name == choice;
}

std::string PlainQueuePpd::jobBegin(int job, const std::string& user,
                                    const std::string& title) const {
  if (!text_.attribute("JCLBegin") || !text_.attribute("JCLToPSInterpreter")) return "";
  return jobBeginOf(jclBegin(), job, user, title);
}

std::string PlainQueuePpd::jobEnd() const {
  if (!text_.attribute("JCLEnd") && text_.attribute("DriverFeatureEndOfFile")) return "\x04";
  return jobEndOf(jclEnd());
}

std::string PlainQueuePpd::decoded(std::string_view attribute) const {
  return decodedValue(text_.attribute(attribute).value_or(""));
}

}  // namespace driver_feature::ppd
