// The certificate by which clients know the printer on encrypted connections.
#ifndef PROGRAMS_PRINTER_CERTIFICATE_H_
#define PROGRAMS_PRINTER_CERTIFICATE_H_

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::printer {

struct CertificateFiles {
  std::string certificate;
  std::string key;
};

// A self-signed certificate, in a folder that only this user may read. An
// existing one is kept, so that clients recognise the printer, unless it expires
// within a month or lacks one of the names. The first name is its main one.
// Problem: kNotWritten.
host::Result<CertificateFiles> ownCertificate(const std::filesystem::path& folder,
                                              const std::vector<std::string>& names,
                                              std::time_t now);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_CERTIFICATE_H_
