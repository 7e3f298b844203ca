// Libraries that the program loads when it needs them: here they are files that
// are no libraries.

#include <gmock/gmock.h>

#include <cstdlib>

#include "host/program_runner.h"

namespace {

class LateLibrariesTest : public ProgramTest {
 protected:
  LateLibrariesTest() {
    std::filesystem::create_directory(libraries());
    for (const std::string name :
         {LIBXML2_FILE_NAME, EDIT_FILE_NAME, "libcups.so.2", "libgettextpo.so.0"}) {
      write("libraries/" + name, "");
    }
    describe("plain.xml", {feature("IntEntry", "Copies", "DefaultValue=\"1\"")});
    write("encoded.xml", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n" + read("plain.xml"));
  }

  void SetUp() override {
    if (sizeof(void*) == 4) GTEST_SKIP() << "the run path of 32-bit test programs comes first";
  }

  std::filesystem::path libraries() const { return folder() / "libraries"; }

  RunResult runWithout(const std::vector<std::string>& arguments) const {
    return run(arguments, [this] {
      ::setenv("LD_LIBRARY_PATH", libraries().c_str(), /*overwrite=*/1);
      // A search for leaks names functions with a program that needs the libraries.
      ::setenv("ASAN_OPTIONS", "detect_leaks=0", /*overwrite=*/1);
    });
  }

  // What is reported when the file is tried.
  RunResult missing(const std::string& library, const std::string& file,
                    const std::string& package) const {
    return failure(1, "driver-feature: " + library +
                          " cannot be loaded: " + (libraries() / file).string() +
                          ": file too short; install the package " + package + "\n");
  }
};

TEST_F(LateLibrariesTest, Run_NothingNeedsThem_WorksWithoutThem) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--version"},
                                                    {"show", "plain.xml"},
                                                    {"emit", "plain.xml", "--to", "ps"}}) {
    EXPECT_EQ(runWithout(arguments), run(arguments)) << arguments.front();
    EXPECT_EQ(run(arguments).status, 0) << arguments.front();
  }
}

TEST_F(LateLibrariesTest, Show_NotPlainXml_NamesThePackage) {
  EXPECT_EQ(run({"show", "encoded.xml"}).status, 0);
  EXPECT_EQ(runWithout({"show", "encoded.xml"}), missing("libxml2", LIBXML2_FILE_NAME, "libxml2"));
}

TEST_F(LateLibrariesTest, Check_PlainDescription_NeedsNone) {
  EXPECT_EQ(runWithout({"check", "plain.xml"}), run({"check", "plain.xml"}));
}

TEST_F(LateLibrariesTest, Show_TranslationIsThere_NamesThePackageAndShowsTheRest) {
  write("plain.de.po",
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
        "msgctxt \"Copies\"\nmsgid \"Copies\"\nmsgstr \"Exemplare\"\n");
  const std::vector<std::string> show = {"show", "plain.xml", "--language", "de"};
  EXPECT_NE(run(show).output.find("Exemplare"), std::string::npos);
  const std::string text =
      "libgettextpo.so.0 cannot be loaded: " + (libraries() / "libgettextpo.so.0").string() +
      ": file too short; install the package libgettextpo0";
  const RunResult result = runWithout(show);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "driver-feature: plain.de.po: " + text + "\n");
  EXPECT_NE(result.output.find("Copies"), std::string::npos);
  EXPECT_EQ(result.output.find("Exemplare"), std::string::npos);
  EXPECT_EQ(runWithout({"emit", "plain.xml", "--to", "ps"}),
            run({"emit", "plain.xml", "--to", "ps"}));
}

TEST_F(LateLibrariesTest, Import_PpdIsRead_NamesThePackage) {
  write("printer.ppd", "*PPD-Adobe: \"4.3\"\n");
  EXPECT_EQ(runWithout({"import", "printer.ppd", "--output", "printer.xml"}),
            missing("libcups.so.2", "libcups.so.2", "libcups2"));
}

}  // namespace
