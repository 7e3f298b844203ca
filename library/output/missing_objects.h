// The log lines about features and groups that a set has lost.
#ifndef OUTPUT_MISSING_OBJECTS_H_
#define OUTPUT_MISSING_OBJECTS_H_

#include "model/messages.h"
#include "model/text_conversion.h"

namespace driver_feature {

inline void logMissingFeature(int index) {
  logComposed(Level::kMisuse, "serialize() - Cannot get reference to feature {}",
              toDecimalText(index));
}

inline void logMissingGroup(int number) {
  logComposed(Level::kMisuse, "serialize() - Cannot get reference to static group {}",
              toDecimalText(number));
}

}  // namespace driver_feature

#endif  // OUTPUT_MISSING_OBJECTS_H_
