#include "programs/driver_feature/shell/names.h"

#include <charconv>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/log.h"

namespace driver_feature::cli {

namespace {

// The library's type codes: features come before groups.
constexpr int kFirstGroupType = 6;
constexpr int kDynamicGroupType = 8;

// A failed look-up is reported as a refusal and needs no log line.
CoreFeature* lookUp(Shell& shell, const std::string& name) {
  const host::LogSilence silence;
  return shell.session().features().FindFeatureInFeatureList(name);
}

std::string meant(const std::string& name, const std::vector<std::string>& names) {
  if (const auto nearest = host::nearestName(name, names))
    return "did you mean " + host::inQuotes(*nearest) + "?";
  if (names.empty()) return "the description has none";
  constexpr std::size_t kMostShown = 12;
  return names.size() > kMostShown ? "\"show\" lists them" : "give one of " + host::listed(names);
}

}  // namespace

std::vector<std::string> featureNames(const host::Model& model) {
  std::vector<std::string> names;
  for (const auto& [name, feature] : model.features) names.push_back(name);
  return names;
}

std::vector<std::string> groupNames(const host::Model& model) {
  std::vector<std::string> names;
  for (const host::GroupEntry& group : model.index.groups()) names.push_back(group.name);
  return names;
}

std::vector<std::string> dynamicGroupNames(const host::Model& model) {
  std::vector<std::string> names;
  for (const host::GroupEntry& group : model.index.groups()) {
    if (group.kind == host::GroupKind::kDynamic) names.push_back(group.name);
  }
  return names;
}

std::vector<std::string> allNames(const host::Model& model) {
  std::vector<std::string> names = featureNames(model);
  const std::vector<std::string> groups = groupNames(model);
  names.insert(names.end(), groups.begin(), groups.end());
  return names;
}

std::vector<std::string> optionNames(const host::Model& model, const std::string& feature) {
  std::vector<std::string> names;
  const auto found = model.features.find(feature);
  if (found == model.features.end()) return names;
  for (const host::Choice& choice : found->second.choices()) names.push_back(choice.name);
  return names;
}

std::vector<std::string> namesWithOptions(const host::Model& model) {
  std::vector<std::string> names = featureNames(model);
  std::erase_if(names, [&model](const std::string& name) {
    return model.features.at(name).choices().empty();
  });
  return names;
}

host::Result<CoreFeature*> findObject(Shell& shell, const std::string& name) {
  CoreFeature* found = lookUp(shell, name);
  if (found == nullptr) {
    return host::refused("there is no feature or group " + host::inQuotes(name) + "; " +
                         meant(name, allNames(shell.model())));
  }
  return found;
}

host::Result<IntermediateCoreFeature*> findFeature(Shell& shell, const std::string& name) {
  CoreFeature* found = lookUp(shell, name);
  if (found == nullptr || !shell.model().features.contains(name)) {
    return host::refused("there is no feature " + host::inQuotes(name) + "; " +
                         meant(name, featureNames(shell.model())));
  }
  if (found->getFeatureType() >= kFirstGroupType) {
    return host::refused("feature " + host::inQuotes(name) +
                         " has the type of a group; set its FeatureType to 0 to 5");
  }
  return static_cast<IntermediateCoreFeature*>(found);
}

host::Result<IntermediateCoreOption*> findOption(Shell& shell, const std::string& feature,
                                                 const std::string& name) {
  auto owner = findFeature(shell, feature);
  if (!owner) return failureOf(owner);
  const std::vector<std::string> names = optionNames(shell.model(), feature);
  if (names.empty())
    return host::refused("feature " + host::inQuotes(feature) +
                         " has no options; name another feature");
  const host::LogSilence silence;
  CoreOption* found = (*owner)->fetchOptionByName(name);
  if (found == nullptr) {
    return host::refused("feature " + host::inQuotes(feature) + " has no option " +
                         host::inQuotes(name) + "; " + meant(name, names));
  }
  return static_cast<IntermediateCoreOption*>(found);
}

host::Result<IntermediateDynamicFeatureGroup*> findRecords(Shell& shell, const std::string& name) {
  CoreFeature* found = lookUp(shell, name);
  // A feature comes before a group of its name, and may call itself one.
  const bool isFeature = shell.model().features.contains(name);
  if (found == nullptr || isFeature || found->getFeatureType() != kDynamicGroupType) {
    return host::refused("there is no dynamic group " + host::inQuotes(name) + "; " +
                         meant(name, dynamicGroupNames(shell.model())));
  }
  return static_cast<IntermediateDynamicFeatureGroup*>(found);
}

host::Result<long> readNumber(const std::string& word, const std::string& what) {
  long number = 0;
  const char* end = word.data() + word.size();
  const auto result = std::from_chars(word.data(), end, number);
  if (result.ptr != end || result.ec != std::errc() || number < 0) {
    return host::refused(host::inQuotes(word) + " is not " + what +
                         "; give a whole number of 0 or more");
  }
  return number;
}

}  // namespace driver_feature::cli
