// A PPD file as a feature description.
#ifndef HOST_PPD_IMPORT_IMPORT_H_
#define HOST_PPD_IMPORT_IMPORT_H_

#include <string>

#include "host/base/result.h"
#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

struct ImportedDescription {
  std::string text;  // The XML document.
  Losses losses;     // The parts of the file that it does not hold.
  long features = 0;
  long options = 0;
};

// Reads a PPD file and turns it into a description. Problems: those of readPpd().
host::Result<ImportedDescription> importPpd(const std::string& path);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_IMPORT_H_
