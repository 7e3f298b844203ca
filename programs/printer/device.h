// Where the bytes of jobs go.
#ifndef PROGRAMS_PRINTER_DEVICE_H_
#define PROGRAMS_PRINTER_DEVICE_H_

#include <string>

#include "host/base/result.h"
#include "programs/printer/job.h"

namespace driver_feature::printer {

// The URI of a device:
//
//   file:/folder/         a file for each job: PRINTER-NUMBER.prn
//   file:/dev/usb/lp0     everything to this file
//   socket://HOST:9100    a connection for each job; with "?status=no" the printer is
//                         not asked for its state
//   SCHEME:...            the scheduler's program of that name
//
// Refused when it is none of them. A folder must exist.
host::Result<> checkDevice(const std::string& uri);

// Copies standard input to the device. Called in a process of its own; returns its
// exit status, after a line on standard error. A printer that cannot be reached is
// tried again and again.
int runDevice(const std::string& uri, const Job& job);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_DEVICE_H_
