// The shell's commands about many values at once, constraints and records.

#include "host/shell_fixture.h"

namespace {

class ShellStateTest : public ShellTest {
 protected:
  // The error line of a refused second line, without its place.
  std::string refusalOf(const std::string& first, const std::string& line) const {
    const RunResult result = runScript({first, line});
    EXPECT_EQ(result.status, 2) << line;
    const std::string place = "driver-feature: standard input:2: ";
    const std::size_t at = result.errors.find(place);
    return at == std::string::npos ? "no refusal" : result.errors.substr(at + place.size());
  }
};

TEST_F(ShellStateTest, SaveAndRestore_NamedOrAll_GoThroughTheLibrary) {
  EXPECT_EQ(transcriptOf({"set Copies 3", "save Copies", "get Copies OriginalIntValue",
                          "get Scale OriginalFloatValue", "save", "get Scale OriginalFloatValue",
                          "set Copies 4", "set Scale 2", "restore Scale", "get Copies", "restore"}),
            "  changed Copies: 1 -> 3\n"
            "  update callback\n"
            "3\n"
            "0\n"
            "0.5\n"
            "  changed Copies: 3 -> 4\n"
            "  update callback\n"
            "  changed Scale: 0.5 -> 2\n"
            "  update callback\n"
            "  changed Scale: 2 -> 0.5\n"
            "  update callback\n"
            "4\n"
            "  changed Copies: 4 -> 3\n"
            "  update callback\n");
  EXPECT_EQ(refusalOf("", "save Copies Copis"),
            "there is no feature \"Copis\"; did you mean \"Copies\"?\n");
  EXPECT_EQ(refusalOf("", "restore Pages"),
            "there is no feature \"Pages\"; give one of Copies, Duplex, First, Heading, Media, "
            "Owner, Scale, Tray\n");
}

TEST_F(ShellStateTest, Defaults_ChangedValues_ComeBackWithOneNotification) {
  EXPECT_EQ(transcriptOf({"set Copies 3", "set Owner you", "defaults"}),
            "  changed Copies: 1 -> 3\n"
            "  update callback\n"
            "  changed Owner: me -> you\n"
            "  update callback\n"
            "  changed Copies: 3 -> 1\n"
            "  changed Owner: you -> me\n"
            "  update callback\n");
}

TEST_F(ShellStateTest, WriteAndLoad_SettingsFile_BringsTheValuesBack) {
  EXPECT_EQ(transcriptOf({"set Copies 3", "write my.settings", "set Copies 4", "load my.settings",
                          "get Copies"}),
            "  changed Copies: 1 -> 3\n"
            "  update callback\n"
            "  changed Copies: 3 -> 4\n"
            "  update callback\n"
            "  changed Copies: 4 -> 3\n"
            "  update callback\n"
            "3\n");
}

TEST_F(ShellStateTest, Load_Refused_ChangesNothing) {
  write("one.settings", "Scale=2\nCopies=0\n");
  EXPECT_EQ(refusalOf("", "load one.settings"),
            "one.settings:2: 0 is out of range; give a whole number, from 1 to 9 "
            "(office.xml:5)\n");
  write("two.settings", "Copies=0\nScale=2\nOwnr=x\n");
  EXPECT_EQ(runScript({"load two.settings", "get Scale"}, {"--keep-going"}),
            (RunResult{2, "0.5\n",
                       "  two.settings:1: 0 is out of range; give a whole number, from 1 to 9 "
                       "(office.xml:5)\n"
                       "  two.settings:3: there is no feature \"Ownr\"; did you mean "
                       "\"Owner\"?\n"
                       "driver-feature: standard input:1: two.settings: nothing was loaded; "
                       "correct the lines above\n"}));
}

TEST_F(ShellStateTest, Constrain_CurrentOption_MovesTheValueFirst) {
  EXPECT_EQ(transcriptOf({"constrain Duplex Off 5", "constrain Duplex Short 6 hide",
                          "constrain Duplex Short 7", "release Duplex Short 6", "get Copies",
                          "release Duplex Short 7", "release Duplex Off 5"}),
            "  changed Duplex: Off -> Long\n"
            "  update callback\n"
            "  changed Duplex option Off: available -> unavailable\n"
            "  changed Duplex option Short: available -> unavailable, hidden\n"
            "1\n"
            "  changed Duplex option Short: unavailable, hidden -> available\n"
            "  changed Duplex option Off: unavailable -> available\n");
}

TEST_F(ShellStateTest, Constrain_Refused_SaysWhy) {
  EXPECT_EQ(refusalOf("", "constrain Copies Off 1"),
            "feature \"Copies\" has no options; name another feature\n");
  EXPECT_EQ(refusalOf("", "constrain Duplex Of 1"),
            "feature \"Duplex\" has no option \"Of\"; did you mean \"Off\"?\n");
  EXPECT_EQ(refusalOf("", "constrain Duplex Off -1"),
            "\"-1\" is not the number of a constraint; give a whole number of 0 or more\n");
  EXPECT_EQ(refusalOf("", "constrain Duplex Off 1 hid"),
            "\"hid\" is not expected; write \"hide\" or nothing\n");
  EXPECT_EQ(refusalOf("constrain Media Foil 1", "constrain Media Plain 1"),
            "the library refuses to constrain option \"Plain\"; make another option of \"Media\" "
            "available first\n");
  EXPECT_EQ(refusalOf("constrain Duplex Off 1", "release Duplex Off 2"),
            "no constraint 2 holds option \"Off\"; give the number of one that does\n");
}

TEST_F(ShellStateTest, Option_Property_IsShownAndSet) {
  EXPECT_EQ(transcriptOf({"option Media Foil", "option Media Foil PSCommand 'a b'",
                          "option Media Foil PSCommand", "option Media Foil Sensitivity 0",
                          "option Media Foil Sensitivity", "option Media Foil Visibility true"}),
            "CLOKey             \"\"\n"
            "DisplayText        \"\"\n"
            "Name               Foil\n"
            "PJLCommand         \"\"\n"
            "PSCommand          foil\n"
            "SNMPValue          \"\"\n"
            "Sensitivity        true\n"
            "TESKCommand        \"\"\n"
            "TESKTicketCommand  \"\"\n"
            "Visibility         true\n"
            "\"a b\"\n"
            "  changed Media option Foil: available -> unavailable\n"
            "false\n");
  EXPECT_EQ(refusalOf("", "option Media Foil Encrypted"),
            "options have no property \"Encrypted\"; give one of CLOKey, DisplayText, Name, "
            "PJLCommand, PSCommand, SNMPValue, Sensitivity, TESKCommand, TESKTicketCommand, "
            "Visibility\n");
  EXPECT_EQ(refusalOf("", "option Media Foil Visibility maybe"),
            "\"maybe\" is not a value for \"Visibility\"; give true or false\n");
  EXPECT_EQ(refusalOf("", "option Media Fool"),
            "feature \"Media\" has no option \"Fool\"; did you mean \"Foil\"?\n");
}

TEST_F(ShellStateTest, Records_AddedByWords_AreSortedAndListed) {
  EXPECT_EQ(
      transcriptOf({"records Pages", "records Pages add First=7 Tray=Lower",
                    "records Pages add Tray=Upper First=2", "records Pages list",
                    "records Pages has First=2 Tray=Upper", "records Pages has First=2 Tray=Lower",
                    "records Pages select 1", "records Pages", "records Pages deselect 1",
                    "records Pages load 1", "records Pages remove 0", "records Pages",
                    "records Pages clear", "records Pages clear", "records Pages sort"}),
      "no records\n"
      "  changed Pages records: 0 -> 1\n"
      "  update callback\n"
      "  changed Pages records: 1 -> 2\n"
      "  update callback\n"
      "RECORD  First  Tray\n"
      "0       2      Upper\n"
      "1       7      Lower\n"
      "yes\n"
      "no\n"
      "RECORD  First  Tray\n"
      "0       2      Upper\n"
      "1*      7      Lower\n"
      "  changed First: 1 -> 7\n"
      "  changed Tray: Upper -> Lower\n"
      "  changed Pages records: 2 -> 1\n"
      "  update callback\n"
      "RECORD  First  Tray\n"
      "0       7      Lower\n"
      "  changed Pages records: 1 -> 0\n"
      "  update callback\n");
}

TEST_F(ShellStateTest, Records_File_IsAddedWhole) {
  write("pages.json", R"([{"First": 9, "Tray": "Upper"}, {"First": 4, "Tray": "Lower"}])");
  EXPECT_EQ(transcriptOf({"records Pages add-file pages.json", "records Pages"}),
            "  changed Pages records: 0 -> 1\n"
            "  update callback\n"
            "  changed Pages records: 1 -> 2\n"
            "  update callback\n"
            "RECORD  First  Tray\n"
            "0       4      Lower\n"
            "1       9      Upper\n");
  EXPECT_EQ(refusalOf("", "records Pages add-file gone.json"),
            "gone.json: the file cannot be read: No such file or directory; give a JSON file\n");
}

TEST_F(ShellStateTest, Records_Refused_SaysWhy) {
  const std::string one = "records Pages add First=1 Tray=Upper";
  EXPECT_EQ(refusalOf("", "records Page"),
            "there is no dynamic group \"Page\"; did you mean \"Pages\"?\n");
  EXPECT_EQ(refusalOf("", "records Pages lst"),
            "there is no action \"lst\"; give one of add, add-file, clear, deselect, has, list, "
            "load, remove, select, sort\n");
  EXPECT_EQ(refusalOf("", "records Pages add First=1"),
            "member \"Tray\" is missing; give it a value\n");
  EXPECT_EQ(refusalOf("", "records Pages add First=1 Tray=Upper First=1"),
            "member \"First\" is given twice; give it one value\n");
  EXPECT_EQ(refusalOf("", "records Pages add First=0 Tray=Upper"),
            "\"First\": 0 is out of range; give a whole number, at least 1 (office.xml:11)\n");
  EXPECT_EQ(refusalOf("", "records Pages add Frst=1 Tray=Upper"),
            "group \"Pages\" has no member \"Frst\"; did you mean \"First\"?\n");
  EXPECT_EQ(refusalOf("", "records Pages has First"),
            "\"First\" is not MEMBER=VALUE; write it so\n");
  EXPECT_EQ(refusalOf("", "records Pages remove 0"),
            "there is no record 0 in \"Pages\"; it is empty\n");
  EXPECT_EQ(refusalOf(one, "records Pages load 1"),
            "there is no record 1 in \"Pages\"; the last one is 0\n");
  EXPECT_EQ(refusalOf(one, "records Pages deselect 0"),
            "record 0 is not selected; \"records Pages list\" shows which are\n");
  EXPECT_EQ(refusalOf("", "records Pages select"),
            "an argument is missing; \"help records\" shows what select takes\n");
  EXPECT_EQ(refusalOf("", "records Pages sort now"),
            "too many arguments; \"help records\" shows what sort takes\n");
}

TEST_F(ShellStateTest, Records_FeatureThatCallsItselfAGroup_IsRefused) {
  EXPECT_EQ(refusalOf("set Copies FeatureType 8", "records Copies"),
            "there is no dynamic group \"Copies\"; give one of Pages\n");
  EXPECT_EQ(refusalOf("set Duplex FeatureType 6", "constrain Duplex Off 1"),
            "feature \"Duplex\" has the type of a group; set its FeatureType to 0 to 5\n");
}

TEST_F(ShellStateTest, Records_SelectedTwice_IsRefused) {
  EXPECT_EQ(runScript({"log quiet", "records Pages add First=1 Tray=Upper",
                       "records Pages select 0", "records Pages select 0"}),
            failure(2,
                    "  changed Pages records: 0 -> 1\n"
                    "  update callback\n"
                    "driver-feature: standard input:4: record 0 is selected already; \"records "
                    "Pages list\" shows which are\n"));
}

}  // namespace
