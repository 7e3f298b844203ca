// What is wrong with a text that is not XML, in words for authors of
// descriptions: the parser's own messages say little to them.
#ifndef HOST_DESCRIPTION_XML_FAULT_H_
#define HOST_DESCRIPTION_XML_FAULT_H_

#include <string>
#include <string_view>

#include "host/base/position.h"

namespace driver_feature::host {

struct XmlFault {
  std::string text;
  std::string remedy;
  Position position;
};

// The fault that the parser reports with `message` at `position`. `utf8` is the
// document's text; where it shows which character the message is about, the
// fault is there.
XmlFault xmlFault(const std::string& message, Position position, std::string_view utf8);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_XML_FAULT_H_
