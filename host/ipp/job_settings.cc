#include "host/ipp/job_settings.h"

namespace driver_feature::ipp {

namespace {

// Of a collection only the members that are not supported.
void addMembers(ipp_t* response, const UnsupportedAttribute& unsupported) {
  ipp_t* bad = ippNew();
  ipp_t* asked = ippGetCollection(unsupported.values, 0);
  for (const std::string& member : unsupported.members) {
    ipp_attribute_t* found = ippFindAttribute(asked, member.c_str(), IPP_TAG_ZERO);
    if (found != nullptr) ippCopyAttribute(bad, found, 0);
  }
  ippAddCollection(response, IPP_TAG_UNSUPPORTED_GROUP, unsupported.name.c_str(), bad);
  ippDelete(bad);
}

}  // namespace

ipp_status_t JobSettings::status() const {
  if (unsupported.empty()) return IPP_STATUS_OK;
  return isFaithful ? IPP_STATUS_ERROR_ATTRIBUTES_OR_VALUES : IPP_STATUS_OK_IGNORED_OR_SUBSTITUTED;
}

void addUnsupported(ipp_t* response, const JobSettings& job) {
  for (const UnsupportedAttribute& unsupported : job.unsupported) {
    if (unsupported.values == nullptr) {
      ippAddOutOfBand(response, IPP_TAG_UNSUPPORTED_GROUP, IPP_TAG_UNSUPPORTED_VALUE,
                      unsupported.name.c_str());
    } else if (!unsupported.members.empty()) {
      addMembers(response, unsupported);
    } else if (ipp_attribute_t* copy = ippCopyAttribute(response, unsupported.values, 0)) {
      ippSetGroupTag(response, &copy, IPP_TAG_UNSUPPORTED_GROUP);
    }
  }
}

}  // namespace driver_feature::ipp
