// The panels of a description: what people see together.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_PANELS_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_PANELS_H_

#include <cstddef>
#include <string>

#include <nlohmann/json_fwd.hpp>

#include "host/session/session.h"
#include "programs/driver_feature/show/people_texts.h"

namespace driver_feature::cli {

// A table after an empty line; empty without panels. With `texts`, there is a column
// of what people see.
std::string showPanels(const host::Session& session, std::size_t width,
                       const PeopleTexts* texts = nullptr);

// The same as a JSON list.
nlohmann::ordered_json panelsJson(const host::Session& session, const PeopleTexts* texts = nullptr);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_PANELS_H_
