// Compared with the C library's own formatter, in the C locale, for templates
// that are legal to hand to it; the rest is written by hand.

#include "templates/command_template.h"

#include <locale.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace driver_feature {
namespace {

// The C locale for the thread, whatever the process has.
class ClassicLocale {
 public:
  ClassicLocale() : before_(uselocale(classic())) {}
  ~ClassicLocale() { uselocale(before_); }
  ClassicLocale(const ClassicLocale&) = delete;
  ClassicLocale& operator=(const ClassicLocale&) = delete;

 private:
  static locale_t classic() {
    static const locale_t kClassic = newlocale(LC_ALL_MASK, "C", nullptr);
    return kClassic;
  }

  locale_t before_;
};

// What printf makes of the template.
template <class Argument>
std::string printed(const std::string& commandTemplate, Argument argument) {
  const ClassicLocale locale;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  const int size = std::snprintf(nullptr, 0, commandTemplate.c_str(), argument);
  std::string text(static_cast<std::size_t>(size) + 1, '\0');
  std::snprintf(text.data(), text.size(), commandTemplate.c_str(), argument);
#pragma GCC diagnostic pop
  text.pop_back();
  return text;
}

// Every combination of flags, widths and precisions before `ending`.
std::vector<std::string> conversions(const std::string& flags, const std::string& ending) {
  std::vector<std::string> all;
  for (unsigned chosen = 0; chosen < 1U << flags.size(); ++chosen) {
    std::string flagText;
    for (std::size_t i = 0; i < flags.size(); ++i) {
      if ((chosen >> i & 1U) != 0) flagText += flags[i];
    }
    for (const char* width : {"", "1", "7", "40"}) {
      for (const char* precision : {"", ".", ".0", ".1", ".3", ".20"}) {
        all.push_back("<%" + flagText + width + precision + ending + "|%%>");
      }
    }
  }
  return all;
}

template <class Value, class Argument>
void expectAsPrinted(const std::string& commandTemplate, const Value& value, Argument argument) {
  std::string text = "unset";
  EXPECT_TRUE(formatCommand(commandTemplate, value, text)) << commandTemplate;
  EXPECT_EQ(text, printed(commandTemplate, argument)) << commandTemplate;
}

TEST(CommandTemplateTest, Integer_EveryLegalConversion_IsAsPrinted) {
  const int values[] = {0, 1, -1, -3, 8, 255, 70000, -70000, INT_MAX, INT_MIN};
  for (const std::string length : {"", "h", "hh"}) {
    for (const int value : values) {
      for (const std::string letter : {"d", "i"}) {
        for (const auto& t : conversions("-+ 0", length + letter)) expectAsPrinted(t, value, value);
      }
      for (const auto& t : conversions("-0", length + "u")) expectAsPrinted(t, value, value);
      for (const std::string letter : {"x", "X", "o"}) {
        for (const auto& t : conversions("-#0", length + letter)) expectAsPrinted(t, value, value);
      }
    }
  }
}

TEST(CommandTemplateTest, Character_EveryWidth_IsAsPrinted) {
  for (const int value : {65, 32, 200, 10, 321}) {
    for (const std::string t : {"%c", "<%5c>", "<%-5c>", "%%%c%%"}) {
      expectAsPrinted(t, value, value);
    }
  }
}

TEST(CommandTemplateTest, Character_Zero_IsANulByte) {
  std::string text;
  EXPECT_TRUE(formatCommand("a%cb", 0, text));
  EXPECT_EQ(text, std::string("a\0b", 3));
}

TEST(CommandTemplateTest, Float_EveryLegalConversion_IsAsPrinted) {
  const double values[] = {0.0,
                           -0.0,
                           2.5,
                           -2.5,
                           static_cast<double>(0.1F),
                           1.0,
                           0.5,
                           1e10,
                           123456789.0,
                           1e-7,
                           0.0001,
                           0.00001234,
                           static_cast<double>(FLT_MAX),
                           static_cast<double>(FLT_MIN),
                           static_cast<double>(std::numeric_limits<float>::denorm_min()),
                           DBL_MAX,
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
  for (const std::string letter : {"f", "F", "e", "E", "g", "G", "a", "A", "lf", "lg"}) {
    for (const auto& t : conversions("-+ #0", letter)) {
      for (const double value : values) expectAsPrinted(t, value, value);
    }
  }
}

// Not compared: the C library of some systems loses the zeros that "#" asks for
// when rounding adds a digit.
TEST(CommandTemplateTest, Float_GeneralFormRoundedUp_KeepsItsZerosWhenAsked) {
  std::string text;
  EXPECT_TRUE(formatCommand("%g", 999999.5, text));
  EXPECT_EQ(text, "1e+06");
  EXPECT_TRUE(formatCommand("%#g", 999999.5, text));
  EXPECT_EQ(text, "1.00000e+06");
  EXPECT_TRUE(formatCommand("%#.3g", 9.999, text));
  EXPECT_EQ(text, "10.0");
}

TEST(CommandTemplateTest, Text_EveryLegalConversion_IsAsPrinted) {
  const std::string values[] = {"", "A4", "100%s %n %%", std::string(10000, 'x')};
  for (const auto& t : conversions("-", "s")) {
    for (const std::string& value : values) {
      expectAsPrinted(t, std::string_view(value), value.c_str());
    }
  }
}

struct LiteralRow {
  std::string commandTemplate;
  std::string text;
};

TEST(CommandTemplateTest, NoConversion_AnyValue_GivesTheTemplateText) {
  const LiteralRow rows[] = {
      {"", ""},       {"plain", "plain"}, {"100%%", "100%"},
      {"%%%%", "%%"}, {"%%s", "%s"},      {std::string("a\0b", 3), std::string("a\0b", 3)},
  };
  for (const LiteralRow& row : rows) {
    std::string text = "unset";
    EXPECT_TRUE(formatCommand(row.commandTemplate, std::string_view("v"), text));
    EXPECT_EQ(text, row.text);
    text = "unset";
    EXPECT_TRUE(formatCommand(row.commandTemplate, 1, text));
    EXPECT_EQ(text, row.text);
    text = "unset";
    EXPECT_TRUE(formatCommand(row.commandTemplate, 1.0, text));
    EXPECT_EQ(text, row.text);
  }
}

TEST(CommandTemplateTest, Integer_WideLengthLetters_ArePassedOver) {
  for (const std::string length : {"l", "ll", "j", "z", "t"}) {
    std::string text;
    EXPECT_TRUE(formatCommand("%" + length + "d", -3, text)) << length;
    EXPECT_EQ(text, "-3") << length;
    EXPECT_TRUE(formatCommand("%" + length + "u", -3, text)) << length;
    EXPECT_EQ(text, "4294967293") << length;
    EXPECT_TRUE(formatCommand("%" + length + "x", -3, text)) << length;
    EXPECT_EQ(text, "fffffffd") << length;
  }
  std::string text;
  EXPECT_TRUE(formatCommand("%Lf", 2.5, text));
  EXPECT_EQ(text, "2.500000");
}

TEST(CommandTemplateTest, Text_ZeroFlag_PadsWithBlanks) {
  std::string text;
  EXPECT_TRUE(formatCommand("%05s", std::string_view("ab"), text));
  EXPECT_EQ(text, "   ab");
}

TEST(CommandTemplateTest, Text_NulCharacter_StaysInTheResult) {
  std::string text;
  EXPECT_TRUE(formatCommand("<%s>", std::string_view("a\0b", 3), text));
  EXPECT_EQ(text, std::string("<a\0b>", 5));
}

TEST(CommandTemplateTest, AnyValue_LongResult_ComesOutWhole) {
  const std::string value(100000, 'v');
  std::string text;
  EXPECT_TRUE(formatCommand("<%s>" + value, std::string_view(value), text));
  EXPECT_EQ(text, "<" + value + ">" + value);
  EXPECT_TRUE(formatCommand("%4096d", 7, text));
  EXPECT_EQ(text, std::string(4095, ' ') + "7");
  EXPECT_TRUE(formatCommand("%.4096d", 7, text));
  EXPECT_EQ(text, std::string(4095, '0') + "7");
  EXPECT_TRUE(formatCommand("%.4096f", 0.5, text));
  EXPECT_EQ(text, "0.5" + std::string(4095, '0'));
  EXPECT_TRUE(formatCommand("%.4096e", 0.0, text));
  EXPECT_EQ(text, "0." + std::string(4096, '0') + "e+00");
  EXPECT_TRUE(formatCommand("%#.4096g", 0.5, text));
  EXPECT_EQ(text, "0.5" + std::string(4095, '0'));
}

TEST(CommandTemplateTest, AnyValue_IllFormedTemplate_IsRefused) {
  for (const std::string t : {"%",
                              "a%",
                              "%%%",
                              "%n",
                              "%5%",
                              "%-%",
                              "%*d",
                              "%.*f",
                              "%*s",
                              "%1$d",
                              "%q",
                              "%p",
                              "%m",
                              "%ld%",
                              "%4097d",
                              "%.4097d",
                              "%99999999999999999999d",
                              "%.99999999999999999999f",
                              "%4097s",
                              "%h",
                              "%.",
                              "%-",
                              "%'d",
                              "%Id",
                              "%hhhd",
                              "%lld%d"}) {
    std::string text = "kept";
    EXPECT_FALSE(formatCommand(t, std::string_view("v"), text)) << t;
    EXPECT_FALSE(formatCommand(t, 1, text)) << t;
    EXPECT_FALSE(formatCommand(t, 1.0, text)) << t;
    EXPECT_EQ(text, "kept") << t;
  }
}

TEST(CommandTemplateTest, AnyValue_SecondConversion_IsRefused) {
  std::string text = "kept";
  EXPECT_FALSE(formatCommand("%s%s", std::string_view("v"), text));
  EXPECT_FALSE(formatCommand("%d %d", 1, text));
  EXPECT_FALSE(formatCommand("%f %% %f", 1.0, text));
  EXPECT_EQ(text, "kept");
}

TEST(CommandTemplateTest, AnyValue_ConversionOfAnotherKind_IsRefused) {
  std::string text = "kept";
  for (const std::string t : {"%d", "%i", "%u", "%x", "%X", "%o", "%c", "%f", "%F", "%e", "%E",
                              "%g", "%G", "%a", "%A", "%r", "%t", "%S"}) {
    EXPECT_FALSE(formatCommand(t, std::string_view("v"), text)) << t;
  }
  for (const std::string t : {"%s", "%f", "%F", "%e", "%E", "%g", "%G", "%a", "%A"}) {
    EXPECT_FALSE(formatCommand(t, 1, text)) << t;
  }
  for (const std::string t : {"%s", "%d", "%i", "%u", "%x", "%X", "%o", "%c"}) {
    EXPECT_FALSE(formatCommand(t, 1.0, text)) << t;
  }
  EXPECT_EQ(text, "kept");
}

TEST(CommandTemplateTest, AnyValue_ConversionOfItsKind_IsTaken) {
  std::string text;
  EXPECT_TRUE(formatCommand("%s", std::string_view("v"), text));
  for (const std::string t : {"%d", "%i", "%u", "%x", "%X", "%o", "%c"}) {
    EXPECT_TRUE(formatCommand(t, 1, text)) << t;
  }
  for (const std::string t : {"%f", "%F", "%e", "%E", "%g", "%G", "%a", "%A"}) {
    EXPECT_TRUE(formatCommand(t, 1.0, text)) << t;
  }
}

TEST(CommandTemplateTest, AnyValue_LengthLettersOfAnotherKind_AreRefused) {
  std::string text = "kept";
  for (const std::string t : {"%ls", "%hs", "%lls", "%Ls"}) {
    EXPECT_FALSE(formatCommand(t, std::string_view("v"), text)) << t;
  }
  for (const std::string t : {"%lc", "%hc", "%Ld", "%Lx"}) {
    EXPECT_FALSE(formatCommand(t, 65, text)) << t;
  }
  for (const std::string t : {"%hf", "%llf", "%jg", "%zf", "%ta"}) {
    EXPECT_FALSE(formatCommand(t, 1.0, text)) << t;
  }
  EXPECT_EQ(text, "kept");
}

}  // namespace
}  // namespace driver_feature
