#include "programs/driver_feature/show/secrets.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace driver_feature::cli {

namespace {

constexpr std::array<std::string_view, 5> kValues = {"ValueString", "CurrentTextValue",
                                                     "DefaultTextValue", "OriginalTextValue",
                                                     "DeferredTextValue"};

}  // namespace

bool isMasked(const host::FeatureView& feature) {
  return feature.isEncrypted() && !feature.currentText().empty();
}

std::string shownProperty(CoreFeature& object, const std::string& property,
                          const std::string& text) {
  const bool isValue = std::find(kValues.begin(), kValues.end(), property) != kValues.end();
  bool isSecret = false;
  if (!isValue || text.empty()) return text;
  object.getFeatureProperty(std::string("Encrypted"), &isSecret);
  return isSecret ? host::kMask : text;
}

std::vector<host::Record> shownRecords(const host::Model& model,
                                       const std::vector<std::string>& members,
                                       std::vector<host::Record> records) {
  for (std::size_t i = 0; i < members.size(); ++i) {
    const auto feature = model.features.find(members[i]);
    if (feature == model.features.end() || !feature->second.isEncrypted()) continue;
    for (host::Record& record : records) {
      if (i < record.size() && !record[i].empty()) record[i] = host::kMask;
    }
  }
  return records;
}

}  // namespace driver_feature::cli
