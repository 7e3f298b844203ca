// What settings ask of a printer's page device, as the picture's program prints it.
#ifndef HOST_PAGE_SERVER_DEVICE_REPORT_H_
#define HOST_PAGE_SERVER_DEVICE_REPORT_H_

#include <string>

namespace driver_feature::page_server {

struct DeviceReport {
  bool isWhole = false;  // The program has come to the page.
  std::string device;    // A JSON object: size, orientation, duplex, ..., entries.
  std::string failure;   // The error of the settings' PostScript; may be empty.
};

DeviceReport readDeviceReport(const std::string& printed);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_DEVICE_REPORT_H_
