// "test": folders of cases.

#include <gmock/gmock.h>

#include <filesystem>

#include "host/program_runner.h"

namespace {

namespace fs = std::filesystem;

const std::string kEmptyTicket =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<JobTicket argument1=\"\" argument2=\"\">\n"
    "  <JobTicketAttributes/>\n  <OutputAttributes/>\n</JobTicket>\n";

class CasesTest : public ProgramTest {
 protected:
  CasesTest() {
    letCrashesEndPrograms();
    fs::create_directory(folder() / "cases");
    describe("office.xml", {feature("IntEntry", "Copies",
                                    "DefaultValue='1' IntMinValue='1' PSCommand='%d copies&#10;'"
                                    " PJLCommand='@PJL SET COPIES=%d&#13;&#10;'")});
    write("cases/driver.txt", "# A comment.\n\n Description = ../office.xml\r\n");
    write("cases/plain.conf", "");
    write("cases/plain.ps", "1 copies\n");
    write("cases/plain.pjl", "@PJL SET COPIES=1\r\n");
    write("cases/plain.ticket", kEmptyTicket);
    write("cases/notes.md", "Other files do not matter.\n");
  }

  RunResult test(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"test", "cases"});
    return run(more);
  }
};

TEST_F(CasesTest, Test_OutputsAreAsExpected_EndsWithZero) {
  write("cases/two.conf", "Copies=2\n");
  write("cases/two.ps", "2 copies\n");
  write("cases/two.pjl", "@PJL SET COPIES=2\r\n");
  write("cases/two.ticket", kEmptyTicket);
  write("cases/two.log", "");
  EXPECT_EQ(test(), success("ok    plain\nok    two\n2 cases: as expected\n"));
  EXPECT_EQ(test({"--update"}), success("nothing to update\n"));
}

TEST_F(CasesTest, Test_OutputsDiffer_ShowsHowAndEndsWithOne) {
  write("cases/plain.ps", "1 copies\n2 sides\n");
  write("cases/plain.log", "a message\n");
  fs::remove(folder() / "cases/plain.pjl");
  EXPECT_EQ(test(),
            (RunResult{1,
                       "FAIL  plain: ps differs, pjl is missing, log is not written\n"
                       "--- plain.ps (expected)\n"
                       "+++ plain.ps (written now)\n"
                       "@@ -1,2 +1,1 @@\n"
                       " 1 copies\n"
                       "-2 sides\n"
                       "--- plain.pjl (expected)\n"
                       "+++ plain.pjl (written now)\n"
                       "@@ -0,0 +1,1 @@\n"
                       "+@PJL SET COPIES=1\\r\n"
                       "--- plain.log (expected)\n"
                       "+++ plain.log (written now)\n"
                       "@@ -1,1 +0,0 @@\n"
                       "-a message\n"
                       "1 case: 0 as expected, 1 not; --update accepts what is written now\n",
                       ""}));
  EXPECT_EQ(test({"--update"}), success("wrote cases/plain.ps\nwrote cases/plain.pjl\n"
                                        "removed cases/plain.log\n"));
  EXPECT_EQ(read("cases/plain.ps"), "1 copies\n");
  EXPECT_EQ(read("cases/plain.pjl"), "@PJL SET COPIES=1\r\n");
  EXPECT_FALSE(fs::exists(folder() / "cases/plain.log"));
  EXPECT_EQ(test(), success("ok    plain\n1 case: as expected\n"));
  write("cases/plain.ps", "2 copies\n");
  EXPECT_EQ(test().output.substr(0, 24), "FAIL  plain: ps differs\n");
}

TEST_F(CasesTest, Test_RefusedSettings_AreMessagesWithoutPlacesInTheDescription) {
  write("cases/none.conf", "\nCopies=0\n");
  write("cases/none.log",
        "none.conf:2: 0 is out of range; give a whole number, at least 1 (../office.xml)\n");
  EXPECT_EQ(test(), success("ok    none\nok    plain\n2 cases: as expected\n"));
  // However the folder is named.
  EXPECT_EQ(run({"test", "./cases/"}), test());
  EXPECT_EQ(runIn(folder() / "cases", DRIVER_FEATURE_PROGRAM, {"test", "."}), test());
}

