// The attributes of a preset at its own address.
#ifndef PROGRAMS_PRINTER_PRESET_ATTRIBUTES_H_
#define PROGRAMS_PRINTER_PRESET_ATTRIBUTES_H_

#include <string>

#include "programs/printer/printer.h"

namespace driver_feature::printer {

class Service;

// The attributes of the printer that differ at the preset's address: its names, and
// the defaults, which clients take from there and send with their jobs. Empty without
// a preset.
IppPointer presetAttributes(const Service& service, const Printer& printer,
                            const std::string& preset);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PRESET_ATTRIBUTES_H_
