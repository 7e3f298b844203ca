// What has changed in an output, so that large ones need not be sent again whole.
#ifndef HOST_PAGE_OUTPUT_CHANGE_H_
#define HOST_PAGE_OUTPUT_CHANGE_H_

#include <nlohmann/json.hpp>

namespace driver_feature::page {

// How `now` comes from `before`, both as toJson() of an output has them:
//   "at", "gone", "text"     this many units of the text from there are now this text
//   "head", "tail", "spans"  these many spans at both ends are those of before, the
//                            tail moved with the text; these are between them
// The output itself where it was not there before, or has a problem.
nlohmann::json outputChange(const nlohmann::json& before, const nlohmann::json& now);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_OUTPUT_CHANGE_H_
