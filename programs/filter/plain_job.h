// Jobs that can be printed without libcups.
#ifndef PROGRAMS_FILTER_PLAIN_JOB_H_
#define PROGRAMS_FILTER_PLAIN_JOB_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/ppd/plain/plain_queue_ppd.h"
#include "host/settings/setting.h"
#include "programs/filter/arguments.h"

namespace driver_feature::filter {

struct PlainJob {
  FilterArguments arguments;
  std::unique_ptr<ppd::PlainQueuePpd> ppd;
};

// The job, if it asks for one copy and for nothing that is done to pages, names
// choices that the PPD has, and none of the options that libcups turns into
// choices. Nothing for any other, and for arguments that are wrong. The
// environment says which PPD, as for any filter.
std::optional<PlainJob> plainJobOf(int argc, const char* const* argv);

// The options of a text, by their names; nothing where it is not a row of
// NAME=VALUE without quotation marks, braces and backslashes.
std::optional<std::vector<host::Setting>> plainOptions(const std::string& text);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PLAIN_JOB_H_
