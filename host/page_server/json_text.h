// JSON in the form that the page receives.
#ifndef HOST_PAGE_SERVER_JSON_TEXT_H_
#define HOST_PAGE_SERVER_JSON_TEXT_H_

#include <string>

#include <nlohmann/json_fwd.hpp>

namespace driver_feature::page_server {

// On one line. Bytes that are not UTF-8, which descriptions may hold, are replaced.
std::string jsonText(const nlohmann::json& json);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_JSON_TEXT_H_
