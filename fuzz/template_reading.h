// Reads command templates by the grammar of printf, independently of the
// library: what the library must accept and refuse, and what may be passed to
// the C library's own formatter.
#ifndef FUZZ_TEMPLATE_READING_H_
#define FUZZ_TEMPLATE_READING_H_

#include <string>
#include <string_view>

namespace driver_feature::fuzz {

// The conversions of one kind of value.
struct Grammar {
  std::string_view letters;
  std::string_view lengths;  // Length letters between blanks; none go with "c".
};

inline constexpr Grammar kTextGrammar = {"s", ""};
inline constexpr Grammar kIntegerGrammar = {"diuxXoc", " h hh l ll j z t "};
inline constexpr Grammar kFloatGrammar = {"fFeEgGaA", " l L "};

struct TemplateReading {
  bool isTaken = false;  // The library must accept the template.
  std::string flags;
  std::string length;
  char letter = 0;  // NUL without a conversion.
  // The template without length letters that mean nothing; for the C library.
  std::string forPrintf;
};

TemplateReading readTemplate(const std::string& text, const Grammar& grammar);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_TEMPLATE_READING_H_
