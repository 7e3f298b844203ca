// Finding what a word of a command names, and proposing such names.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_NAMES_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_NAMES_H_

#include <string>
#include <vector>

#include "model/core_feature.h"
#include "model/core_feature_group.h"
#include "programs/driver_feature/shell/shell.h"

namespace driver_feature::cli {

std::vector<std::string> featureNames(const host::Model& model);
std::vector<std::string> groupNames(const host::Model& model);
std::vector<std::string> dynamicGroupNames(const host::Model& model);
// Features and groups.
std::vector<std::string> allNames(const host::Model& model);
// The options of a feature; none for any other name.
std::vector<std::string> optionNames(const host::Model& model, const std::string& feature);
// The features that have options.
std::vector<std::string> namesWithOptions(const host::Model& model);

// Each refuses an unknown name. What they find lives as long as the process and is
// never null.
host::Result<CoreFeature*> findObject(Shell& shell, const std::string& name);
host::Result<IntermediateCoreFeature*> findFeature(Shell& shell, const std::string& name);
host::Result<IntermediateCoreOption*> findOption(Shell& shell, const std::string& feature,
                                                 const std::string& name);
host::Result<IntermediateDynamicFeatureGroup*> findRecords(Shell& shell, const std::string& name);

// The whole word as a number of 0 or more; `what` is what a refusal calls it.
host::Result<long> readNumber(const std::string& word, const std::string& what);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_NAMES_H_
