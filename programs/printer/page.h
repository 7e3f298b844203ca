// What a browser sees.
#ifndef PROGRAMS_PRINTER_PAGE_H_
#define PROGRAMS_PRINTER_PAGE_H_

#include "programs/printer/service.h"

namespace driver_feature::printer {

// A page of the printers with links to their settings, the texts of attributes at
// /strings/PRINTER/LANGUAGE, and the printers' picture.
host::Response pageFor(Service& service, const host::Request& request);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PAGE_H_
