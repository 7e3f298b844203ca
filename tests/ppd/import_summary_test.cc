// The command "import": what it reports of losses, of several files and of folders.

#include <pty.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"
#include "ppd/small_ppd.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Two options of 32 choices, each of which may be chosen together with all others,
// so that a constraint on both would take 1,024 rules.
std::string lostConstraint() {
  std::string ppd = "*UIConstraints: *One *Two\n";
  for (const std::string option : {"One", "Two"}) {
    ppd += "*OpenUI *" + option + ": PickMany\n*Default" + option + ": C0\n";
    for (int i = 0; i < 32; ++i) ppd += "*" + option + " C" + std::to_string(i) + ": \"\"\n";
    ppd += "*CloseUI: *" + option + "\n";
  }
  return ppd;
}

class ImportSummaryTest : public PpdTest {};

TEST_F(ImportSummaryTest, Import_SeveralFiles_WritesADescriptionForEach) {
  write("a.ppd", kSmallPpd);
  write("b.ppd", std::string(kSmallPpd) + lostConstraint());
  EXPECT_EQ(run({"import", "a.ppd", "b.ppd"}),
            failure(0,
                    "driver-feature: b.ppd: not carried over: 1 constraint\n"
                    "driver-feature: 2 PPD files imported, with 66 features and 130 options\n"
                    "driver-feature: not carried over in all: 1 constraint; --verbose names "
                    "each\n"));
  EXPECT_THAT(fileNames(), ElementsAre("a.ppd", "a.xml", "b.ppd", "b.xml"));
  EXPECT_EQ(run({"import", "a.ppd", "b.ppd", "-v"}).errors,
            "driver-feature: b.ppd: not carried over: constraint *One *Two: it would take more "
            "than 1000 rules\n"
            "driver-feature: 2 PPD files imported, with 66 features and 130 options\n"
            "driver-feature: not carried over in all: 1 constraint\n");
}

// Eight choices that libcups cannot choose, two constraints of both kinds that are
// too much, and a text and two keywords.
std::string lossyPpd() {
  std::string ppd = std::string(kSmallPpd) + "*NickName: \"A\"\n*ModelName: \"A\"\n";
  ppd += lostConstraint() +
         "*cupsUIConstraints X: \"*Duplex Off *One *Two\"\n*OpenGroup: G/Texts\n"
         "*de.Translation Nothing/Nichts: \"\"\n";
  ppd += "*OpenUI *Tray/Paper source: PickOne\n*Tray A: \"\"\n";
  for (int i = 0; i < 8; ++i) ppd += "*Tray {" + std::to_string(i) + ": \"\"\n";
  return ppd + "*CloseUI: *Tray\n*CloseGroup: G\n";
}

constexpr const char* kLossySummary =
    "driver-feature: a.ppd: not carried over: choice *Tray {0: libcups takes another choice "
    "of the option for it\n"
    "driver-feature: a.ppd: not carried over: choice *Tray {1: libcups takes another choice "
    "of the option for it\n"
    "driver-feature: a.ppd: not carried over: choice *Tray {2: libcups takes another choice "
    "of the option for it\n"
    "driver-feature: a.ppd: not carried over: choice *Tray {3: libcups takes another choice "
    "of the option for it\n"
    "driver-feature: a.ppd: not carried over: choice *Tray {4: libcups takes another choice "
    "of the option for it\n"
    "driver-feature: a.ppd: not carried over: 3 more parts of options, 2 constraints, 1 text for "
    "users, 2 other keywords; --verbose names each\n";

TEST_F(ImportSummaryTest, Import_OneFileWithManyLosses_SumsThemUpInAFewLines) {
  write("a.ppd", lossyPpd());
  EXPECT_EQ(run({"import", "a.ppd", "--output", "a.xml"}), failure(0, kLossySummary));
  EXPECT_EQ(run({"import", "a.ppd", "--output", "a.xml", "-q"}), success(""));
}

TEST_F(ImportSummaryTest, Import_OneFileVerbosely_NamesEveryLoss) {
  write("a.ppd", lossyPpd());
  const RunResult result = run({"import", "a.ppd", "--output", "a.xml", "--verbose"});
  EXPECT_EQ(result.status, 0);
  // Eight choices, two constraints, the texts and the keywords.
  EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 12);
  for (const char* line : {"choice *Tray {7: libcups takes another choice of the option for "
                           "it",
                           "constraint *One *Two: it would take more than 1000 rules",
                           "constraint *Duplex Off *One *Two: it would take more than 1000 rules",
                           "texts for users: *de.Translation", "keywords: *NickName, *ModelName"}) {
    EXPECT_THAT(result.errors,
                HasSubstr(std::string("driver-feature: a.ppd: not carried over: ") + line + "\n"));
  }
}

