// What a command template holds, and which values fit it.
#ifndef HOST_CHECK_TEMPLATE_READING_H_
#define HOST_CHECK_TEMPLATE_READING_H_

#include <cstddef>
#include <optional>
#include <string>

#include "host/description/element.h"

namespace driver_feature::check {

struct TemplateReading {
  std::string fault;       // Why it can never be formatted; empty when it can.
  std::string conversion;  // The conversion as written in the template; empty without one.
  std::size_t place = 0;   // Of the per cent sign of the fault, or else of the conversion.
  bool endsWithConversion = false;
};

TemplateReading readTemplate(const std::string& text);

// The value that a template is formatted with.
enum class Argument : unsigned char { kText, kInt, kFloat };

// Whether the library can format the template with such a value.
bool fits(const std::string& commandTemplate, Argument argument);

// The value of features of a kind; nothing when they have none.
std::optional<Argument> argumentOf(host::FeatureKind kind);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_TEMPLATE_READING_H_
