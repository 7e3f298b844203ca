// Puts one value into a printf-style command template.
//
// Templates come from a file, so they are parsed here and never passed to
// printf. A template is literal text, "%%" for a per cent sign, and at most
// one conversion, which must fit the value:
//
//   text      s
//   integer   d i u x X o       length letters h hh l ll j z t
//             c                 a character; no length letters
//   float     f F e E g G a A   length letters l L
//
// with the flags "-+ #0", a width and a precision of up to 4096 each. The
// result is that of printf in the C locale, of any length. Of the length
// letters only h and hh have an effect: they narrow the integer; the others
// promise a type that the value does not have, and are ignored.
#ifndef TEMPLATES_COMMAND_TEMPLATE_H_
#define TEMPLATES_COMMAND_TEMPLATE_H_

#include <string>
#include <string_view>

namespace driver_feature {

// Store the finished text in `output`. Return false, with `output` unchanged,
// if the template does not have this form.
bool formatCommand(std::string_view commandTemplate, std::string_view value, std::string& output);
bool formatCommand(std::string_view commandTemplate, int value, std::string& output);
bool formatCommand(std::string_view commandTemplate, double value, std::string& output);

// The same, but append to `output`.
bool appendCommand(std::string_view commandTemplate, std::string_view value, std::string& output);
bool appendCommand(std::string_view commandTemplate, int value, std::string& output);
bool appendCommand(std::string_view commandTemplate, double value, std::string& output);

// Nearly every template has no other conversion than one "%s". Such a one can be
// read once, when it is set: the result is for appendPlainCommand(). Empty for
// other templates.
std::string readPlainTemplate(std::string_view commandTemplate);
void appendPlainCommand(std::string_view plainTemplate, std::string_view value,
                        std::string& output);

}  // namespace driver_feature

#endif  // TEMPLATES_COMMAND_TEMPLATE_H_
