#include "host/page/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::page {
namespace {

const CommandFrame kFrame{"office.xml", "", {}};

TEST(CommandLineTest, NoSettings_AreTheDescriptionAlone) {
  EXPECT_EQ(commandLine(kFrame, {}), "driver-feature emit --to ps office.xml");
}

TEST(CommandLineTest, PlainSettings_AreOptions) {
  EXPECT_EQ(commandLine(kFrame, {{{"Duplex", "On"}, {"Copies", "2"}}, {}}),
            "driver-feature emit --to ps office.xml -o Duplex=On -o Copies=2");
}

TEST(CommandLineTest, Words_AreQuotedForAShell) {
  EXPECT_EQ(commandLine({"my file.xml", "/lib/a b.so", {"-r.so", "x.so"}},
                        {{{"Name", "it's $HOME"}, {"Empty", ""}, {"Text", "a\"`\\*~"}}, {}}),
            "driver-feature emit --to ps --library '/lib/a b.so' --callbacks ./-r.so "
            "--callbacks x.so 'my file.xml' -o 'Name=it'\\''s $HOME' -o Empty= -o "
            "'Text=a\"`\\*~'");
}

TEST(CommandLineTest, ValuesThatAreNoWords_AreInASettingsFileWithAllOthers) {
  EXPECT_EQ(commandLine(kFrame, {{{"Duplex", "On"}, {"Text", "a\nb\xFF"}}, {}}),
            "driver-feature emit --to ps office.xml --settings /dev/stdin <<'END'\n"
            "Duplex=On\n"
            "Text=a\\nb\\xff\n"
            "END\n");
}

TEST(CommandLineTest, NamesThatOptionsCannotHave_AreInASettingsFile) {
  for (const std::string name : {"-o", "a=b", "x\x01"}) {
    const EmitSettings settings = emitSettingsOf({{{name, "1"}}, {}});
    EXPECT_TRUE(settings.options.empty()) << name;
    EXPECT_FALSE(settings.file.empty()) << name;
  }
}

TEST(CommandLineTest, Records_AreInASettingsFile) {
  EXPECT_EQ(commandLine(kFrame, {{{"Duplex", "On"}},
                                 {{"Pages", {{"First", "1"}, {"Media", "Plain"}}},
                                  {"Pages", {{"First", "END"}, {"Media", ""}}}}}),
            "driver-feature emit --to ps office.xml -o Duplex=On --settings /dev/stdin <<'END'\n"
            "[Pages]\n"
            "First=1\n"
            "Media=Plain\n"
            "[Pages]\n"
            "First=END\n"
            "Media=\n"
            "END\n");
}

TEST(QueryTest, SettingsAndRecords_AreEncoded) {
  EXPECT_EQ(queryOf({{{"Duplex", "On"}, {"Näme", "a&b=c +%"}}, {{"Pages", {{"First", "1"}}}}}),
            "Duplex=On&N%C3%A4me=a%26b%3Dc%20%2B%25&%5BPages%5D=%5B%221%22%5D");
  EXPECT_EQ(queryOf({}), "");
}

TEST(QueryTest, EncodedSettings_AreReadBack) {
  const PresentSettings present = readQuery(
      "Duplex=On&N%C3%A4me=a%26b%3Dc%20%2B%25&%5BPages%5D=%5B%221%22%2C%22x%22%5D&Text=a+b%2");
  ASSERT_EQ(present.settings.size(), 3U);
  EXPECT_EQ(present.settings[0].name, "Duplex");
  EXPECT_EQ(present.settings[0].value, "On");
  EXPECT_EQ(present.settings[1].name, "Näme");
  EXPECT_EQ(present.settings[1].value, "a&b=c +%");
  EXPECT_EQ(present.settings[2].value, "a b%2");
  ASSERT_EQ(present.records.size(), 1U);
  EXPECT_EQ(present.records[0].group, "Pages");
  ASSERT_EQ(present.records[0].members.size(), 2U);
  EXPECT_EQ(present.records[0].members[0].value, "1");
  EXPECT_EQ(present.records[0].members[1].value, "x");
}

TEST(QueryTest, WhatIsNoSetting_IsLeftOut) {
  EXPECT_TRUE(readQuery("").settings.empty());
  EXPECT_TRUE(readQuery("Duplex&=x&&").settings.empty());
  // A record that is not an array of texts is a setting with a strange name.
  EXPECT_TRUE(readQuery("%5BPages%5D=%5B1%5D").records.empty());
  EXPECT_TRUE(readQuery("%5BPages%5D=%5B").records.empty());
}

}  // namespace
}  // namespace driver_feature::page
