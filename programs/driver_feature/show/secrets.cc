#include "programs/driver_feature/show/secrets.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace driver_feature::cli {

namespace {

constexpr std::array<std::string_view, 5> kValues = {"ValueString", "CurrentTextValue",
                                                     "DefaultTextValue", "OriginalTextValue",
                                                     "DeferredTextValue"};

bool areHidden = true;

// The masks of the values of each feature, in the order in which they are seen.
class Masks {
 public:
  explicit Masks(const std::vector<std::string>& names) {
    for (const std::string& name : names) values_[name + "="];
  }

  void note(const std::string& text) {
    forEachLine(text, [this](const std::string& line) {
      auto* values = valuesOf(line);
      if (values == nullptr || isEmptyValue(line) || numberOf(*values, line) != 0) return;
      values->push_back(line);
    });
  }

  std::string masked(const std::string& text) {
    std::string result;
    forEachLine(text, [&](const std::string& line) {
      const auto* values = valuesOf(line);
      const std::string start = line.substr(0, line.find('=') + 1);
      if (values == nullptr || isEmptyValue(line)) {
        result += line;
        return;
      }
      const std::string number = " (" + std::to_string(numberOf(*values, line)) + ")";
      result += start + host::kMask + (values->size() > 1 ? number : "") + "\n";
    });
    return result;
  }

 private:
  using Lines = std::vector<std::string>;

  template <class Visit>
  static void forEachLine(const std::string& text, const Visit& visit) {
    for (std::size_t start = 0; start < text.size();) {
      const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
      visit(text.substr(start, end - start));
      start = end;
    }
  }

  static bool isEmptyValue(const std::string& line) {
    return line.substr(line.find('=') + 1) == "\n";
  }

  // Counted from 1; 0 for a line that is not among them.
  static std::size_t numberOf(const Lines& lines, const std::string& line) {
    const auto found = std::find(lines.begin(), lines.end(), line);
    return found == lines.end() ? 0 : static_cast<std::size_t>(found - lines.begin()) + 1;
  }

  Lines* valuesOf(const std::string& line) {
    const auto found = values_.find(line.substr(0, line.find('=') + 1));
    return found != values_.end() ? &found->second : nullptr;
  }

  std::map<std::string, Lines> values_;
};

}  // namespace

void showSecrets() {
  areHidden = false;
}

bool hidesSecrets() {
  return areHidden;
}

bool isMasked(const host::FeatureView& feature) {
  return areHidden && feature.isEncrypted() && !feature.currentText().empty();
}

std::string shownProperty(CoreFeature& object, const std::string& property,
                          const std::string& text) {
  const bool isValue = std::find(kValues.begin(), kValues.end(), property) != kValues.end();
  bool isSecret = false;
  if (!areHidden || !isValue || text.empty()) return text;
  object.getFeatureProperty(std::string("Encrypted"), &isSecret);
  return isSecret ? host::kMask : text;
}

std::vector<host::Record> shownRecords(const host::Model& model,
                                       const std::vector<std::string>& members,
                                       std::vector<host::Record> records) {
  if (!areHidden) return records;
  for (std::size_t i = 0; i < members.size(); ++i) {
    const auto feature = model.features.find(members[i]);
    if (feature == model.features.end() || !feature->second.isEncrypted()) continue;
    for (host::Record& record : records) {
      if (i < record.size() && !record[i].empty()) record[i] = host::kMask;
    }
  }
  return records;
}

void maskSettings(const std::vector<std::string>& names, std::string& first, std::string& second) {
  Masks masks(names);
  masks.note(first);
  masks.note(second);
  first = masks.masked(first);
  second = masks.masked(second);
}

}  // namespace driver_feature::cli
