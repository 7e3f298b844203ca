// Jobs as clients see them.
#ifndef PROGRAMS_PRINTER_JOB_ATTRIBUTES_H_
#define PROGRAMS_PRINTER_JOB_ATTRIBUTES_H_

#include <string>

#include "programs/printer/operations.h"
#include "programs/printer/requested.h"

namespace driver_feature::printer {

// The attributes of the request that come back when somebody asks for those of
// its job, as the spool keeps them.
std::string attributesToKeep(const IppExchange& exchange);

// Adds the attributes of a job that are asked for.
void addJobAttributes(Service& service, const IppExchange& exchange, const Job& job,
                      const Requested& requested);

// Adds what is returned about a job that was made or has got its document.
void addJobResponse(Service& service, const IppExchange& exchange, const Job& job);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_ATTRIBUTES_H_
