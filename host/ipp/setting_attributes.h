// Settings of features as attributes of a job.
#ifndef HOST_IPP_SETTING_ATTRIBUTES_H_
#define HOST_IPP_SETTING_ATTRIBUTES_H_

#include <cups/ipp.h>

#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds the attributes that ask for the settings, except for secrets. What is not an
// attribute is left out.
void addSettingAttributes(ipp_t* target, ipp_tag_t group, const AttributeTable& table,
                          const std::vector<host::Setting>& settings);

// The names of the attributes that carry the feature.
std::vector<std::string> carriersOf(const AttributeTable& table, const std::string& feature);

// Everything that Translation::addPrinterAttributes() adds, except for constraints,
// and the names of the attributes of jobs.
void addAllAttributes(ipp_t* printer, const AttributeTable& table, std::vector<std::string>& names);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_SETTING_ATTRIBUTES_H_
