// "media" and "media-col" of a request.
#ifndef HOST_IPP_MEDIA_READER_H_
#define HOST_IPP_MEDIA_READER_H_

#include <cups/ipp.h>

#include <optional>
#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"
#include "host/ipp/job_settings.h"

namespace driver_feature::ipp {

struct AskedMedia {
  std::vector<host::Setting> settings;
  std::optional<Sheet> sheet;
  std::vector<std::string> unsupported;  // Members of a media-col.
};

// Nothing when the attribute as a whole is not supported.
std::optional<AskedMedia> mediaIn(const AttributeTable& table, ipp_attribute_t* attribute);
std::optional<AskedMedia> mediaColIn(const AttributeTable& table, ipp_attribute_t* attribute);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_MEDIA_READER_H_
