// The table and the JSON document of "show".

#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "host/program_runner.h"

namespace {

class ShowTest : public ProgramTest {
 protected:
  ShowTest() {
    describe(
        "office.xml",
        {feature("MultiSelect", "PageSize", "DefaultValue='Letter'",
                 "<O Name='A4'/><O Name='Letter'/><O Name='Legal' Sensitivity='false'/>"),
         feature("IntEntry", "Copies", "DefaultValue='2' IntMinValue='1'"),
         feature("FloatEntry", "Scale", "DefaultValue='0.1' FloatMinValue='0.1' FloatMaxValue='4'"),
         feature("TextEntry", "Pin",
                 "DefaultValue='01' MaxTextLength='4' TextValidationCharSet='012' "
                 "Encrypted='true'"),
         feature("UIOnly", "About", "Visibility='false'"),
         feature("MVCList", "Overlays", "Sensitivity='false'"),
         feature("IntEntry", "Zoom", "Sensitivity='false' Visibility='false' IntMaxValue='5'")});
  }

  // What the program prints on a terminal of that many columns.
  std::string showOnTerminal(unsigned short columns) const {
    int master = -1;
    int slave = -1;
    termios settings{};
    cfmakeraw(&settings);
    winsize size{24, columns, 0, 0};
    if (openpty(&master, &slave, nullptr, &settings, &size) != 0) return "no terminal";
    const RunResult result = run({"show", "office.xml"}, [slave] { dup2(slave, STDOUT_FILENO); });
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    char buffer[4096];
    const ssize_t count = ::read(master, buffer, sizeof buffer);
    close(slave);
    close(master);
    return {buffer, count > 0 ? static_cast<std::size_t>(count) : 0};
  }
};

constexpr const char* kTable =
    "NAME      TYPE         VALUE   AVAILABILITY         CHOICES AND LIMITS\n"
    "About     UIOnly       -       available, hidden\n"
    "Copies    IntEntry     2       available            at least 1\n"
    "Overlays  MVCList      -       unavailable\n"
    "PageSize  MultiSelect  Letter  available            A4, Letter, Legal (unavailable)\n"
    "Pin       TextEntry    ****    available            at most 4 characters, only \"012\", "
    "encrypted\n"
    "Scale     FloatEntry   0.1     available            from 0.1 to 4\n"
    "Zoom      IntEntry     0       unavailable, hidden  at most 5\n";

TEST_F(ShowTest, Show_EveryTypeIntoAFile_IsOneLineEach) {
  EXPECT_EQ(run({"show", "office.xml"}), success(kTable));
}

TEST_F(ShowTest, Show_WideTerminal_IsTheSame) {
  EXPECT_EQ(showOnTerminal(200), kTable);
}

TEST_F(ShowTest, Show_NarrowTerminal_ContinuesTheLastColumn) {
  EXPECT_EQ(showOnTerminal(76),
            "NAME      TYPE         VALUE   AVAILABILITY         CHOICES AND LIMITS\n"
            "About     UIOnly       -       available, hidden\n"
            "Copies    IntEntry     2       available            at least 1\n"
            "Overlays  MVCList      -       unavailable\n"
            "PageSize  MultiSelect  Letter  available            A4, Letter,\n"
            "                                                    Legal (unavailable)\n"
            "Pin       TextEntry    ****    available            at most 4 characters,\n"
            "                                                    only \"012\", encrypted\n"
            "Scale     FloatEntry   0.1     available            from 0.1 to 4\n"
            "Zoom      IntEntry     0       unavailable, hidden  at most 5\n");
}

TEST_F(ShowTest, Show_TerminalWithoutSize_HasEightyColumns) {
  EXPECT_EQ(showOnTerminal(0), showOnTerminal(80));
  EXPECT_NE(showOnTerminal(0), kTable);
}

TEST_F(ShowTest, ShowJson_EveryType_HoldsTypedValues) {
  const RunResult result = run({"show", "office.xml", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(result.output.ends_with("}\n"));
  const auto expected = nlohmann::json::parse(R"({
    "description": "office.xml",
    "features": [
      {"name": "About", "type": "UIOnly", "value": null, "available": true, "visible": false,
       "encrypted": false, "line": 6},
      {"name": "Copies", "type": "IntEntry", "value": 2, "available": true, "visible": true,
       "encrypted": false, "line": 3, "limits": {"minimum": 1}},
      {"name": "Overlays", "type": "MVCList", "value": null, "available": false, "visible": true,
       "encrypted": false, "line": 7},
      {"name": "PageSize", "type": "MultiSelect", "value": "Letter", "available": true,
       "visible": true, "encrypted": false, "line": 2, "choices": [
         {"name": "A4", "available": true, "visible": true},
         {"name": "Letter", "available": true, "visible": true},
         {"name": "Legal", "available": false, "visible": true}]},
      {"name": "Pin", "type": "TextEntry", "value": "****", "available": true, "visible": true,
       "encrypted": true, "line": 5, "limits": {"maximumLength": 4, "characters": "012"}},
      {"name": "Scale", "type": "FloatEntry", "value": 0.1, "available": true, "visible": true,
       "encrypted": false, "line": 4, "limits": {"minimum": 0.1, "maximum": 4.0}},
      {"name": "Zoom", "type": "IntEntry", "value": 0, "available": false, "visible": false,
       "encrypted": false, "line": 8, "limits": {"maximum": 5}}],
    "groups": []})");
  EXPECT_EQ(nlohmann::json::parse(result.output), expected);
  // Floats keep their type and are short.
  EXPECT_NE(result.output.find("\"value\": 0.1,\n"), std::string::npos);
  EXPECT_NE(result.output.find("\"maximum\": 4.0\n"), std::string::npos);
}

TEST_F(ShowTest, Show_RoutineThatPrints_PutsNothingBetween) {
  describe("noisy.xml", {"<BaseFeatureInfo DefaultCallbackHandler='printAndAgree'/>",
                         "<Feature FeatureType='IntEntry' Name='A' Visibility='true'/>"});
  EXPECT_EQ(run({"show", "noisy.xml", "--callbacks", ROUTINES_LIBRARY}),
            (RunResult{0,
                       "NAME  TYPE      VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                       "A     IntEntry  0      available\n",
                       "printed by puts\nprinted by a stream\n"}));
}

TEST_F(ShowTest, Show_FullDevice_EndsWithOne) {
  const RunResult expected =
      failure(1, "driver-feature: standard output: cannot be written: No space left on device\n");
  EXPECT_EQ(run({"show", "office.xml"}, [] { freopen("/dev/full", "w", stdout); }), expected);
  EXPECT_EQ(run({"--help"}, [] { freopen("/dev/full", "w", stdout); }), expected);
  EXPECT_EQ(run({"--version"}, [] { freopen("/dev/full", "w", stdout); }), expected);
}

}  // namespace