TEST_F(CasesTest, Test_OutputWithoutCase_IsReportedAndStays) {
  write("cases/old.ps", "x");
  EXPECT_EQ(test(), (RunResult{1,
                               "ok    plain\n"
                               "FAIL  old.ps: belongs to no case; remove it, or write its settings "
                               "to a file of that name with .conf\n"
                               "1 case: as expected; 1 file of no case\n",
                               ""}));
  EXPECT_EQ(test({"--update"}).status, 1);
  EXPECT_EQ(read("cases/old.ps"), "x");
}

TEST_F(CasesTest, Test_RoutineFaults_FailTheCaseAndNothingIsUpdated) {
  const std::pair<std::string, std::string> rows[] = {
      {"crashInOutput", "crashed (signal 11, Segmentation fault); correct it"},
      {"leaveInOutput", "ended the process with exit status 0; let it return"},
      {"throwInOutput", "threw an exception: no paper; catch it in the routine"},
      {"throwNumberInOutput",
       "threw an exception that is not derived from std::exception; catch it in the routine"},
  };
  write("cases/driver.txt", "Description=../office.xml\nRoutines=" ROUTINES_LIBRARY "\n");
  write("cases/plain.ps", "old");
  for (const auto& [routine, fault] : rows) {
    describe("office.xml", {feature("IntEntry", "A", "AddPSCallbackRoutine='" + routine + "'")});
    const std::string line =
        "FAIL  plain: the routine \"" + routine + "\" of the description " + fault + "\n";
    EXPECT_EQ(test(), (RunResult{1, line + "1 case: 0 as expected, 1 not\n", ""}));
    EXPECT_EQ(test({"--update"}),
              (RunResult{1, line,
                         "driver-feature: nothing is updated; every case must run to its end "
                         "first\n"}));
  }
  EXPECT_EQ(read("cases/plain.ps"), "old");
}

TEST_F(CasesTest, Test_CommandCannotBeFormatted_FailsTheCase) {
  describe("office.xml", {feature("TextEntry", "Owner", "PSCommand='100%'")});
  EXPECT_EQ(test(),
            (RunResult{1,
                       "FAIL  plain: cases/../office.xml:2: PSCommand of feature \"Owner\", "
                       "\"100%\", cannot be formatted, so that it would be missing; correct it; "
                       "\"driver-feature check\" says what is wrong with it\n"
                       "1 case: 0 as expected, 1 not\n",
                       ""}));
}

TEST_F(CasesTest, Test_CannotRun_EndsWithTwo) {
  EXPECT_EQ(run({"test", "none"}),
            failure(2,
                    "driver-feature: none: cannot be read: No such file or directory; give a "
                    "folder of cases\n"));
  write("cases/driver.txt", "Description=../office.xml\nRoutines=none.so\n");
  EXPECT_EQ(test(), failure(2,
                            "driver-feature: cases/driver.txt: there is no library of routines "
                            "cases/none.so; build it, or give another one with --callbacks\n"));
  // The one of the line is used in its place.
  EXPECT_EQ(test({"--callbacks", ROUTINES_LIBRARY}), success("ok    plain\n1 case: as expected\n"));
  const std::pair<std::string, std::string> rows[] = {
      {"", "cases/driver.txt: names no description; write the line \"Description=FILE\""},
      {"Description=\n", "cases/driver.txt:1: Description has no value; name a file"},
      {"Description=a\nDescription=b\n",
       "cases/driver.txt:2: Description is given again; make a folder for each description"},
      {"\nRoutine=a\n",
       "cases/driver.txt:2: there is no setting \"Routine\"; write Description=FILE or "
       "Routines=LIBRARY.so"},
      {"Description=none.xml\n",
       "cases/none.xml: error: the file cannot be opened: No such file or directory; give the path "
       "of a readable feature description"},
  };
  for (const auto& [text, error] : rows) {
    write("cases/driver.txt", text);
    EXPECT_EQ(test(), failure(2, "driver-feature: " + error + "\n"));
  }
  fs::remove(folder() / "cases/driver.txt");
  EXPECT_EQ(test(), failure(2,
                            "driver-feature: cases/driver.txt: cannot be read: No such file or "
                            "directory; write it, with the line \"Description=FILE\" and a line "
                            "\"Routines=LIBRARY.so\" for each library of routines\n"));
  fs::remove(folder() / "cases/plain.conf");
  write("cases/driver.txt", "Description=../office.xml\n");
  EXPECT_EQ(test(), failure(2,
                            "driver-feature: cases: has no case; write the settings of one to "
                            "NAME.conf, as --save does\n"));
}

