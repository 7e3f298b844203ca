// What people have chosen on a page, for a process that is started again.
#ifndef HOST_PAGE_SERVER_KEPT_VALUES_H_
#define HOST_PAGE_SERVER_KEPT_VALUES_H_

#include <map>
#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>

namespace driver_feature::page_server {

class KeptValues {
 public:
  // Values to begin with.
  void begin(const std::string& name, const std::string& value);

  // Takes over a reply with a state, whole or what has changed, to this request.
  void take(const nlohmann::json& state, const std::string& request);

  // The request that restores these values; nothing when all are the defaults.
  std::optional<std::string> restoring() const;

 private:
  void takeSecrets(const nlohmann::json& state, const std::string& request);

  std::map<std::string, std::string> values_;
  std::map<std::string, std::string> records_;  // As JSON texts.
  std::map<std::string, std::string> secrets_;  // States do not have them.
  std::map<std::string, bool> changed_;         // Not defaults, and whether they are secret.
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_KEPT_VALUES_H_
