#include "host/ipp/setting_list.h"

#include <algorithm>
#include <utility>

namespace driver_feature::ipp {

void SettingList::set(const std::string& feature, const std::string& value) {
  const auto found = std::find_if(settings_.begin(), settings_.end(),
                                  [&](const host::Setting& s) { return s.name == feature; });
  if (found != settings_.end()) {
    if (!isKept(*found, value)) found->value = value;
  } else {
    settings_.push_back({feature, value});
  }
}

void SettingList::set(const std::vector<host::Setting>& settings) {
  for (const host::Setting& setting : settings) set(setting.name, setting.value);
}

void SettingList::setFirmly(const std::vector<host::Setting>& settings) {
  for (const host::Setting& setting : settings) {
    firm_.erase(setting.name);
    set(setting.name, setting.value);
    firm_.insert(setting.name);
  }
}

bool SettingList::isKept(const host::Setting& present, const std::string& value) {
  const FeatureCapability* feature = all_.find(present.name);
  const bool isDefault = feature != nullptr && feature->value == value;
  if (!isDefault || !firm_.contains(present.name)) return false;
  hasKeptFirm_ = hasKeptFirm_ || present.value != value;
  return true;
}

const host::Setting* SettingList::find(const std::string& feature) const {
  for (const host::Setting& setting : settings_) {
    if (setting.name == feature) return &setting;
  }
  return nullptr;
}

// An enabler may need one itself.
void SettingList::addEnablers() {
  for (std::size_t i = 0; i < settings_.size(); ++i) {
    const FeatureCapability* feature = all_.find(settings_[i].name);
    if (feature == nullptr || feature->enabler.name.empty()) continue;
    if (settings_[i].value == feature->value || has(feature->enabler.name)) continue;
    settings_.push_back(feature->enabler);
  }
}

std::vector<host::Setting> SettingList::take() {
  addEnablers();
  std::stable_partition(settings_.begin(), settings_.end(), [this](const host::Setting& setting) {
    const FeatureCapability* feature = all_.find(setting.name);
    return feature != nullptr && feature->isList();
  });
  return std::move(settings_);
}

}  // namespace driver_feature::ipp
