// A job as the text of a file.
#ifndef PROGRAMS_PRINTER_JOB_RECORD_H_
#define PROGRAMS_PRINTER_JOB_RECORD_H_

#include <string>

#include "host/base/result.h"
#include "programs/printer/job.h"

namespace driver_feature::printer {

// As JSON. Bytes that are not UTF-8 become question marks.
std::string recordOf(const Job& job);

// Problem: kMalformed for a text that recordOf() has not made.
host::Result<Job> jobOfRecord(const std::string& text);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_RECORD_H_
