// The file that printer-strings-uri names: texts for attributes and their values.
#ifndef HOST_IPP_STRINGS_H_
#define HOST_IPP_STRINGS_H_

#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// The languages of the description's texts; "en" when there are none.
std::vector<std::string> languagesOf(const Capabilities& all);

// Lines such as
//
//   "x-toner-save" = "Save toner";
//   "x-toner-save.on" = "On";
//
// Attributes of the description's own are called by the name that it has for them
// when there is no text; of registered ones, clients have texts themselves.
std::string stringsOf(const Capabilities& all, const AttributeTable& table,
                      const std::string& language);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_STRINGS_H_
