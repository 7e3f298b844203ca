// Values of features that a description marks as "Encrypted": what is shown has a
// mask in their place. An empty value is shown as it is.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_SECRETS_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_SECRETS_H_

#include <string>
#include <vector>

#include "host/session/group_view.h"
#include "host/session/model.h"
#include "host/settings/setting.h"
#include "model/core_feature.h"

namespace driver_feature::cli {

// Shows all values in this process from now on, for --show-secrets.
void showSecrets();
bool hidesSecrets();

// Whether the current value is masked.
bool isMasked(const host::FeatureView& feature);

// The text of a property of an object as it is shown.
std::string shownProperty(CoreFeature& object, const std::string& property,
                          const std::string& text);

// The records of a group with these members as they are shown.
std::vector<host::Record> shownRecords(const host::Model& model,
                                       const std::vector<std::string>& members,
                                       std::vector<host::Record> records);

// Puts masks in place of the values of the named features in two settings texts.
// Masks of different values of a feature have different numbers, so that the
// texts still differ there.
void maskSettings(const std::vector<std::string>& names, std::string& first, std::string& second);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_SECRETS_H_
