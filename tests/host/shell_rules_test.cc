// What the shell does about rules that forbid values together.

#include "host/shell_fixture.h"

namespace {

// "Media=Film" forbids "Duplex=On"; "Staple=Yes" needs the hardware "Unit=Yes".
class ShellRulesTest : public ShellTest {
 protected:
  ShellRulesTest() {
    write(
        "office.xml",
        "<Driver><FeatureDescription>\n"
        "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n" +
            feature("MultiSelect", "Duplex", "DefaultValue='Off'",
                    "<O Name='Off'/><O Name='On'/>") +
            feature("MultiSelect", "Media", "DefaultValue='Plain'",
                    "<O Name='Plain'/><O Name='Film'/>") +
            feature("MultiSelect", "Staple", "DefaultValue='No'", "<O Name='No'/><O Name='Yes'/>") +
            feature("MultiSelect", "Unit", "DefaultValue='No'", "<O Name='No'/><O Name='Yes'/>") +
            "</FeatureDescription>\n"
            "<FeatureRules><Hardware Feature='Unit'/>\n"
            "<Never Id='film' Text='Film is printed on one side.'>"
            "<When Feature='Media' Is='Film'/><When Feature='Duplex' Is='On'/></Never>\n"
            "<Never Id='staple'>"
            "<When Feature='Staple' Is='Yes'/><When Feature='Unit' Is='No'/></Never>\n"
            "</FeatureRules></Driver>\n");
  }
};

constexpr const char* kRefused =
    "Duplex=On cannot be combined with Media=Film: Film is printed on one side (office.xml:5)";

TEST_F(ShellRulesTest, Set_ForbiddenValue_IsRefusedAndChangesNothing) {
  EXPECT_EQ(runScript({"set Media Film", "set Duplex On"}),
            (RunResult{2, "",
                       "  changed Media: Plain -> Film\n  update callback\n"
                       "driver-feature: standard input:2: " +
                           std::string(kRefused) +
                           "; \"resolve\" in place of \"set\" also changes Media: Film -> "
                           "Plain\n"}));
}

TEST_F(ShellRulesTest, Resolve_ChangesOthersAndSaysWhy) {
  EXPECT_EQ(transcriptOf({"set Media Film", "resolve Duplex On", "get Media"}),
            "  changed Media: Plain -> Film\n  update callback\n"
            "  changed Duplex: Off -> On\n  update callback\n"
            "  changed Media: Film -> Plain\n  update callback\n"
            "Media is changed from \"Film\" to \"Plain\": " +
                std::string(kRefused) + "\nPlain\n");
  EXPECT_EQ(transcriptOf({"resolve Duplex On"}),
            "  changed Duplex: Off -> On\n  update callback\n");
}

TEST_F(ShellRulesTest, Hardware_TakesOptionsOutAndGivesThemBack) {
  EXPECT_EQ(transcriptOf({"option Staple Yes Sensitivity", "set Unit Yes",
                          "option Staple Yes Sensitivity", "set Staple Yes"}),
            "false\n"
            "  changed Unit: No -> Yes\n  update callback\n"
            "  changed Staple option Yes: unavailable -> available\n"
            "true\n"
            "  changed Staple: No -> Yes\n  update callback\n");
}

TEST_F(ShellRulesTest, ImpossibleValue_NamesTheHardware) {
  EXPECT_EQ(runScript({"resolve Staple Yes"}),
            failure(2,
                    "driver-feature: standard input:1: Staple=Yes cannot be combined with Unit=No "
                    "(rule staple) (office.xml:6); possible with Unit=Yes\n"));
}

TEST_F(ShellRulesTest, Show_TellsWhatIsTakenOut) {
  const std::string shown = transcriptOf({"show"});
  EXPECT_NE(shown.find("\nTAKEN OUT BY RULES\n  Staple=Yes\n    Staple=Yes cannot be combined with "
                       "Unit=No (rule staple) (office.xml:6)\n"),
            std::string::npos)
      << shown;
}

TEST_F(ShellRulesTest, Load_ForbiddenValues_ChangeNothing) {
  write("both.conf", "Duplex=On\nMedia=Film\n");
  EXPECT_EQ(runScript({"load both.conf"}),
            failure(2,
                    "driver-feature: standard input:1: both.conf: nothing was loaded: Media=Film "
                    "cannot be combined with Duplex=On: Film is printed on one side "
                    "(office.xml:5); \"resolve\" in place of \"set\" also changes Duplex: On -> "
                    "Off\n"));
  write("one.conf", "Media=Film\n");
  EXPECT_EQ(runScript({"load one.conf", "set Duplex On"}).status, 2);
  EXPECT_EQ(transcriptOf({"load one.conf", "get Media"}),
            "  changed Media: Plain -> Film\n  update callback\nFilm\n");
}

}  // namespace
