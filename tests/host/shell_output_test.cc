// The shell's output, its help, and how scripts end.

#include <fcntl.h>
#include <unistd.h>

#include "host/shell_fixture.h"

namespace {

constexpr const char* kShellPostScript = "/Copies 1 def\n(plain) m\n";

class ShellOutputTest : public ShellTest {
 protected:
  ShellOutputTest() {
    write("script", "get Copies\nset Copies 0\nget Duplex\nget Nothing\nemit ps\n");
  }

  RunResult runPrepared(const std::vector<std::string>& arguments,
                        const std::function<void()>& prepare) const {
    std::vector<std::string> all = {"--callbacks", ROUTINES_LIBRARY, "shell", "office.xml"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all, prepare);
  }
};

constexpr const char* kFirstError =
    "driver-feature: standard input:2: 0 is out of range; give a whole number, from 1 to 9 "
    "(office.xml:5)\n";

TEST_F(ShellOutputTest, Emit_EveryForm_WritesItsBytes) {
  EXPECT_EQ(runScript({"emit ps"}), success(kShellPostScript));
  EXPECT_EQ(runScript({"set Copies PJLCommand '%d\\n'", "emit pjl"}), success("1\\n"));
  EXPECT_EQ(
      runScript({"set Copies PSCommand \"\\x00\\xff%d\"", "set Media PSCommand ''", "emit ps"}),
      success(std::string("\0\xFF", 2) + "1"));
  EXPECT_EQ(runScript({"set Copies TESKAttributeSyntax integer",
                       "set Copies InstOptAttributeName copies", "emit ticket --inst-opt"}),
            success("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<JobTicket argument1=\"\" argument2=\"\">\n"
                    "  <JobTicketAttributes>\n"
                    "    <Command name=\"copies\" syntax=\"integer\" value=\"1\"/>\n"
                    "  </JobTicketAttributes>\n"
                    "  <OutputAttributes/>\n"
                    "</JobTicket>\n"));
}

TEST_F(ShellOutputTest, Emit_ToFile_WritesItWhole) {
  EXPECT_EQ(runScript({"emit ps 'a job.ps'", "emit ticket --inst-opt job.xml"}), success(""));
  EXPECT_EQ(read("a job.ps"), kShellPostScript);
  EXPECT_EQ(read("job.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<JobTicket argument1=\"\" argument2=\"\">\n"
            "  <JobTicketAttributes/>\n"
            "  <OutputAttributes/>\n"
            "</JobTicket>\n");
}

TEST_F(ShellOutputTest, Emit_ToStandardOutputByName_WritesThere) {
  EXPECT_EQ(runScript({"emit ps -", "emit ps /dev/stdout", "emit ps /dev/fd/1"}),
            success(std::string(kShellPostScript) + kShellPostScript + kShellPostScript));
}

TEST_F(ShellOutputTest, Emit_Refused_SaysWhyWithItsStatus) {
  EXPECT_EQ(runScript({"emit pcl"}),
            failure(2,
                    "driver-feature: standard input:1: there is no form \"pcl\"; give ps, pjl "
                    "or ticket\n"));
  EXPECT_EQ(runScript({"emit --inst-opt"}),
            failure(2,
                    "driver-feature: standard input:1: a form is missing; write emit "
                    "ps|pjl|ticket [FILE] [--inst-opt]\n"));
  EXPECT_EQ(runScript({"emit ps a b"}),
            failure(2,
                    "driver-feature: standard input:1: too many arguments; write emit "
                    "ps|pjl|ticket [FILE] [--inst-opt]\n"));
  EXPECT_EQ(runScript({"emit ps gone/job.ps"}),
            failure(1,
                    "driver-feature: standard input:1: gone/job.ps: a temporary file beside it "
                    "cannot be created: No such file or directory\n"));
}

TEST_F(ShellOutputTest, Dump_IsWhatTheCommandPrints) {
  const RunResult printed = run({"--callbacks", ROUTINES_LIBRARY, "dump", "office.xml"});
  EXPECT_EQ(printed.output.substr(0, 9), "\n\"Copies\"");
  EXPECT_EQ(runScript({"dump", "get Copies"}), success(printed.output + "1\n"));
}

TEST_F(ShellOutputTest, Script_RefusedLine_EndsItWithThatStatus) {
  const auto fromScript = [] { dup2(open("script", O_RDONLY), STDIN_FILENO); };
  EXPECT_EQ(runPrepared({}, fromScript), (RunResult{2, "1\n", kFirstError}));
}

TEST_F(ShellOutputTest, Script_KeepGoing_DoesTheRest) {
  const auto fromScript = [] { dup2(open("script", O_RDONLY), STDIN_FILENO); };
  EXPECT_EQ(runPrepared({"--keep-going"}, fromScript),
            (RunResult{2, "1\nOff\n" + std::string(kShellPostScript),
                       kFirstError + std::string("driver-feature: standard input:4: there is no "
                                                 "feature or group \"Nothing\"; give one of "
                                                 "Copies, Duplex, First, Heading, Media, Owner, "
                                                 "Scale, Tray, Pages, Page\n")}));
}

TEST_F(ShellOutputTest, Script_KeepGoing_EndsWithTheFirstStatus) {
  EXPECT_EQ(runScript({"emit ps gone/a", "set Copies 0"}, {"--keep-going"}).status, 1);
  EXPECT_EQ(runScript({"set Copies 0", "emit ps gone/a"}, {"--keep-going"}).status, 2);
}

TEST_F(ShellOutputTest, Script_Quit_EndsItWithoutTheRest) {
  EXPECT_EQ(runScript({"get Copies", "quit", "set Copies 0"}), success("1\n"));
}

TEST_F(ShellOutputTest, Script_LineEnds_AreThoseOfAnySystem) {
  write("script", "get Copies\r\n# comment\r\n\r\nget Duplex");
  const auto fromScript = [] { dup2(open("script", O_RDONLY), STDIN_FILENO); };
  EXPECT_EQ(runPrepared({}, fromScript), success("1\nOff\n"));
}

TEST_F(ShellOutputTest, Script_UnreadableInput_IsReported) {
  const std::string line =
      "driver-feature: standard input cannot be read; give a script or use a terminal\n";
  EXPECT_EQ(runPrepared({}, [] { dup2(open(".", O_RDONLY), STDIN_FILENO); }), failure(2, line));
  EXPECT_EQ(runPrepared({}, [] { close(STDIN_FILENO); }), failure(2, line));
}

TEST_F(ShellOutputTest, Script_FullOutput_IsReportedAndEndsIt) {
  const auto toFullDevice = [] {
    dup2(open("script", O_RDONLY), STDIN_FILENO);
    dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO);
  };
  EXPECT_EQ(runPrepared({}, toFullDevice),
            failure(1,
                    "driver-feature: standard input:1: standard output: cannot be written: No "
                    "space left on device\n"));
}

TEST_F(ShellOutputTest, Routine_ThatPrints_DoesNotGetIntoAReply) {
  describe("office.xml", {feature("IntEntry", "Copies", "AddCallbackRoutine='printSomething'")});
  EXPECT_EQ(runScript({"set Copies 2", "get Copies"}), (RunResult{0, "2\n",
                                                                  "printed by puts\n"
                                                                  "printed by a stream\n"
                                                                  "  changed Copies: 0 -> 2\n"
                                                                  "  update callback\n"}));
}

TEST_F(ShellOutputTest, UpdateCallback_OfTheDescription_IsCalledStill) {
  describe("office.xml", {"<BaseFeatureInfo DefaultCallbackHandler='printAndAgree'/>",
                          feature("IntEntry", "Copies")});
  EXPECT_EQ(runScript({"set Copies 2"}).errors,
            "  changed Copies: 0 -> 2\n"
            "  update callback\n"
            "printed by puts\n"
            "printed by a stream\n");
}

TEST_F(ShellOutputTest, Log_Detail_DecidesWhatIsShown) {
  const std::string misuse =
      "  misuse: DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
      "callback:  gone\n";
  EXPECT_EQ(transcriptOf({"log", "set Copies AddCallbackRoutine gone", "log quiet", "log",
                          "set Copies AddCallbackRoutine gone", "log usual",
                          "set Copies CurrentTextValue x", "log all", "log",
                          "set Copies CurrentTextValue x"}),
            "usual\n" + misuse +
                "quiet\n"
                "all\n"
                "  warning: DriverFeature::setFeatureProperty(string) - Attempt to set feature "
                "property:  \"CurrentTextValue\" for feature \"Copies\" to xwhere the feature is "
                "not a text valued feature.\n");
  EXPECT_EQ(transcriptOf({"log"}, {"--quiet"}), "quiet\n");
  EXPECT_EQ(runScript({"log some"}),
            failure(2,
                    "driver-feature: standard input:1: there is no detail \"some\"; give quiet, "
                    "usual or all\n"));
}

TEST_F(ShellOutputTest, Help_Command_ShowsUsageAndDetails) {
  EXPECT_EQ(runScript({"help quit", "help log"}),
            success("quit\n"
                    "Ends the shell; so does Ctrl-D.\n"
                    "log [quiet|usual|all]\n"
                    "Chooses which log lines are shown.\n"
                    "quiet: errors; usual: errors and misuse; all: every line. Without an "
                    "argument,\n"
                    "shows which is set.\n"));
  EXPECT_EQ(runScript({"help lgo"}),
            failure(2,
                    "driver-feature: standard input:1: there is no command \"lgo\"; did you "
                    "mean \"log\"?\n"));
}

TEST_F(ShellOutputTest, Help_Alone_ListsEveryCommand) {
  EXPECT_EQ(
      runScript({"help"}),
      success(
          "set NAME [PROPERTY] VALUE               Sets a feature, or one property of a feature or "
          "group\n"
          "resolve NAME VALUE                      Sets a feature, and changes others where a rule "
          "requires it\n"
          "get NAME [PROPERTY|all]                 Shows a value, a property, or all properties\n"
          "show [NAME]                             Shows all features and groups, or one\n"
          "option NAME OPTION [PROPERTY [VALUE]]   Shows or sets the properties of an option\n"
          "emit ps|pjl|ticket [FILE] [--inst-opt]  Writes printer-ready output\n"
          "save [NAME...]                          Saves current values as original values\n"
          "restore [NAME...]                       Restores the saved values\n"
          "write FILE                              Writes all values and records to a settings "
          "file\n"
          "load FILE                               Loads values and records from a settings file\n"
          "preset NAME                             Applies a preset of the description\n"
          "presets                                 Shows the presets of the description\n"
          "defaults                                Sets every feature to its default value\n"
          "records GROUP [ACTION ...]              Lists or changes the records of a dynamic "
          "group\n"
          "constrain NAME OPTION ID [hide]         Makes an option unavailable\n"
          "release NAME OPTION ID                  Makes an option available again\n"
          "log [quiet|usual|all]                   Chooses which log lines are shown\n"
          "dump                                    Prints the library's whole model\n"
          "help [COMMAND]                          Shows the commands, or one\n"
          "quit                                    Ends the shell; so does Ctrl-D\n"
          "\n"
          "\"help COMMAND\" shows more. Words are separated by blanks; quotes keep blanks in a\n"
          "word: set Owner \"A. B.\"  In double quotes and without quotes, \\n, \\r, \\t, \\e\n"
          "(ESC), \\xNN, and \\ before a blank, quote, # or \\ mean one character. A word\n"
          "that begins with # begins a comment.\n"
          "\n"
          "Indented lines show what a command causes: log lines, calls of the host's update\n"
          "callback, and what has changed by then.\n"));
}

}  // namespace
