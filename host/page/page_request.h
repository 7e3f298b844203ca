// Parts of a request, which comes from a page and may contain anything.
#ifndef HOST_PAGE_PAGE_REQUEST_H_
#define HOST_PAGE_PAGE_REQUEST_H_

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/result.h"
#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/page/page_records.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/setting.h"

namespace driver_feature::page {

// A member that is a text; `otherwise` when there is none.
std::string textIn(const nlohmann::json& request, const char* name,
                   const std::string& otherwise = "");

bool flagIn(const nlohmann::json& request, const char* name);

// "refuse" or "mend"; without it, "refuse".
host::Result<host::RuleConduct> conductIn(const nlohmann::json& request);

// "settings": [["NAME","VALUE"], ...], with the names and values of the
// description in place of those that the page shows. Numbers are taken as texts.
// None without it.
host::Result<std::vector<host::Setting>> settingsIn(const nlohmann::json& request,
                                                    const Catalog& catalog);

// "settings" and "records" ({"GROUP": [["VALUE", ...], ...]}), or "query" in place of
// both.
host::Result<PresentSettings> presentIn(const nlohmann::json& request, const Catalog& catalog);

// "group", "action", "index" and "values".
host::Result<RecordsAction> recordsActionIn(const nlohmann::json& request);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PAGE_REQUEST_H_
