// Attributes of a job that are carried out by the printer or
// driver-feature-filter instead of a feature.
#ifndef HOST_IPP_PAGE_OPTIONS_H_
#define HOST_IPP_PAGE_OPTIONS_H_

#include <cups/ipp.h>

#include <optional>
#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds their XXX-supported and XXX-default, except for those that a feature carries,
// and their names.
void addPageOptions(ipp_t* printer, const AttributeTable& table, std::vector<std::string>& names);

// Whether the attribute is one of those that no feature carries.
bool isPageOption(const AttributeTable& table, const std::string& name);

// The option for the filter that the attribute asks for; one without a name when it
// asks for nothing. Nothing when a value is not supported.
std::optional<host::Setting> pageOption(const std::string& name, ipp_attribute_t* attribute);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_PAGE_OPTIONS_H_
