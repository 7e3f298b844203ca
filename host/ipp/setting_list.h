// The settings of a request: each feature once, with the latest value.
#ifndef HOST_IPP_SETTING_LIST_H_
#define HOST_IPP_SETTING_LIST_H_

#include <set>
#include <string>
#include <vector>

#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

class SettingList {
 public:
  explicit SettingList(const Capabilities& all) : all_(all) {}

  // A feature that is set already keeps its place.
  void set(const std::string& feature, const std::string& value);
  void set(const std::vector<host::Setting>& settings);

  // Values of a preset: the default value does not replace them. Clients send the
  // defaults of all that their users have not chosen.
  void setFirmly(const std::vector<host::Setting>& settings);

  // Whether a default value has not replaced one of a preset.
  bool hasKeptFirm() const { return hasKeptFirm_; }

  bool has(const std::string& feature) const { return find(feature) != nullptr; }

  // Adds settings that make unavailable features of the list available, unless
  // the request says otherwise; then returns the settings, lists before the
  // others.
  std::vector<host::Setting> take();

 private:
  const host::Setting* find(const std::string& feature) const;
  void addEnablers();
  bool isKept(const host::Setting& present, const std::string& value);

  const Capabilities& all_;
  std::vector<host::Setting> settings_;
  std::set<std::string> firm_;  // Names of features.
  bool hasKeptFirm_ = false;
};

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_SETTING_LIST_H_
