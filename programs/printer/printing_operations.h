// Operations that make jobs.
#ifndef PROGRAMS_PRINTER_PRINTING_OPERATIONS_H_
#define PROGRAMS_PRINTER_PRINTING_OPERATIONS_H_

#include "programs/printer/operations.h"

namespace driver_feature::printer {

bool preparePrinting(Service& service, IppExchange& exchange);
bool prepareDocument(Service& service, IppExchange& exchange);

bool printJob(Service& service, const std::shared_ptr<IppExchange>& exchange);
bool validateJob(Service& service, const std::shared_ptr<IppExchange>& exchange);
bool createJob(Service& service, const std::shared_ptr<IppExchange>& exchange);
bool sendDocument(Service& service, const std::shared_ptr<IppExchange>& shared);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PRINTING_OPERATIONS_H_
