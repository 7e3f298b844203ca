#include "host/ipp/job_settings.h"

namespace driver_feature::ipp {

namespace {

bool isString(ipp_tag_t tag) {
  return tag == IPP_TAG_TEXT || tag == IPP_TAG_NAME || tag == IPP_TAG_TEXTLANG ||
         tag == IPP_TAG_NAMELANG || (tag >= IPP_TAG_KEYWORD && tag <= IPP_TAG_MIMETYPE);
}

bool isWhole(ipp_attribute_t* attribute, int depth);

bool isWholeCollection(ipp_t* collection, int depth) {
  const int deepest = 20;
  if (collection == nullptr || depth == deepest) return false;
  for (ipp_attribute_t* each = ippFirstAttribute(collection); each != nullptr;
       each = ippNextAttribute(collection)) {
    if (ippGetName(each) == nullptr || !isWhole(each, depth + 1)) return false;
  }
  return true;
}

// Of a request that breaks the rules, libcups reads attributes that it cannot write:
// members without a value, and texts that are not there.
bool isWhole(ipp_attribute_t* attribute, int depth) {
  const ipp_tag_t tag = ippGetValueTag(attribute);
  if (tag < IPP_TAG_UNSUPPORTED_VALUE) return false;
  const int count = ippGetCount(attribute);
  for (int at = 0; at < count; ++at) {
    if (isString(tag) && ippGetString(attribute, at, nullptr) == nullptr) return false;
    const bool isCollection = tag == IPP_TAG_BEGIN_COLLECTION;
    if (isCollection && !isWholeCollection(ippGetCollection(attribute, at), depth)) return false;
  }
  return true;
}

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
    if (unsupported.values == nullptr || !isWhole(unsupported.values, 0)) {
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
