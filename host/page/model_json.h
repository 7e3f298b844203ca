// What a page shows of a description and does not change while it is loaded.
#ifndef HOST_PAGE_MODEL_JSON_H_
#define HOST_PAGE_MODEL_JSON_H_

#include <string>

#include <nlohmann/json.hpp>

#include "host/page/catalog.h"
#include "host/page/layout.h"
#include "host/session/session.h"

namespace driver_feature::page {

// "name", "file", "language", "languages", "presets", "sections", "features" and
// "outputs", with the texts of that language or of those that stand in for it, of which
// "language" is the first. An empty language is the first one of the description.
nlohmann::json modelJson(const host::Session& session, const Catalog& catalog, const Layout& layout,
                         const std::string& language);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_MODEL_JSON_H_
