// "check --fix" and "check --watch".

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "host/program_runner.h"

namespace {

const std::string kFaulty =
    "<FeatureDescription>\n"
    "  <BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdat'\n"
    "                   LoadVORNCallbackHandler='DriverFeatureHostLoad'/>\n"
    "  <Feature FeatureType=\"IntEnty\" Name='Copies' IntMinValu = '0' Visibility='TRUE'\n"
    "           PJLCommand='@PJL SET COPIES=%d'/>\n"
    "  <Feature FeatureType='MultiSelect' Name='Tray' DefaultValue='Uper'>\n"
    "    <Option Name='Upper'/><Option Name='A&amp;B'/>\n"
    "  </Feature>\n"
    "</FeatureDescription>";

const std::string kFixed =
    "<FeatureDescription>\n"
    "  <BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'\n"
    "                   LoadVORNCallbackHandler='DriverFeatureHostLoad'/>\n"
    "  <Feature FeatureType=\"IntEntry\" Name='Copies' IntMinValue = '0' Visibility='true'\n"
    "           PJLCommand='@PJL SET COPIES=%d&#13;&#10;'/>\n"
    "  <Feature FeatureType='MultiSelect' Name='Tray' DefaultValue='Upper'>\n"
    "    <Option Name='Upper'/><Option Name='A&amp;B'/>\n"
    "  </Feature>\n"
    "</FeatureDescription>";

class CheckFixTest : public ProgramTest {
 protected:
  CheckFixTest() { write("d.xml", kFaulty); }
};

TEST_F(CheckFixTest, Fix_SureFaults_AreADiff) {
  EXPECT_EQ(run({"check", "d.xml", "--fix"}),
            (RunResult{1,
                       "--- d.xml\n"
                       "+++ d.xml\n"
                       "@@ -1,9 +1,9 @@\n"
                       " <FeatureDescription>\n"
                       "-  <BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdat'\n"
                       "+  <BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'\n"
                       "                    LoadVORNCallbackHandler='DriverFeatureHostLoad'/>\n"
                       "-  <Feature FeatureType=\"IntEnty\" Name='Copies' IntMinValu = '0' "
                       "Visibility='TRUE'\n"
                       "-           PJLCommand='@PJL SET COPIES=%d'/>\n"
                       "-  <Feature FeatureType='MultiSelect' Name='Tray' DefaultValue='Uper'>\n"
                       "+  <Feature FeatureType=\"IntEntry\" Name='Copies' IntMinValue = '0' "
                       "Visibility='true'\n"
                       "+           PJLCommand='@PJL SET COPIES=%d&#13;&#10;'/>\n"
                       "+  <Feature FeatureType='MultiSelect' Name='Tray' DefaultValue='Upper'>\n"
                       "     <Option Name='Upper'/><Option Name='A&amp;B'/>\n"
                       "   </Feature>\n"
                       " </FeatureDescription>\n"
                       "\\ No newline at end of file\n",
                       "driver-feature: 6 findings in 1 file can be fixed; --fix --write makes the "
                       "changes\n"}));
  EXPECT_EQ(read("d.xml"), kFaulty);
}

TEST_F(CheckFixTest, Fix_Diff_PatchMakesTheFixedFile) {
  write("d.diff", run({"check", "d.xml", "--fix"}).output);
  ASSERT_EQ(runIn(folder(), "/usr/bin/patch", {"-s", "-p0", "-i", "d.diff"}).status, 0);
  EXPECT_EQ(read("d.xml"), kFixed);
}

TEST_F(CheckFixTest, Fix_Write_FixesTheFileKeepsItsModeAndReportsTheRest) {
  write("marked.xml", "\xEF\xBB\xBF" + kFaulty);
  ASSERT_EQ(::chmod((folder() / "d.xml").c_str(), 0640), 0);
  EXPECT_EQ(run({"check", "d.xml", "marked.xml", "--fix", "--write"}),
            (RunResult{0, "2 files checked: 0 errors, 0 warnings\n",
                       "driver-feature: 12 findings fixed in 2 files\n"}));
  EXPECT_EQ(read("d.xml"), kFixed);
  EXPECT_EQ(read("marked.xml"), "\xEF\xBB\xBF" + kFixed);
  struct stat status {};
  ASSERT_EQ(::stat((folder() / "d.xml").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_EQ(run({"check", "d.xml", "--fix"}),
            (RunResult{0, "",
                       "driver-feature: no finding has a safe fix; check without --fix shows "
                       "all findings\n"}));
}

TEST_F(CheckFixTest, Fix_OneFileCannotBeWritten_ChangesNone) {
  write("e.xml", kFaulty);
  std::filesystem::create_symlink("e.xml", folder() / "same.xml");
  EXPECT_EQ(run({"check", "d.xml", "e.xml", "same.xml", "--fix", "--write"}),
            failure(1,
                    "driver-feature: same.xml: is given for two outputs; give each its own "
                    "file\n"));
  EXPECT_EQ(read("d.xml"), kFaulty);
  EXPECT_EQ(read("e.xml"), kFaulty);
}

TEST_F(CheckFixTest, Fix_Selection_FixesOnlyThat) {
  run({"check", "d.xml", "--fix", "--write", "--select", "DF302"});
  std::string expected = kFaulty;
  expected.replace(expected.find("'Uper'"), 6, "'Upper'");
  EXPECT_EQ(read("d.xml"), expected);
}

TEST_F(CheckFixTest, Fix_UnsafeFix_IsNotMade) {
  const std::string text =
      "<FeatureDescription>\n"
      "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
      "<Feature FeatureType='MultiSelect' Name='Tray' DefaultValue='Tray3' PJLCommand='@PJL %s'>\n"
      "<Option Name='Tray1' PJLCommand='1&#10;'/><Option Name='Tray2' PJLCommand='2'/></Feature>\n"
      "<Feature FeatureType='IntEntry' Name='A' IntMinValue='1' IntMinValu='2'/>\n"
      "</FeatureDescription>\n";
  write("d.xml", text);
  run({"check", "d.xml", "--fix", "--write", "--ignore", "DF504"});
  EXPECT_EQ(read("d.xml"), text);
}

TEST_F(CheckFixTest, Fix_OtherEncoding_IsNotChangedAndSaysWhy) {
  const std::string text = "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!-- \xE4 -->" + kFaulty;
  write("d.xml", text);
  EXPECT_EQ(run({"check", "d.xml", "--fix"}).errors,
            "driver-feature: d.xml: is not UTF-8 and is not changed; save it as UTF-8 to fix it\n"
            "driver-feature: no finding has a safe fix; check without --fix shows all "
            "findings\n");
}

// Waits until the file has so many lines that end a report; 10 seconds at most.
bool hasReports(const std::function<std::string()>& readOutput, int count) {
  for (int i = 0; i < 500; ++i) {
    const std::string output = readOutput();
    int found = 0;
    for (std::size_t at = 0; (at = output.find("1 file checked: ", at)) != std::string::npos;
         ++at) {
      ++found;
    }
    if (found >= count) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

// "check --watch" of d.xml, as a child that writes to watched.txt.
class CheckWatchTest : public CheckFixTest {
 protected:
  void start() {
    write("watched.txt", "");
    child_ = ::fork();
    ASSERT_NE(child_, -1);
    if (child_ != 0) return;
    const bool ready =
        ::chdir(folder().c_str()) == 0 && std::freopen("watched.txt", "w", stdout) != nullptr;
    if (ready) {
      ::execl(DRIVER_FEATURE_PROGRAM, "driver-feature", "check", "d.xml", "--watch", "--format",
              "text", nullptr);
    }
    ::_exit(127);
  }

  std::string output() const { return read("watched.txt"); }

  // Whether so many reports come, and the last one has found nothing.
  void expectReport(int count, bool isClean) const {
    EXPECT_TRUE(hasReports([this] { return output(); }, count)) << output();
    EXPECT_EQ(output().ends_with("1 file checked: 0 errors, 0 warnings\n"), isClean) << output();
  }

  void TearDown() override {
    ::kill(child_, SIGINT);
    int status = 0;
    ASSERT_EQ(::waitpid(child_, &status, 0), child_);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
  }

 private:
  pid_t child_ = -1;
};

TEST_F(CheckWatchTest, Watch_FileIsSavedInPlaceAndByRenaming_ChecksAgainUntilInterrupted) {
  start();
  expectReport(1, false);
  write("d.xml", kFixed);
  expectReport(2, true);
  write("other.xml", kFaulty);
  write("new.xml", kFaulty);
  std::filesystem::rename(folder() / "new.xml", folder() / "d.xml");
  expectReport(3, false);
}

TEST_F(CheckWatchTest, Watch_FilesBesideComeAndGo_ChecksAgain) {
  write("d.xml", kFixed);
  start();
  expectReport(1, true);
  write("d.rules.xml", "<FeatureRules><Hardware Feature='Unknown'/></FeatureRules>");
  expectReport(2, false);
  std::filesystem::remove(folder() / "d.rules.xml");
  expectReport(3, true);
  write("d.de.po", "no entry");
  expectReport(4, false);
  write("d.de.po", "");
  expectReport(5, true);
  std::filesystem::create_directory(folder() / "d.presets");
  write("d.presets/draft.settings", "Unknown=1\n");
  expectReport(6, false);
  write("d.presets/draft.settings", "");
  expectReport(7, true);
}

}  // namespace
