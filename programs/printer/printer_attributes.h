// Printers as clients see them.
#ifndef PROGRAMS_PRINTER_PRINTER_ATTRIBUTES_H_
#define PROGRAMS_PRINTER_PRINTER_ATTRIBUTES_H_

#include "programs/printer/operations.h"

namespace driver_feature::printer {

// The attributes that stay the same as long as the printer has its description.
IppPointer fixedAttributes(const Service& service, const Printer& printer);

// Adds the attributes that are asked for.
void addPrinterAttributes(Service& service, IppExchange& exchange);

// A client wants people to see which printer it is: a line goes to the log.
void reportIdentification(Service& service, IppExchange& exchange);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PRINTER_ATTRIBUTES_H_