constexpr const char* kRefusal =
    ": no description is written: with --strict the loss of parts of options or of constraints is "
    "an error\n";

TEST_F(ImportSummaryTest, Import_StrictlyWithLosses_WritesNothingAndEndsWithThree) {
  write("a.ppd", lossyPpd());
  write("a.xml", "of before");
  const std::string refusal = std::string("driver-feature: a.ppd") + kRefusal;
  EXPECT_EQ(run({"import", "--strict", "a.ppd", "--output", "a.xml"}),
            failure(3, kLossySummary + refusal));
  EXPECT_EQ(run({"import", "--strict", "-q", "a.ppd"}), failure(3, refusal));
  EXPECT_EQ(read("a.xml"), "of before");
  write("constraint.ppd", std::string(kSmallPpd) + lostConstraint());
  EXPECT_EQ(run({"import", "--strict", "constraint.ppd"}).status, 3);
  write("order.ppd", std::string(kSmallPpd) +
                         "*OpenUI *Tray: PickOne\n*OrderDependency: -1 AnySetup *Tray\n"
                         "*DefaultTray: A\n*Tray A: \"\"\n*CloseUI: *Tray\n");
  EXPECT_EQ(run({"import", "--strict", "order.ppd"}).status, 3);
}

TEST_F(ImportSummaryTest, Import_StrictlyWithTextsAndKeywordsAlone_Succeeds) {
  write("a.ppd", std::string(kSmallPpd) +
                     "*NickName: \"A\"\n*de.Translation Nothing/Nichts: \"\"\n"
                     "*UIConstraints: *Duplex *Lid\n*UIConstraints: *Tray B *Duplex\n"
                     "*OpenGroup: G/Texts\n*OpenUI *Tray/Paper source: PickOne\n"
                     "*DefaultTray: A\n*Tray A: \"\"\n*Tray B: \"\"\n*CloseUI: *Tray\n"
                     "*CloseGroup: G\n");
  EXPECT_EQ(run({"import", "--strict", "a.ppd", "--output", "a.xml"}),
            failure(0,
                    "driver-feature: a.ppd: not carried over: 1 text for users, 2 other "
                    "keywords; --verbose names each\n"));
  EXPECT_EQ(run({"check", "a.xml"}).status, 0);
}

TEST_F(ImportSummaryTest, Import_SeveralFilesStrictly_ImportsTheOthers) {
  write("a.ppd", kSmallPpd);
  write("b.ppd", std::string(kSmallPpd) + lostConstraint());
  EXPECT_EQ(run({"import", "--strict", "a.ppd", "b.ppd"}),
            failure(3,
                    "driver-feature: b.ppd: not carried over: 1 constraint\n"
                    "driver-feature: b.ppd" +
                        std::string(kRefusal) +
                        "driver-feature: 1 PPD file imported, with 1 feature and 1 option\n"
                        "driver-feature: not carried over in all: 1 constraint; --verbose names "
                        "each\n"
                        "driver-feature: 1 failure: refused by --strict (1)\n"));
  EXPECT_THAT(fileNames(), ElementsAre("a.ppd", "a.xml", "b.ppd"));
  write("c.ppd", "no PPD file");
  EXPECT_EQ(run({"import", "--strict", "a.ppd", "b.ppd", "c.ppd"}).status, 2);
  EXPECT_EQ(run({"import", "--strict", "a.ppd", "a.ppd", "--output", "a.xml"}).status, 1);
}

TEST_F(ImportSummaryTest, Import_Quietly_ShowsErrorsAndTheSummary) {
  write("a.ppd", kSmallPpd);
  write("b.ppd", std::string(kSmallPpd) + lostConstraint());
  EXPECT_EQ(run({"import", "b.ppd", "-q", "--output", "b.xml"}), success(""));
  EXPECT_EQ(run({"import", "a.ppd", "b.ppd", "-q"}),
            failure(0,
                    "driver-feature: 2 PPD files imported, with 66 features and 130 options\n"
                    "driver-feature: not carried over in all: 1 constraint; --verbose names "
                    "each\n"));
}

TEST_F(ImportSummaryTest, Import_SeveralFiles_PartsOfOptionsAreNamedAndTheRestCounted) {
  write("a.ppd", kSmallPpd);
  write("b.ppd", std::string(kSmallPpd) + lostConstraint() +
                     "*NickName: \"B\"\n"
                     "*OpenUI *Tray: PickOne\n*Tray A: \"\"\n*Tray a: \"\"\n*CloseUI: *Tray\n");
  EXPECT_EQ(run({"import", "a.ppd", "b.ppd"}).errors,
            "driver-feature: b.ppd: not carried over: choice *Tray a: libcups takes another choice "
            "of the option for it\n"
            "driver-feature: b.ppd: not carried over: 1 constraint, 1 other keyword\n"
            "driver-feature: 2 PPD files imported, with 67 features and 132 options\n"
            "driver-feature: not carried over in all: 1 part of an option, 1 constraint, 1 other "
            "keyword; --verbose names each\n");
}

