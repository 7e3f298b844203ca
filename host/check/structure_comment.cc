#include "host/check/structure_comment.h"

#include <algorithm>
#include <array>

namespace driver_feature::check {

namespace {

constexpr std::array<std::string_view, 44> kStructureComments = {
    "BeginFeature",   "EndFeature",      "BeginSetup",      "EndSetup",       "BeginPageSetup",
    "EndPageSetup",   "BeginProlog",     "EndProlog",       "BeginDefaults",  "EndDefaults",
    "BeginResource",  "EndResource",     "BeginProcSet",    "EndProcSet",     "BeginDocument",
    "EndDocument",    "BeginFont",       "EndFont",         "BeginData",      "EndData",
    "BeginBinary",    "EndBinary",       "BeginExitServer", "EndExitServer",  "EndComments",
    "IncludeFeature", "IncludeResource", "IncludeFont",     "IncludeProcSet", "IncludeDocument",
    "Page",           "Pages",           "PageTrailer",     "Trailer",        "EOF",
    "BoundingBox",    "PageBoundingBox", "DocumentMedia",   "DocumentData",   "LanguageLevel",
    "Orientation",    "PageOrder",       "Requirements",    "PageMedia"};

}  // namespace

bool isStructureComment(std::string_view comment) {
  const std::string_view word = comment.substr(1, comment.find_first_of(": \t", 1) - 1);
  return std::find(kStructureComments.begin(), kStructureComments.end(), word) !=
         kStructureComments.end();
}

}  // namespace driver_feature::check
