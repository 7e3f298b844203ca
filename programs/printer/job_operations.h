// Operations on existing jobs.
#ifndef PROGRAMS_PRINTER_JOB_OPERATIONS_H_
#define PROGRAMS_PRINTER_JOB_OPERATIONS_H_

#include "programs/printer/operations.h"

namespace driver_feature::printer {

bool cancelJob(Service& service, const std::shared_ptr<IppExchange>& exchange);
bool cancelMyJobs(Service& service, const std::shared_ptr<IppExchange>& shared);
bool closeJob(Service& service, const std::shared_ptr<IppExchange>& shared);
bool holdJob(Service& service, const std::shared_ptr<IppExchange>& shared);
bool releaseJob(Service& service, const std::shared_ptr<IppExchange>& shared);
bool getJobAttributes(Service& service, const std::shared_ptr<IppExchange>& exchange);
bool getJobs(Service& service, const std::shared_ptr<IppExchange>& shared);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_OPERATIONS_H_
