#include "programs/filter/queue.h"

#include <filesystem>

namespace driver_feature::filter {

namespace {

constexpr const char* kRefusedValueVariable = "DRIVER_FEATURE_REFUSED_VALUE";
constexpr const char* kRulesVariable = "DRIVER_FEATURE_RULES";

// What one source says, by the names of its settings.
struct Source {
  std::function<std::vector<std::string>(const std::string& setting)> all;
  std::string refusedValue;  // What it calls the setting RefusedValue.
  std::string rules;         // And the setting Rules.

  std::string last(const std::string& setting) const {
    const std::vector<std::string> values = all(setting);
    return values.empty() ? "" : values.back();
  }
};

host::Result<> readRefusedValue(const Source& source, Queue& queue) {
  const std::string text = source.last("RefusedValue");
  if (text.empty()) return {};
  if (text != "fail" && text != "default") {
    return host::refused(source.refusedValue + " is \"" + text +
                         "\"; make it \"fail\" or \"default\"");
  }
  queue.refusedValue = text == "default" ? RefusedValue::kDefault : RefusedValue::kFail;
  return {};
}

host::Result<> readRules(const Source& source, Queue& queue) {
  const std::string text = source.last("Rules");
  if (text.empty()) return {};
  if (text != "refuse" && text != "resolve" && text != "ignore") {
    return host::refused(source.rules + " is \"" + text +
                         "\"; make it \"refuse\", \"resolve\" or \"ignore\"");
  }
  queue.rules = text == "resolve"  ? host::RuleConduct::kMend
                : text == "ignore" ? host::RuleConduct::kIgnore
                                   : host::RuleConduct::kRefuse;
  return {};
}

// Whether the setting is a path, which may be relative to the PPD.
bool isPath(const std::string& setting) {
  return setting != "RefusedValue" && setting != "Rules";
}

host::Result<> readSource(const Source& source, Queue& queue) {
  const std::string description = source.last("Description");
  const std::string library = source.last("Library");
  const std::vector<std::string> routines = source.all("Routines");
  if (!description.empty()) queue.description = description;
  if (!library.empty()) queue.library = library;
  if (!routines.empty()) queue.routines = routines;
  if (host::Result<> read = readRefusedValue(source, queue); !read) return read;
  return readRules(source, queue);
}

Source sourceOf(const ppd::QueuePpd& ppd) {
  const auto read = [&ppd](const std::string& setting) {
    std::vector<std::string> values = ppd.attributes("DriverFeature" + setting);
    if (!isPath(setting)) return values;
    const std::filesystem::path folder = std::filesystem::path(ppd.path()).parent_path();
    for (std::string& value : values) {
      if (!value.empty()) value = folder / value;
    }
    return values;
  };
  return {read, "*DriverFeatureRefusedValue", "*DriverFeatureRules"};
}

std::string environmentName(const std::string& setting) {
  if (setting == "RefusedValue") return kRefusedValueVariable;
  std::string name = "DRIVER_FEATURE_";
  for (const char c : setting) name += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return name;
}

Source sourceOf(const Environment& environment) {
  const auto read = [&environment](const std::string& setting) {
    std::vector<std::string> values;
    const char* value = environment(environmentName(setting).c_str());
    if (value != nullptr && *value != '\0') values.emplace_back(value);
    return values;
  };
  return {read, kRefusedValueVariable, kRulesVariable};
}

}  // namespace

host::Result<Queue> readQueue(const ppd::QueuePpd* ppd, const Environment& environment) {
  Queue queue;
  if (ppd != nullptr) {
    if (host::Result<> read = readSource(sourceOf(*ppd), queue); !read) return failureOf(read);
  }
  if (host::Result<> read = readSource(sourceOf(environment), queue); !read) return failureOf(read);
  if (!queue.description.empty()) return queue;
  return host::refused(
      "the queue names no description; write its PPD with \"driver-feature queue\", or set "
      "DRIVER_FEATURE_DESCRIPTION for a trial by hand");
}

}  // namespace driver_feature::filter
