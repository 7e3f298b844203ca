// The library's listing of its model as it is shown.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_DUMP_TEXT_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_DUMP_TEXT_H_

#include <string>

#include "host/base/result.h"
#include "host/session/session.h"

namespace driver_feature::cli {

// Whether the listing has values of features marked "Encrypted".
bool hasSecrets(const host::Model& model);

// The listing, with masks in place of those values. Problem: kNotWritten when it
// cannot be kept.
host::Result<std::string> maskedDump(host::Session& session);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_DUMP_TEXT_H_
