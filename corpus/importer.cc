#include "corpus/importer.h"

namespace driver_feature {

bool importPpd(const std::string& /*ppd*/, const std::string& /*description*/,
               std::string& problem) {
  problem = "this build has no import";
  return false;
}

}  // namespace driver_feature
