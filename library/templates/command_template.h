// Puts one value into a printf-style command template.
//
// Templates come from a file, so they are parsed here and never handed to
// printf. A template is literal text, "%%" for a per cent sign, and at most
// one conversion, which must fit the value:
//
//   text      s
//   integer   d i u x X o       length letters h hh l ll j z t
//             c                 a character; no length letters
//   float     f F e E g G a A   length letters l L
//
// with the flags "-+ #0", a width and a precision of up to 4096 each. What
// comes out is what printf gives in the C locale, of any length. Of the length
// letters only h and hh mean something: they narrow the integer; the others
// promise a type that the value does not have, and are passed over.
#ifndef TEMPLATES_COMMAND_TEMPLATE_H_
#define TEMPLATES_COMMAND_TEMPLATE_H_

#include <string>
#include <string_view>

namespace driver_feature {

// Store the finished text in `output`. False, with `output` left alone, when
// the template is not of this form.
bool formatCommand(std::string_view commandTemplate, std::string_view value, std::string& output);
bool formatCommand(std::string_view commandTemplate, int value, std::string& output);
bool formatCommand(std::string_view commandTemplate, double value, std::string& output);

// The same, behind what `output` holds already.
bool appendCommand(std::string_view commandTemplate, std::string_view value, std::string& output);
bool appendCommand(std::string_view commandTemplate, int value, std::string& output);
bool appendCommand(std::string_view commandTemplate, double value, std::string& output);

}  // namespace driver_feature

#endif  // TEMPLATES_COMMAND_TEMPLATE_H_
