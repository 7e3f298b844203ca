// A PPD file as a feature description.
#ifndef HOST_PPD_IMPORT_H_
#define HOST_PPD_IMPORT_H_

#include <optional>
#include <string>

#include "host/ppd/losses.h"
#include "host/ppd/ppd_problem.h"

namespace driver_feature {

struct ImportedDescription {
  std::string text;  // The XML document.
  Losses losses;     // What of the file it does not hold.
  long features = 0;
  long options = 0;
};

// Reads a PPD file and makes a description of it. Nothing, and a filled
// `problem`, when the file cannot be read.
std::optional<ImportedDescription> importPpd(const std::string& path, PpdProblem& problem);

}  // namespace driver_feature

#endif  // HOST_PPD_IMPORT_H_
