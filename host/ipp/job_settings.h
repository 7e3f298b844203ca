// What the attributes of an IPP request mean for the features.
#ifndef HOST_IPP_JOB_SETTINGS_H_
#define HOST_IPP_JOB_SETTINGS_H_

#include <cups/ipp.h>

#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::ipp {

// An attribute of the request that is not supported, or only with other values.
struct UnsupportedAttribute {
  std::string name;
  // Belongs to the request. Null when the attribute as a whole is not supported.
  ipp_attribute_t* values = nullptr;
  // Of a collection, those of its members that are not supported; none: all of it.
  std::vector<std::string> members = {};
};

// The sheet that is asked for, in hundredths of a millimetre.
struct Sheet {
  int width = 0;
  int height = 0;
};

struct JobSettings {
  // Each feature at most once, in an order in which they can be set: that of the
  // preset and of the request, lists first.
  std::vector<host::Setting> settings;
  // Options that are not features: of the pages, for driver-feature-filter, such as
  // page-ranges=1-4,7 and number-up=2.
  std::vector<host::Setting> pageOptions;
  // The number of copies. A feature for copies is among the settings, too.
  int copies = 1;
  std::string holdUntil;  // A "job-hold-until" that is for the printer; empty for none.
  Sheet sheet;            // Of the job or of the printer's default; 0 when not known.
  std::vector<UnsupportedAttribute> unsupported;
  // Whether the request wants no job rather than one without these attributes.
  bool isFaithful = false;

  // The status for the response when nothing else is wrong:
  // IPP_STATUS_OK, IPP_STATUS_OK_IGNORED_OR_SUBSTITUTED or, with
  // "ipp-attribute-fidelity", IPP_STATUS_ERROR_ATTRIBUTES_OR_VALUES.
  ipp_status_t status() const;
};

// Adds the attributes that are not supported to the response's group for them. It
// must be added before the groups of jobs and printers.
void addUnsupported(ipp_t* response, const JobSettings& job);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_JOB_SETTINGS_H_
