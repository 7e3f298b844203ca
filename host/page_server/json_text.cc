#include "host/page_server/json_text.h"

#include <nlohmann/json.hpp>

namespace driver_feature::page_server {

std::string jsonText(const nlohmann::json& json) {
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace driver_feature::page_server
