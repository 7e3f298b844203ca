// Commands appended to a text, and rows of per cent signs in templates.

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "templates/command_template.h"

namespace driver_feature {
namespace {

struct Row {
  const char* commandTemplate;
  const char* expected;  // For the value "v".
};

constexpr Row kRows[] = {
    {"%%", "%"},        {"%%%%", "%%"},      {"%%%%%%", "%%%"},
    {"a%%%%b", "a%%b"}, {"%%%s", "%v"},      {"%%%%%s", "%%v"},
    {"%s%%", "v%"},     {"%s%%%%s", "v%%s"}, {"a%%b%sc%%d", "a%bvc%d"},
    {"%%s", "%s"},      {"%%%%s", "%%s"},    {"%%%5s", "%    v"},
};

TEST(AppendedCommandTest, RowsOfSigns_EachTwoAreOne) {
  for (const Row& row : kRows) {
    std::string text = "before ";
    EXPECT_TRUE(appendCommand(row.commandTemplate, std::string_view("v"), text));
    EXPECT_EQ(text, std::string("before ") + row.expected) << row.commandTemplate;
  }
}

TEST(AppendedCommandTest, RowsOfSigns_ThatEndWithoutAConversion_AreRefused) {
  for (const char* refused : {"%", "%%%", "a%%%%%", "%s%%%s", "%s%", "%%%d"}) {
    std::string text = "before ";
    EXPECT_FALSE(appendCommand(refused, std::string_view("v"), text)) << refused;
    EXPECT_EQ(text, "before ") << refused;
  }
}

TEST(AppendedCommandTest, Numbers_FollowTheText) {
  std::string text = "a";
  EXPECT_TRUE(appendCommand("%%%d;", 12, text));
  EXPECT_TRUE(appendCommand("%.1f", 2.5, text));
  EXPECT_FALSE(appendCommand("b%s", 2, text));
  EXPECT_EQ(text, "a%12;2.5");
}

TEST(AppendedCommandTest, EmptyTemplate_AppendsNothing) {
  std::string text = "a";
  EXPECT_TRUE(appendCommand("", std::string_view("v"), text));
  EXPECT_TRUE(appendCommand(std::string_view(), std::string_view(), text));
  EXPECT_EQ(text, "a");
}

TEST(AppendedCommandTest, NullText_IsEmpty) {
  std::string text = "a";
  EXPECT_TRUE(appendCommand("<%s>", std::string_view(), text));
  EXPECT_EQ(text, "a<>");
}

TEST(PlainTemplateTest, OneText_IsWrittenAsFromTheTemplateItself) {
  struct {
    const char* commandTemplate;
    const char* expected;  // For the value "v".
  } const rows[] = {
      {"%s", "v"},
      {"a %s b", "a v b"},
      {"%%%s", "%v"},
      {"%s%%", "v%"},
      {"a%%b%sc%%%%d", "a%bvc%%d"},
      {"%%%%%s\n", "%%v\n"},
      {"%%s%s", "%sv"},
      {"%ss", "vs"},
  };
  for (const auto& row : rows) {
    const std::string plain = readPlainTemplate(row.commandTemplate);
    ASSERT_NE(plain, "") << row.commandTemplate;
    std::string text = "before ";
    appendPlainCommand(plain, "v", text);
    EXPECT_EQ(text, std::string("before ") + row.expected);
  }
}

TEST(PlainTemplateTest, AnyText_IsNeitherReadNorCut) {
  const std::string value("%s%%\0%", 6);
  std::string text;
  appendPlainCommand(readPlainTemplate(std::string_view("a\0%s", 4)), value, text);
  EXPECT_EQ(text, std::string("a\0", 2) + value);
  text = "b";
  appendPlainCommand(readPlainTemplate("%s"), {}, text);
  EXPECT_EQ(text, "b");
}

TEST(PlainTemplateTest, OtherTemplates_AreNot) {
  for (const char* other :
       {"", "text", "%%", "%", "%5s", "%-s", "%.1s", "%d", "%f", "%s%s", "%s%", "%ls", "%n"}) {
    EXPECT_EQ(readPlainTemplate(other), "") << other;
  }
}

}  // namespace
}  // namespace driver_feature
