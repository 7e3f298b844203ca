// A line of the checked file with a caret under the place of a finding.
#ifndef HOST_CHECK_EXCERPT_H_
#define HOST_CHECK_EXCERPT_H_

#include <string>

#include "host/base/position.h"
#include "host/description/source_text.h"

namespace driver_feature::check {

// Two lines:
//
//     12 |   <Feature FeatureType="IntEntry" Nam="Copies"/>
//        |                                   ^
//
// with "..." for what is left out of a long one. Tabs come out as blanks, other
// characters that a terminal does not show as question marks. Empty when the
// text does not have the line. `caret` is what marks the place.
std::string excerptOf(const host::SourceText& source, host::Position position,
                      const std::string& caret);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_EXCERPT_H_