TEST_F(CasesTest, Test_DescriptionDoesNotLoad_EndsWithTwo) {
  write("office.xml", "<FeatureDescription><Feature Name='A'/></FeatureDescription>");
  const RunResult result = test();
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("cases/../office.xml: the description could not be loaded"),
            std::string::npos)
      << result.errors;
}

TEST_F(CasesTest, Update_FileCannotBeWritten_WritesNone) {
  write("cases/plain.ps", "old");
  fs::remove(folder() / "cases/plain.pjl");
  fs::create_directory(folder() / "cases/plain.ticket.d");
  fs::remove(folder() / "cases/plain.ticket");
  fs::create_symlink("none/there", folder() / "cases/plain.ticket");
  EXPECT_EQ(test({"--update"}).status, 2);
  EXPECT_EQ(read("cases/plain.ps"), "old");
  EXPECT_FALSE(fs::exists(folder() / "cases/plain.pjl"));
}

class NewTest : public ProgramTest {};

TEST_F(NewTest, New_Name_WritesAFolderWhoseCasesHoldWithoutTheRoutine) {
  EXPECT_EQ(run({"new", "desk-2"}), success("wrote desk-2; its README.md has the next steps\n"));
  EXPECT_EQ(fileNames(), std::vector<std::string>{"desk-2"});
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(folder() / "desk-2")) {
    files.push_back(entry.path().filename());
  }
  EXPECT_THAT(files, testing::UnorderedElementsAre("CMakeLists.txt", "README.md", "cases",
                                                   "desk-2.xml", "routines.cc"));
  for (const char* file : {"CMakeLists.txt", "README.md", "cases/driver.txt",
                           "cases/too_many_copies.log", "desk-2.xml", "routines.cc"}) {
    EXPECT_EQ(read(std::string("desk-2/") + file).find("@NAME@"), std::string::npos) << file;
  }
  EXPECT_EQ(fs::status(folder() / "desk-2").permissions(),
            fs::status(folder() / "desk-2" / "cases").permissions());
  // Before the routines are built, only what the routine writes is missing.
  const RunResult check = run({"check", "desk-2/desk-2.xml", "--ignore", "DF804"});
  EXPECT_EQ(check, success("1 file checked: 0 errors, 0 warnings\n"));
  const RunResult cases = run({"test", "desk-2/cases", "--callbacks", ROUTINES_LIBRARY});
  EXPECT_EQ(cases.output.substr(0, 14), "FAIL  defaults") << cases.output << cases.errors;
}

TEST_F(NewTest, New_FolderOrNameIsUnusable_WritesNothing) {
  write("there", "");
  const std::string name =
      " cannot be the name of a driver; give a letter, followed by letters, digits, \"-\" and "
      "\"_\", 64 at most\n";
  EXPECT_EQ(run({"new", "2desk"}), failure(2, "driver-feature: \"2desk\"" + name));
  EXPECT_EQ(run({"new", "de/sk"}), failure(2, "driver-feature: \"de/sk\"" + name));
  EXPECT_EQ(run({"new", std::string(65, 'a')}).status, 2);
  EXPECT_EQ(
      run({"new", "desk", "--folder", "there/"}),
      failure(2, "driver-feature: there: exists already; give another folder with --folder\n"));
  EXPECT_EQ(
      run({"new", "there"}),
      failure(2, "driver-feature: there: exists already; give another folder with --folder\n"));
  EXPECT_EQ(run({"new", "desk", "--folder", "none/desk"}),
            failure(1, "driver-feature: none/desk: cannot be made: No such file or directory\n"));
  EXPECT_EQ(fileNames(), std::vector<std::string>{"there"});
}

}  // namespace
