// From the attributes of a request to settings.
#ifndef HOST_IPP_JOB_READER_H_
#define HOST_IPP_JOB_READER_H_

#include <cups/ipp.h>

#include <string>

#include "host/ipp/attribute_table.h"
#include "host/ipp/job_settings.h"

namespace driver_feature::ipp {

// Translation::settingsOf().
JobSettings readJob(const Capabilities& all, const AttributeTable& table, ipp_t* request,
                    const std::string& preset);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_JOB_READER_H_
