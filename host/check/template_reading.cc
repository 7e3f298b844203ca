#include "host/check/template_reading.h"

#include "templates/command_template.h"
#include "templates/conversion.h"

namespace driver_feature::check {

TemplateReading readTemplate(const std::string& text) {
  TemplateReading reading;
  std::string_view rest = text;
  for (std::size_t mark = rest.find('%'); mark != std::string_view::npos; mark = rest.find('%')) {
    const std::size_t place = text.size() - rest.size() + mark;
    rest.remove_prefix(mark + 1);
    if (rest.starts_with('%')) {
      rest.remove_prefix(1);
      continue;
    }
    reading.place = place;
    if (rest.empty()) {
      reading.fault = "it ends with a lone per cent sign";
      return reading;
    }
    const std::string_view before = rest;
    if (!takeConversion(rest)) {
      reading.fault =
          "\"%" + std::string(before.substr(0, 12)) +
          "\" does not begin a conversion, or begins one with a width or precision above 4096";
      return reading;
    }
    if (!reading.conversion.empty()) {
      reading.fault = "it holds a second conversion";
      return reading;
    }
    reading.conversion = "%" + std::string(before.substr(0, before.size() - rest.size()));
    reading.endsWithConversion = rest.empty();
  }
  const bool fitsAny =
      fits(text, Argument::kText) || fits(text, Argument::kInt) || fits(text, Argument::kFloat);
  if (!fitsAny) reading.fault = "\"" + reading.conversion + "\" is not a conversion";
  return reading;
}

bool fits(const std::string& commandTemplate, Argument argument) {
  std::string ignored;
  switch (argument) {
    case Argument::kText:
      return formatCommand(commandTemplate, std::string_view(), ignored);
    case Argument::kInt:
      return formatCommand(commandTemplate, 1, ignored);
    case Argument::kFloat:
      return formatCommand(commandTemplate, 1.0, ignored);
  }
  return false;
}

std::optional<Argument> argumentOf(host::FeatureKind kind) {
  switch (kind) {
    case host::FeatureKind::kMultiSelect:
    case host::FeatureKind::kTextEntry:
      return Argument::kText;
    case host::FeatureKind::kIntEntry:
      return Argument::kInt;
    case host::FeatureKind::kFloatEntry:
      return Argument::kFloat;
    default:
      return std::nullopt;
  }
}

}  // namespace driver_feature::check
