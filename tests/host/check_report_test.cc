// What "check" prints around its findings, and for whom.

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "host/program_runner.h"

namespace {

const std::string kReported =
    "<FeatureDescription>\n"
    "  <BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'\n"
    "                   LoadVORNCallbackHandler='DriverFeatureHostLoad'/>\n"
    "  <Feature FeatureType='MultiSelect' Name='Tray'><Option Name='One'/></Feature>\n"
    "  <Feature FeatureType='IntEntry' Name='Copies'\n"
    "           Visibility='maybe' IntMinValu='1'/>\n"
    "</FeatureDescription>\n";

class CheckReportTest : public ProgramTest {
 protected:
  CheckReportTest() { write("d.xml", kReported); }

  RunResult check(std::vector<std::string> arguments,
                  const std::function<void()>& prepare = {}) const {
    arguments.insert(arguments.begin(), "check");
    return run(arguments, prepare);
  }
};

const std::string kText =
    "d.xml:4:3: warning: feature \"Tray\" has no default; its first option \"One\" is taken; name "
    "the default option in DefaultValue [DF303]\n"
    "    4 |   <Feature FeatureType='MultiSelect' Name='Tray'><Option Name='One'/></Feature>\n"
    "      |   ^\n"
    "    log: CreateFeature() - No default value for feature \"Tray\", using 0.\n"
    "d.xml:6:12: error: \"maybe\" is not a value for \"Visibility\" of feature \"Copies\"; give "
    "true, false, 1 or 0 [DF301]\n"
    "    6 |            Visibility='maybe' IntMinValu='1'/>\n"
    "      |            ^\n"
    "    log: AttributeMap::loadMapVariable() - Attribute \"Visibility\" holds \"maybe\" where "
    "\"true\", \"false\", \"1\" or \"0\" is needed.\n"
    "d.xml:6:31: error: there is no attribute \"IntMinValu\" of feature \"Copies\" (IntEntry); did "
    "you mean \"IntMinValue\"? [DF203]\n"
    "    6 |            Visibility='maybe' IntMinValu='1'/>\n"
    "      |                               ^\n"
    "1 file checked: 2 errors, 1 warning; --explain CODE says what the code of a finding means\n";

TEST_F(CheckReportTest, Check_Text_ShowsTheLinesAndHowToGoOn) {
  EXPECT_EQ(check({"d.xml"}), (RunResult{1, kText, ""}));
  EXPECT_EQ(check({"d.xml", "--format", "text", "--color", "auto"}), (RunResult{1, kText, ""}));
}

TEST_F(CheckReportTest, Check_Colour_IsThereWhenWanted) {
  const std::string output = check({"d.xml", "--color", "always", "--select", "DF203"}).output;
  EXPECT_EQ(output,
            "\x1b[1md.xml:6:31: \x1b[0m\x1b[1;31merror: \x1b[0mthere is no attribute "
            "\"IntMinValu\" of feature \"Copies\" (IntEntry); did you mean \"IntMinValue\"? "
            "\x1b[2m[DF203]\x1b[0m\n"
            "    6 |            Visibility='maybe' IntMinValu='1'/>\n"
            "      |                               \x1b[1;32m^\x1b[0m\n"
            "1 file checked: 1 error, 0 warnings; --explain CODE says what the code of a finding "
            "means\n");
  EXPECT_EQ(check({"d.xml", "--color", "never"}).output, kText);
}

// A terminal as standard output, which is read back.
std::string outputOnTerminal(const std::string& program, const std::string& file,
                             const char* noColour) {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal == -1 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) return "no terminal";
  const std::string name = ::ptsname(terminal);
  const std::string command = "env TERM=xterm NO_COLOR=" + std::string(noColour) + " " + program +
                              " check --select DF203 " + file + " > " + name;
  const int other = ::open(name.c_str(), O_RDWR | O_NOCTTY);  // Keeps the text.
  static_cast<void>(std::system(command.c_str()));
  std::string text(4096, '\0');
  const ssize_t count = ::read(terminal, text.data(), text.size());
  text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  ::close(other);
  ::close(terminal);
  return text;
}

TEST_F(CheckReportTest, Check_OnATerminal_IsColouredUnlessTheUserWantsNone) {
  const std::string file = (folder() / "d.xml").string();
  EXPECT_NE(outputOnTerminal(DRIVER_FEATURE_PROGRAM, file, "''").find("\x1b[1;31merror"),
            std::string::npos);
  const std::string plain = outputOnTerminal(DRIVER_FEATURE_PROGRAM, file, "1");
  EXPECT_NE(plain.find(": error: "), std::string::npos);
  EXPECT_EQ(plain.find('\x1b'), std::string::npos);
}

