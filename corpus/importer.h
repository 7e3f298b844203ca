// The import of a PPD, as the program driver-feature does it.
#ifndef CORPUS_IMPORTER_H_
#define CORPUS_IMPORTER_H_

#include <string>

namespace driver_feature {

// Writes the description of the PPD into `description`. False when that fails;
// `problem` then says why.
bool importPpd(const std::string& ppd, const std::string& description, std::string& problem);

}  // namespace driver_feature

#endif  // CORPUS_IMPORTER_H_
