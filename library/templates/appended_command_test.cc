// Commands appended to a text, and rows of per cent signs in templates.

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "templates/command_template.h"

namespace driver_feature {
namespace {

struct Row {
  const char* commandTemplate;
  const char* expected;  // For the value "v"; null when the template is refused.
};

constexpr Row kRows[] = {
    {"%%", "%"},        {"%%%%", "%%"},      {"%%%%%%", "%%%"},
    {"a%%%%b", "a%%b"}, {"%%%s", "%v"},      {"%%%%%s", "%%v"},
    {"%s%%", "v%"},     {"%s%%%%s", "v%%s"}, {"a%%b%sc%%d", "a%bvc%d"},
    {"%%s", "%s"},      {"%%%%s", "%%s"},    {"%", nullptr},
    {"%%%", nullptr},   {"a%%%%%", nullptr}, {"%s%%%s", nullptr},
    {"%s%", nullptr},   {"%%%d", nullptr},   {"%%%5s", "%    v"},
};

TEST(AppendedCommandTest, RowsOfSigns_EachTwoAreOne) {
  for (const Row& row : kRows) {
    std::string text = "before ";
    const bool accepted = appendCommand(row.commandTemplate, std::string_view("v"), text);
    EXPECT_EQ(accepted, row.expected != nullptr) << row.commandTemplate;
    EXPECT_EQ(text, std::string("before ") + (accepted ? row.expected : "")) << row.commandTemplate;
  }
}

TEST(AppendedCommandTest, Numbers_StandBehindTheText) {
  std::string text = "a";
  EXPECT_TRUE(appendCommand("%%%d;", 12, text));
  EXPECT_TRUE(appendCommand("%.1f", 2.5, text));
  EXPECT_FALSE(appendCommand("b%s", 2, text));
  EXPECT_EQ(text, "a%12;2.5");
}

TEST(AppendedCommandTest, EmptyTemplate_AppendsNothing) {
  std::string text = "a";
  EXPECT_TRUE(appendCommand("", std::string_view("v"), text));
  EXPECT_EQ(text, "a");
}

}  // namespace
}  // namespace driver_feature