TEST_F(CheckReportTest, Check_OtherFormats_HoldTheSameFindings) {
  EXPECT_EQ(check({"d.xml", "--format", "github"}).output,
            "::warning file=d.xml,line=4,col=3,title=DF303::feature \"Tray\" has no default; its "
            "first option \"One\" is taken; name the default option in DefaultValue\n"
            "::error file=d.xml,line=6,col=12,title=DF301::\"maybe\" is not a value for "
            "\"Visibility\" of feature \"Copies\"; give true, false, 1 or 0\n"
            "::error file=d.xml,line=6,col=31,title=DF203::there is no attribute \"IntMinValu\" of "
            "feature \"Copies\" (IntEntry); did you mean \"IntMinValue\"?\n");
  const RunResult sarif = check({"d.xml", "--format", "sarif"});
  EXPECT_EQ(sarif.status, 1);
  const auto results = nlohmann::json::parse(sarif.output)["runs"][0]["results"];
  ASSERT_EQ(results.size(), 3U);
  EXPECT_EQ(results[1]["ruleId"], "DF301");
  EXPECT_EQ(check({"d.xml", "--format", "json"}), check({"d.xml", "--json"}));
}

TEST_F(CheckReportTest, Check_StandardInput_IsReadLikeAFile) {
  const auto fromFile = [this] {
    const int file = ::open((folder() / "d.xml").c_str(), O_RDONLY);
    ::dup2(file, STDIN_FILENO);
  };
  const RunResult result = check({"-", "--select", "DF303"}, fromFile);
  EXPECT_EQ(result.output.substr(0, result.output.find(';')),
            "standard input:4:3: warning: feature \"Tray\" has no default");
  EXPECT_EQ(run({"emit", "-", "--to", "ps"}, fromFile).status, 0);
}

TEST_F(CheckReportTest, Check_Selection_ReportsAndCountsWhatIsLeft) {
  const auto last = [this](const std::vector<std::string>& arguments) {
    std::vector<std::string> all = {"d.xml"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const RunResult result = check(all);
    const std::size_t start = result.output.rfind("1 file checked: ");
    return std::to_string(result.status) + " " + result.output.substr(start + 16, 20);
  };
  EXPECT_EQ(last({"--select", "DF3"}), "1 1 error, 1 warning; ");
  EXPECT_EQ(last({"--select", "df303,DF203"}), "1 1 error, 1 warning; ");
  EXPECT_EQ(last({"--select", "DF3", "--ignore", "DF301"}), "0 0 errors, 1 warning;");
  EXPECT_EQ(last({"--ignore", "DF3", "--ignore", "DF203"}), "0 0 errors, 0 warnings");
  // A warning that is not selected is not one.
  EXPECT_EQ(last({"--select", "DF5", "--strict"}), "0 0 errors, 0 warnings");
  write("d.xml", "<FeatureDescription><Other/></FeatureDescription>");
  // It does not load, whatever is reported.
  EXPECT_EQ(last({"--ignore", "DF"}), "1 0 errors, 0 warnings");
}

TEST_F(CheckReportTest, Check_WrongUsage_SaysWhatToGive) {
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"d.xml", "--format", "xml"},
       "--format: there is no format \"xml\"; give text, json, sarif or github"},
      {{"d.xml", "--color", "red"}, "--color: \"red\" is unknown; give auto, always or never"},
      {{"d.xml", "--select", "DF3,XX"},
       "--select: no code begins with \"XX\"; --explain all lists the codes"},
      {{"d.xml", "--ignore", ""},
       "--ignore: no code begins with \"\"; --explain all lists the codes"},
      {{"d.xml", "--write"}, "--write is for --fix; give both"},
      {{"-", "--fix", "--write"}, "--write needs files; standard input (\"-\") is not one"},
      {{"-", "--watch"}, "--watch needs files; standard input (\"-\") is not one"},
      {{"-", "-"}, "standard input (\"-\") is given twice; give it once"},
  };
  for (const auto& [arguments, problem] : rows) {
    EXPECT_EQ(check(arguments), failure(2, "driver-feature: " + problem + "\n"));
  }
}

TEST_F(CheckReportTest, Check_ManyOptions_ListsTenOfThem) {
  std::string options;
  for (int i = 10; i < 25; ++i) options += "<Option Name='Tray" + std::to_string(i) + "'/>";
  write("d.xml",
        "<FeatureDescription><Feature FeatureType='MultiSelect' Name='A' "
        "DefaultValue='Photo'>" +
            options + "</Feature></FeatureDescription>");
  const std::string list =
      "choose one of Tray10, Tray11, Tray12, Tray13, Tray14, Tray15, Tray16, Tray17, Tray18, "
      "Tray19 and 5 more";
  EXPECT_NE(check({"d.xml", "--select", "DF302"}).output.find(list + " [DF302]"),
            std::string::npos);
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "-o", "A=Photo"}).errors,
            "driver-feature: -o A=Photo: feature \"A\" has no option \"Photo\"; " + list + "\n");
}

}  // namespace
