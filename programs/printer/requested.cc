#include "programs/printer/requested.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace driver_feature::printer {

namespace {

// It is long, and given only to those who ask for it by its name.
constexpr const char* kMediaDatabase = "media-col-database";

// Attributes about the members of collections, such as "media-source-supported", are in
// the group of the collections. Passwords belong to the request and not to the job.
bool isTemplate(const std::string& name, const std::set<std::string>& templates) {
  if (name.starts_with("media-") || name.starts_with("finishing-")) return true;
  if (name.starts_with("job-password-")) return false;
  constexpr std::array<std::string_view, 4> kEndings = {"-default", "-supported", "-ready",
                                                        "-database"};
  return std::any_of(kEndings.begin(), kEndings.end(), [&](std::string_view ending) {
    return name.ends_with(ending) &&
           templates.contains(name.substr(0, name.size() - ending.size()));
  });
}

}  // namespace

Requested::Requested(ipp_t* request, const std::set<std::string>& otherwise) {
  ipp_attribute_t* attribute = ::ippFindAttribute(request, "requested-attributes", IPP_TAG_ZERO);
  if (attribute == nullptr) {
    names_ = otherwise;
    return;
  }
  for (int i = 0; i < ::ippGetCount(attribute); ++i) {
    const char* name = ::ippGetString(attribute, i, nullptr);
    if (name != nullptr) names_.insert(name);
  }
}

bool Requested::has(const std::string& name, const std::string& group) const {
  if (names_.contains(name)) return true;
  return name != kMediaDatabase && (names_.contains("all") || names_.contains(group));
}

void Requested::copyPrinter(ipp_t* response, ipp_t* source, const std::set<std::string>& templates,
                            ipp_t* others, bool isKept) const {
  for (ipp_attribute_t* one = ::ippFirstAttribute(source); one != nullptr;
       one = ::ippNextAttribute(source)) {
    const char* name = ::ippGetName(one);
    if (name == nullptr) continue;
    if (others != nullptr && ::ippFindAttribute(others, name, IPP_TAG_ZERO) != nullptr) continue;
    const char* group = isTemplate(name, templates) ? "job-template" : "printer-description";
    if (has(name, group)) ::ippCopyAttribute(response, one, isKept ? 1 : 0);
  }
}

}  // namespace driver_feature::printer
