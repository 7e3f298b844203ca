#include "host/settings/settings_text.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

TEST(SettingsTextTest, SettingLine_HostileTexts_ComeBackUnchanged) {
  const std::pair<std::string, std::string> rows[] = {
      {"", "A=\n"},
      {" ", "A=\\s\n"},
      {"  a  b  ", "A=\\s a  b \\s\n"},
      {"#x", "A=#x\n"},
      {"[x]=y", "A=[x]=y\n"},
      {"\"q\"'", "A=\"q\"'\n"},
      {"a\\n", "A=a\\\\n\n"},
      {"\n\r\t\x1B\x7F", "A=\\n\\r\\t\\x1b\\x7f\n"},
      {std::string("\0a\0", 3), "A=\\x00a\\x00\n"},
      {"\xC3\xA4\xFF\xE4", "A=\xC3\xA4\\xff\\xe4\n"},
      {"\xEF\xBB\xBF\xEF\xBB\xBF", "A=\\xef\\xbb\\xbf\xEF\xBB\xBF\n"},
  };
  for (const auto& [value, line] : rows) {
    EXPECT_EQ(settingLine({"A", value}), line);
    const SettingsText text = parseSettings(line);
    ASSERT_EQ(text.features.size(), 1U) << line;
    EXPECT_EQ(text.features[0].setting.value, value);
    EXPECT_TRUE(text.refusals.empty());
  }
}

TEST(SettingsTextTest, Names_WithSigns_ComeBackUnchanged) {
  for (const std::string name : {"a=b", "#a", "[a]", " a ", "\\", "]", "\xEF\xBB\xBF#a"}) {
    const SettingsText text =
        parseSettings(settingLine({name, "x"}) + recordLine(name) + noRecordsLine(name));
    ASSERT_EQ(text.features.size(), 1U) << name;
    EXPECT_EQ(text.features[0].setting.name, name);
    ASSERT_EQ(text.records.size(), 2U) << name;
    EXPECT_EQ(text.records[0].group, name);
    EXPECT_FALSE(text.records[0].isNone);
    EXPECT_EQ(text.records[1].group, name);
    EXPECT_TRUE(text.records[1].isNone);
    EXPECT_EQ(text.records[1].line, 3);
  }
}

TEST(SettingsTextTest, Parse_WrongEscapes_AreRefusedWithTheEscape) {
  const std::pair<std::string, std::string> rows[] = {
      {"\\", "\\"}, {"\\q", "\\q"}, {"\\x4", "\\x4"}, {"\\x4g1", "\\x4g"}, {"a\\N", "\\N"}};
  for (const auto& [value, escape] : rows) {
    const SettingsText text = parseSettings("\n# c\nA=" + value + "\nB=2");
    ASSERT_EQ(text.refusals.size(), 1U) << value;
    EXPECT_EQ(text.refusals[0].position.line, 3);
    EXPECT_EQ(text.refusals[0].text,
              "there is no escape \"" + escape +
                  "\"; write \\\\, \\s, \\t, \\n, \\r or \\xNN, and a backslash as \\\\");
    ASSERT_EQ(text.features.size(), 1U);
    EXPECT_EQ(text.features[0].line, 4);
  }
  EXPECT_EQ(parseSettings("A=\\x4A\\x4a").features[0].setting.value, "JJ");
}

}  // namespace

}  // namespace driver_feature::host
