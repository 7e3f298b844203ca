// IPP messages as bytes.
#ifndef PROGRAMS_PRINTER_IPP_MESSAGE_H_
#define PROGRAMS_PRINTER_IPP_MESSAGE_H_

#include <cups/ipp.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "programs/printer/printer.h"

namespace driver_feature::printer {

// Finds the end of a request's attributes while the bytes arrive; the document
// follows. Also keeps what libcups reads within limits.
class AttributeEnd final {
 public:
  // Looks at what has been added at the end of the message so far. Returns the
  // length of the message up to the end of its attributes; 0 before that is known.
  std::size_t find(std::string_view message);

  // There are too many values, too deep collections or it is too long.
  bool isTooMuch() const { return isTooMuch_; }

 private:
  std::size_t place_ = 8;  // Where the next tag is.
  std::size_t values_ = 0;
  int depth_ = 0;
  bool isTooMuch_ = false;
};

// The message that libcups reads out of the bytes; null when it cannot.
IppPointer readIpp(std::string_view bytes);

std::string ippBytes(ipp_t* message);

// The values of a text attribute; empty without it.
std::string textOf(ipp_t* message, const char* name, ipp_tag_t group);
bool booleanOf(ipp_t* message, const char* name, bool otherwise);
int integerOf(ipp_t* message, const char* name, int otherwise);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_IPP_MESSAGE_H_
