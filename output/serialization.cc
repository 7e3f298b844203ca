#include "output/serialization.h"

#include "model/driver_feature_set.h"
#include "model/messages.h"

namespace {

enum PDLType : int { kTypePJL = 0, kTypePostScript = 1, kTypeTicket = 2 };

}  // namespace

// A routine that throws leaves no half of a job that could be taken for a whole
// one.
void DriverFeatureSet::serialize(std::string& output, int pdlType, bool includeInstOpt,
                                 const char* ticketArgument1, const char* ticketArgument2) try {
  switch (pdlType) {
    case kTypePJL:
      return driver_feature::writeText(*this, driver_feature::kPJL, output);
    case kTypePostScript:
      return driver_feature::writeText(*this, driver_feature::kPostScript, output);
    case kTypeTicket:
      return driver_feature::writeTicket(*this, includeInstOpt, ticketArgument1, ticketArgument2,
                                         output);
    default:
      driver_feature::logFixed(driver_feature::Level::kMisuse, "serialize() - Invalid PDL type");
  }
} catch (...) {
  output.clear();
  throw;
}
