// The shell's commands about values, properties and what they cause.

#include "host/shell_fixture.h"

namespace {

class ShellValuesTest : public ShellTest {};

TEST_F(ShellValuesTest, Set_EveryType_ShowsTheChangeAndTheNotification) {
  EXPECT_EQ(transcriptOf({"set Copies 3", "set Scale 1.25", "set Owner 'A. \"B\"'",
                          "set Duplex Long", "get Copies", "get Scale", "get Owner", "get Duplex"}),
            "  changed Copies: 1 -> 3\n"
            "  update callback\n"
            "  changed Scale: 0.5 -> 1.25\n"
            "  update callback\n"
            "  changed Owner: me -> \"A. \\\"B\\\"\"\n"
            "  update callback\n"
            "  changed Duplex: Off -> Long\n"
            "  update callback\n"
            "3\n"
            "1.25\n"
            "\"A. \\\"B\\\"\"\n"
            "Long\n");
}

TEST_F(ShellValuesTest, Set_SameValue_CausesNothing) {
  EXPECT_EQ(transcriptOf({"set Copies 1", "set Owner me"}), "");
}

TEST_F(ShellValuesTest, Set_ChangeRoutine_IsSeenByWhatItChanges) {
  EXPECT_EQ(transcriptOf({"set Media Foil"}),
            "  changed Duplex: Off -> Off, unavailable\n"
            "  changed Media: Plain -> Foil\n"
            "  update callback\n"
            "  update callback\n");
}

TEST_F(ShellValuesTest, Set_Property_GoesToTheOverloadOfItsType) {
  EXPECT_EQ(
      transcriptOf({"set Copies DefaultIntValue -7", "get Copies DefaultIntValue",
                    "set Scale DeferredFloatValue +.25", "get Scale DeferredFloatValue",
                    "set Owner CLOKey \"\\e a\\x41\"", "get Owner CLOKey",
                    "set Duplex Visibility 0", "get Duplex Visibility",
                    "set Copies CurrentIntValue 3000", "set Pages RecordInFocus 4",
                    "get Pages RecordInFocus", "set Page PSCommand '%s'", "get Page PSCommand"}),
      "-7\n"
      "0.25\n"
      "\"\\e aA\"\n"
      "  changed Duplex: Off -> Off, hidden\n"
      "  update callback\n"
      "false\n"
      "  changed Copies: 1 -> 3000\n"
      "  update callback\n"
      "  update callback\n"
      "4\n"
      "%s\n");
}

TEST_F(ShellValuesTest, Set_WrongTypeOfFeature_ShowsTheLibrarysLine) {
  EXPECT_EQ(transcriptOf({"log all", "set Copies CurrentTextValue two"}),
            "  warning: DriverFeature::setFeatureProperty(string) - Attempt to set feature "
            "property:  \"CurrentTextValue\" for feature \"Copies\" to twowhere the feature is not "
            "a text valued feature.\n");
}

TEST_F(ShellValuesTest, Set_Refused_SaysWhyAndChangesNothing) {
  struct Row {
    std::string line;
    std::string reason;
  };
  const Row rows[] = {
      {"set Copies 10", "10 is out of range; give a whole number, from 1 to 9 (office.xml:5)"},
      {"set Copis 2", "there is no feature \"Copis\"; did you mean \"Copies\"?"},
      {"set Duplex Lon",
       "feature \"Duplex\" has no option \"Lon\"; did you mean \"Long\"? (choose "
       "one of Off, Long, Short)"},
      {"set Pages 1", "\"Pages\" is a dynamic group and holds records, not a value; leave it out"},
      {"set Copies", "an argument is missing; write set NAME [PROPERTY] VALUE"},
      {"set Copies a b c", "too many arguments; write set NAME [PROPERTY] VALUE"},
      {"set Copis CLOKey c", "there is no feature or group \"Copis\"; did you mean \"Copies\"?"},
      {"set Copies CLOkey c", "there is no property \"CLOkey\"; did you mean \"CLOKey\"?"},
      {"set Copies DefaultIntValue 1.5",
       "\"1.5\" is not a value for \"DefaultIntValue\"; give a whole number from -2147483648 to "
       "2147483647"},
      {"set Scale FloatMinValue ''",
       "\"\" is not a value for \"FloatMinValue\"; give a decimal number"},
      {"set Copies Visibility yes",
       "\"yes\" is not a value for \"Visibility\"; give true or false"},
      {"set Copies FeatureType 9",
       "the library refuses this value of \"FeatureType\" for \"Copies\"; \"log all\" shows why"},
      {"st Copies 2", "there is no command \"st\"; did you mean \"set\"?"},
      {"copies", "there is no command \"copies\"; \"help\" lists the commands"},
      {"set Owner \"a", "a quote is not closed; end the word with \""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(runScript({"", row.line}),
              failure(2, "driver-feature: standard input:2: " + row.reason + "\n"));
  }
}

TEST_F(ShellValuesTest, Get_Refused_SaysWhy) {
  struct Row {
    std::string line;
    std::string reason;
  };
  const Row rows[] = {
      {"get Heading",
       "\"Heading\" is a UIOnly feature and holds no value; name a property, or \"all\" of them"},
      {"get Pages", "\"Pages\" is a group and holds no value; name a property, or \"all\" of them"},
      {"get Copies IntMaxValue",
       "\"Copies\" does not return property \"IntMaxValue\"; \"log all\" shows why"},
      {"get Copies ValueStrings",
       "there is no property \"ValueStrings\"; did you mean \"ValueString\"?"},
      {"get Copies Zzzzzz", "there is no property \"Zzzzzz\"; \"help get\" shows how to list them"},
      {"get", "an argument is missing; write get NAME [PROPERTY|all]"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(runScript({row.line}),
              failure(2, "driver-feature: standard input:1: " + row.reason + "\n"));
  }
}

TEST_F(ShellValuesTest, Get_All_ListsWhatTheLibraryGivesBack) {
  EXPECT_EQ(runScript({"set Pages PSCommand hidden", "get Pages all"}),
            success("AddPJLCallbackRoutine   \"\"\n"
                    "AddPSCallbackRoutine    \"\"\n"
                    "AddVORNCallbackRoutine  \"\"\n"
                    "InstOptAttributeName    \"\"\n"
                    "Name                    Pages\n"
                    "NonVORNAttributeName    \"\"\n"
                    "RecordInFocus           -1\n"
                    "Sensitivity             true\n"
                    "TESKAttributeSyntax     \"\"\n"
                    "TESKJTAttributeName     \"\"\n"
                    "TESKOAAttributeName     \"\"\n"
                    "Visibility              true\n"));
}

TEST_F(ShellValuesTest, Get_AllOfAFeature_ShowsEveryCopyOfTheValue) {
  EXPECT_EQ(runScript({"set Copies OriginalIntValue 4", "set Copies DeferredIntValue 5",
                       "get Copies all"}),
            success("AddPJLCallbackRoutine   \"\"\n"
                    "AddVORNCallbackRoutine  \"\"\n"
                    "BiDiDataSection         \"\"\n"
                    "CLOKey                  \"\"\n"
                    "CurrentFloatValue       0\n"
                    "CurrentIntValue         1\n"
                    "CurrentTextValue        \"\"\n"
                    "DefaultFloatValue       0\n"
                    "DefaultIntValue         1\n"
                    "DefaultTextValue        \"\"\n"
                    "DeferredFloatValue      0\n"
                    "DeferredIntValue        5\n"
                    "DeferredTextValue       \"\"\n"
                    "Encrypted               false\n"
                    "FeatureInGroup          false\n"
                    "FeatureType             2\n"
                    "FeatureValueType        1\n"
                    "FloatMaxValue           0\n"
                    "FloatMinValue           0\n"
                    "InstOptAttributeName    \"\"\n"
                    "MaxTextLength           0\n"
                    "Name                    Copies\n"
                    "NonVORNAttributeName    \"\"\n"
                    "OriginalFloatValue      0\n"
                    "OriginalIntValue        4\n"
                    "OriginalTextValue       \"\"\n"
                    "PJLCommand              \"\"\n"
                    "PSCommand               \"/Copies %d def\\n\"\n"
                    "SNMPOID                 \"\"\n"
                    "SNMPOIDPrefix           \"\"\n"
                    "Sensitivity             true\n"
                    "TESKAttributeSyntax     \"\"\n"
                    "TESKJTAttributeName     \"\"\n"
                    "TESKOAAttributeName     \"\"\n"
                    "TextValidationCharSet   \"\"\n"
                    "ValueString             1\n"
                    "Visibility              true\n"));
}

TEST_F(ShellValuesTest, Show_OneOrAll_ShowsTheTable) {
  EXPECT_EQ(runScript({"show"}),
            success("NAME     TYPE         VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                    "Copies   IntEntry     1      available     from 1 to 9\n"
                    "Duplex   MultiSelect  Off    available     Off, Long, Short\n"
                    "First    IntEntry     1      available     at least 1\n"
                    "Heading  UIOnly       -      available\n"
                    "Media    MultiSelect  Plain  available     Plain, Foil\n"
                    "Owner    TextEntry    \"me\"   available     at most 20 characters\n"
                    "Scale    FloatEntry   0.5    available\n"
                    "Tray     MultiSelect  Upper  available     Upper, Lower\n"
                    "\n"
                    "GROUP  KIND      IN     RECORDS  MEMBERS\n"
                    "Pages  dynamic   -      0        First, Tray\n"
                    "Page   template  Pages  -        First, Tray\n"));
  for (const char* name : {"Copies", "Pages"}) {
    const RunResult details = run({"--callbacks", ROUTINES_LIBRARY, "show", "office.xml", name});
    EXPECT_NE(details.output.find(name), std::string::npos);
    EXPECT_EQ(runScript({std::string("show ") + name}), details);
  }
  EXPECT_EQ(runScript({"show Pagen"}),
            failure(2,
                    "driver-feature: standard input:1: there is no feature or group \"Pagen\"; "
                    "did you mean \"Pages\"?\n"));
}

}  // namespace