TEST_F(ImportSummaryTest, Import_SeveralFilesToWhatIsNotAFolder_EndsWithOne) {
  write("a.ppd", kSmallPpd);
  write("b.ppd", "no PPD file");
  write("out", "a file");
  const RunResult result = run({"import", "a.ppd", "b.ppd", "--output", "out"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("driver-feature: 0 PPD files imported, with 0 features and "
                                       "0 options\ndriver-feature: 2 failures: "));
  EXPECT_EQ(read("out"), "a file");
}

TEST_F(ImportSummaryTest, ImportAll_Folder_KeepsItsFoldersAndSumsUp) {
  std::filesystem::create_directories(folder() / "in" / "deep");
  write("in/one.PPD", kSmallPpd);
  write("in/deep/two.ppd", kSmallPpd);
  write("in/deep/bad.ppd", "*PPD-Adobe: \"4.3\"\n*OpenGroup: A\n*OpenGroup: B\n");
  write("in/deep/two.ppd.gz", kSmallPpd);
  write("in/readme.txt", "no PPD file");
  std::filesystem::create_directory_symlink("..", folder() / "in" / "up");
  EXPECT_EQ(run({"import", "--all", "in", "--output", "out"}),
            failure(2,
                    "driver-feature: in/deep/two.ppd.gz: its description would replace that of "
                    "in/deep/two.ppd, out/deep/two.xml; import it on its own\n"
                    "driver-feature: in/deep/bad.ppd:3: libcups cannot read the PPD file: "
                    "OpenGroup without a CloseGroup first; correct the line (cupstestppd explains "
                    "more)\n"
                    "driver-feature: 2 PPD files imported, with 2 features and 2 options\n"
                    "driver-feature: 2 failures: OpenGroup without a CloseGroup first (1), left "
                    "out (1)\n"));
  EXPECT_TRUE(std::filesystem::exists(folder() / "out" / "one.xml"));
  EXPECT_TRUE(std::filesystem::exists(folder() / "out" / "deep" / "two.xml"));
}

TEST_F(ImportSummaryTest, ImportAll_NothingToImport_IsRefused) {
  EXPECT_EQ(run({"import", "--all", "."}),
            failure(2,
                    "driver-feature: .: there is no file named *.ppd or *.ppd.gz in the "
                    "folder\n"));
  const RunResult result = run({"import", "--all", "absent"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.errors,
              HasSubstr("driver-feature: absent: cannot be read: No such file or directory\n"));
}

// What the program writes to standard error when that is a terminal.
class TerminalErrorsTest : public PpdTest {
 protected:
  std::string errorsOf(const std::vector<std::string>& arguments) const {
    int terminal = -1;
    int program = -1;
    if (::openpty(&terminal, &program, nullptr, nullptr, nullptr) != 0) return "no terminal";
    run(arguments, [program] { ::dup2(program, STDERR_FILENO); });
    ::close(program);
    std::string errors;
    char buffer[4096];
    for (ssize_t count; (count = ::read(terminal, buffer, sizeof buffer)) > 0;) {
      errors.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(terminal);
    return errors;
  }
};

TEST_F(TerminalErrorsTest, Import_SeveralFiles_ShowsHowFarItIs) {
  const std::string longName = std::string(80, 'x') + "y.ppd";
  write("a.ppd", kSmallPpd);
  write(longName, kSmallPpd);
  write("c.ppd", "no PPD file");
  EXPECT_EQ(
      errorsOf({"import", "a.ppd", longName, "c.ppd", "-q"}),
      "1 of 3: a.ppd\r\x1B[K"
      "2 of 3: ..." +
          std::string(63, 'x') +
          "y.ppd\r\x1B[K"
          "3 of 3: c.ppd\r\x1B[K"
          "driver-feature: c.ppd:1: this is not a PPD file: it does not begin with *PPD-Adobe: "
          "\"4.\r\n"
          "driver-feature: 2 PPD files imported, with 2 features and 2 options\r\n"
          "driver-feature: 1 failure: not a PPD file (1)\r\n");
}

TEST_F(TerminalErrorsTest, Import_OneFile_ShowsNone) {
  write("a.ppd", kSmallPpd);
  EXPECT_EQ(errorsOf({"import", "a.ppd", "--output", "a.xml"}), "");
}

}  // namespace
