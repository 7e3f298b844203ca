#include "host/ipp/media_entries.h"

#include <cups/cups.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "host/ipp/words.h"
#include "host/ppd/queue/page_sizes.h"

namespace driver_feature::ipp {

namespace {

constexpr int kTolerance = 50;  // In hundredths of a millimetre.
constexpr double kHundredthsPerPoint = 2540.0 / 72;

// "210" or "215.9": hundredths without zeros at the end.
std::string millimetres(int hundredths) {
  std::string text = std::to_string(hundredths / 100);
  const int rest = hundredths % 100;
  if (rest == 0) return text;
  text += "." + std::string(rest < 10 ? "0" : "") + std::to_string(rest);
  if (text.ends_with('0')) text.pop_back();
  return text;
}

// Whether the name is one of a standard: class, name, dimensions.
bool isStandardName(std::string_view name) {
  constexpr std::string_view kClasses[] = {"na_",  "iso_", "jis_", "jpn_", "prc_",
                                           "roc_", "oe_",  "om_",  "asme_"};
  const bool hasClass =
      std::any_of(std::begin(kClasses), std::end(kClasses),
                  [name](std::string_view each) { return name.starts_with(each); });
  return hasClass && isKeyword(name) && std::count(name.begin(), name.end(), '_') == 2;
}

std::string standardKeyword(const ChoiceCapability& choice) {
  if (isStandardName(choice.ticketName)) {
    const pwg_media_t* named = pwgMediaForPWG(choice.ticketName.c_str());
    const bool isSame = named != nullptr && isSameLength(named->width, choice.width) &&
                        isSameLength(named->length, choice.height);
    if (isSame) return choice.ticketName;
  }
  const pwg_media_t* standard = pwgMediaForSize(choice.width, choice.height);
  if (standard == nullptr || standard->pwg == nullptr || !isStandardName(standard->pwg)) return "";
  return isSameLength(standard->width, choice.width) &&
                 isSameLength(standard->length, choice.height)
             ? standard->pwg
             : "";
}

// The part of a name for people: small letters, digits and hyphens.
std::string namePart(const std::string& name) {
  std::string part = keywordFor(name);
  for (char& letter : part) {
    if (letter == '.' || letter == '_') letter = '-';
  }
  return part;
}

bool isNamedLike(const ChoiceCapability& choice, const std::string& keyword) {
  if (choice.ticketName == keyword) return true;
  const pwg_media_t* media = pwgMediaForPPD(choice.name.c_str());
  return media != nullptr && media->pwg != nullptr && media->pwg == keyword;
}

class EntryWriter {
 public:
  EntryWriter(AttributeTable& table, const FeatureCapability& sizes)
      : table_(table), sizes_(sizes) {}

  void run() {
    for (const ChoiceCapability& choice : sizes_.choices) {
      if (choice.hasSize()) add(choice);
    }
    for (MediaEntry& entry : table_.media) {
      if (!entry.keyword.empty()) continue;
      const ChoiceCapability& size = entry.size;
      entry.keyword = distinct(namePart(size.name), size.width, size.height);
    }
  }

 private:
  // The first of several with the same standard size gets its name, unless another
  // one is called like it.
  void add(const ChoiceCapability& choice) {
    const std::string keyword = standardKeyword(choice);
    const auto same =
        std::find_if(table_.media.begin(), table_.media.end(), [&](const MediaEntry& entry) {
          return !entry.isSecond && entry.size.width == choice.width &&
                 entry.size.height == choice.height;
        });
    MediaEntry entry{keyword, &choice, choice, same != table_.media.end()};
    if (!keyword.empty() && words_.has(keyword)) {
      const auto owner =
          std::find_if(table_.media.begin(), table_.media.end(),
                       [&](const MediaEntry& each) { return each.keyword == keyword; });
      if (isNamedLike(choice, keyword) && !isNamedLike(*owner->choice, keyword)) {
        owner->keyword.clear();
      } else {
        entry.keyword.clear();
      }
    } else if (!keyword.empty()) {
      words_.add(keyword);
    }
    table_.media.push_back(std::move(entry));
  }

  std::string distinct(const std::string& name, int width, int height) {
    for (int number = 1;; ++number) {
      const std::string tail = number == 1 ? "" : "-" + std::to_string(number);
      std::string keyword = sizeName("om", name + tail, width, height);
      if (!words_.has(keyword)) return words_.add(keyword);
    }
  }

  AttributeTable& table_;
  const FeatureCapability& sizes_;
  DistinctWords words_;
};

}  // namespace

bool isSameLength(int one, int other) {
  return std::abs(one - other) <= kTolerance;
}

void addMediaEntries(AttributeTable& table, const FeatureCapability& sizes) {
  EntryWriter(table, sizes).run();
}

void addStandardSizes(AttributeTable& table) {
  for (const ppd::PageSize& each : ppd::standardPageSizes()) {
    const pwg_media_t* media = pwgMediaForPPD(each.name.c_str());
    if (media == nullptr) continue;
    ChoiceCapability size;
    size.name = each.name;
    size.width = media->width;
    size.height = media->length;
    size.left = size.bottom = size.right = size.top =
        static_cast<int>(std::lround(static_cast<double>(each.left) * kHundredthsPerPoint));
    table.media.push_back({media->pwg, nullptr, size, false});
  }
}

std::string sizeName(const std::string& prefix, const std::string& name, int width, int height) {
  return prefix + "_" + name + "_" + millimetres(width) + "x" + millimetres(height) + "mm";
}

}  // namespace driver_feature::ipp
