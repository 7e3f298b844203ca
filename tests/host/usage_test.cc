// Arguments: help, versions, and what is refused before any file is read.

#include <gmock/gmock.h>

#include <cstdlib>

#include "host/program_runner.h"

namespace {

namespace fs = std::filesystem;

class UsageTest : public ProgramTest {};

struct UsageRow {
  std::vector<std::string> arguments;
  const char* errors;
};

TEST_F(UsageTest, Run_WrongUsage_EndsWithTwoAndOneLine) {
  const UsageRow kRows[] = {
      {{},
       "driver-feature: a command is needed: check, show, emit, dump, try, resolve, diff, test, "
       "new, import, queue, shell, preview, lsp, help; driver-feature --help explains them\n"},
      {{"shwo"}, "driver-feature: there is no command \"shwo\"; did you mean \"show\"?\n"},
      {{"print", "a.xml"},
       "driver-feature: there is no command \"print\"; give one of check, show, emit, dump, try, "
       "resolve, diff, test, new, import, queue, shell, preview, lsp, help\n"},
      {{"--frob"},
       "driver-feature: \"--frob\" is not expected; driver-feature --help explains the usage\n"},
      {{"show"},
       "driver-feature: DESC is required; driver-feature show --help explains the usage\n"},
      {{"show", "a.xml", "--frob"},
       "driver-feature: \"--frob\" is not expected; driver-feature show --help explains the "
       "usage\n"},
      {{"show", "a.xml", "B", "b.xml"},
       "driver-feature: \"b.xml\" is not expected; driver-feature show --help explains the "
       "usage\n"},
      {{"show", "a.xml", "-v", "-q"},
       "driver-feature: --verbose excludes --quiet; driver-feature show --help explains the "
       "usage\n"},
      {{"emit", "a.xml"},
       "driver-feature: --to is required; driver-feature emit --help explains the usage\n"},
      {{"emit", "--to", "ps"},
       "driver-feature: DESC is required; driver-feature emit --help explains the usage\n"},
      {{"emit", "a.xml", "--to", "pdf"},
       "driver-feature: --to: there is no form \"pdf\"; give ps, pjl or ticket\n"},
      {{"emit", "a.xml", "--to", "ps", "-o"},
       "driver-feature: --option: 1 required NAME=VALUE missing; driver-feature emit --help "
       "explains the usage\n"},
      {{"emit", "a.xml", "--to", "ps", "--json"},
       "driver-feature: \"--json\" is not expected; driver-feature emit --help explains the "
       "usage\n"},
  };
  for (const UsageRow& row : kRows) {
    EXPECT_EQ(run(row.arguments), failure(2, row.errors)) << testing::PrintToString(row.arguments);
  }
}

TEST_F(UsageTest, Help_ProgramAndCommands_EndsWithZeroAndShowsExamples) {
  const RunResult program = run({"--help"});
  EXPECT_EQ(program.status, 0);
  EXPECT_EQ(program.errors, "");
  for (const char* text : {"Usage: driver-feature ", "  show  ", "  emit  ", "--callbacks LIB.so",
                           "--library PATH", "-v,--verbose", "-q,--quiet", "--version",
                           "Examples:\n  driver-feature show office.xml\n", "Exit status: 0 "}) {
    EXPECT_NE(program.output.find(text), std::string::npos) << text;
  }
  const RunResult emit = run({"emit", "--help"});
  EXPECT_EQ(emit.status, 0);
  EXPECT_EQ(emit.errors, "");
  for (const char* text :
       {"Usage: driver-feature emit ", "--to FORM[=FILE]", "-o,--option NAME=VALUE",
        "--output FILE", "--inst-opt", "--ticket-argument1 TEXT", "--ticket-argument2 TEXT",
        "Examples:\n  driver-feature emit office.xml"}) {
    EXPECT_NE(emit.output.find(text), std::string::npos) << text;
  }
  const RunResult show = run({"show", "--help"});
  EXPECT_EQ(show.status, 0);
  EXPECT_EQ(show.errors, "");
  for (const char* text : {"Usage: driver-feature show ", "--json", "Examples:\n"}) {
    EXPECT_NE(show.output.find(text), std::string::npos) << text;
  }
}

// The program in a folder of its own, with the library where a row puts it.
class LibrarySearchTest : public ProgramTest {
 protected:
  LibrarySearchTest() {
    fs::create_directories(folder() / "bin");
    fs::create_directories(folder() / "lib");
    fs::copy(DRIVER_FEATURE_PROGRAM, folder() / "bin");
    // Program and library look for the platform's libraries around themselves.
    const fs::path built = fs::path(DRIVER_FEATURE_LIBRARY).parent_path();
    for (const char* name : {"libCommonAPI.so", "libXMLParser.so"}) {
      fs::copy(built / name, folder() / "lib");
      fs::copy(built / name, folder() / "bin");
    }
  }

  RunResult versionOf(const std::function<void()>& prepare = {}) const {
    return runIn(folder(), folder() / "bin/driver-feature", {"--version"}, prepare);
  }

  // Expects the program's version and build, and then this library.
  void expectVersions(const RunResult& result, const std::string& library) const {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    const std::size_t end = result.output.find('\n') + 1;
    EXPECT_THAT(result.output.substr(0, end),
                testing::MatchesRegex("driver-feature " DRIVER_FEATURE_PROGRAM_VERSION
                                      " \\([^,]+, (GCC|Clang) [^,]+, [a-z0-9_]+\\)\n"));
    EXPECT_EQ(result.output.substr(end), library);
  }

  static std::string versionsWith(const std::string& library) {
    return "Driver Feature Library v1.0 (" + library + ")\n";
  }
};

TEST_F(LibrarySearchTest, Version_LibraryInTheLibraryFolder_NamesIt) {
  fs::copy(DRIVER_FEATURE_LIBRARY, folder() / "lib");
  fs::copy(DRIVER_FEATURE_LIBRARY, folder() / "bin");
  expectVersions(versionOf(), versionsWith(folder() / "lib/libDriverFeature.so"));
}

TEST_F(LibrarySearchTest, Version_LibraryBesideTheProgram_NamesIt) {
  fs::copy(DRIVER_FEATURE_LIBRARY, folder() / "bin");
  expectVersions(versionOf(), versionsWith(folder() / "bin/libDriverFeature.so"));
}

TEST_F(LibrarySearchTest, Version_LibraryElsewhere_IsLeftToTheLoader) {
  const std::string place = fs::path(DRIVER_FEATURE_LIBRARY).parent_path();
  expectVersions(versionOf([&place] { setenv("LD_LIBRARY_PATH", place.c_str(), 1); }),
                 versionsWith("libDriverFeature.so"));
}

TEST_F(LibrarySearchTest, Version_NoLibrary_PrintsTheProgramsOnly) {
  write("lib/libDriverFeature.so", "no library");
  expectVersions(versionOf(), "");
}

TEST_F(UsageTest, Version_LibraryGivenButUnusable_Fails) {
  EXPECT_EQ(run({"--version", "--library", NO_PLUGIN_LIBRARY}),
            failure(1, "driver-feature: " NO_PLUGIN_LIBRARY
                       ": is not a feature library, because it does not export _KirvoSOVersion; "
                       "name another one with --library PATH\n"));
}

TEST_F(UsageTest, Library_GivenBeforeOrAfterTheCommand_IsLoaded) {
  describe("a.xml", {});
  const RunResult refused =
      failure(1,
              "driver-feature: the feature library cannot be loaded: ./x.so: cannot open shared "
              "object file: No such file or directory; name it with --library PATH\n");
  EXPECT_EQ(run({"--library", "x.so", "show", "a.xml"}), refused);
  EXPECT_EQ(run({"show", "a.xml", "--library", "x.so"}), refused);
  EXPECT_EQ(run({"emit", "a.xml", "--to", "ps", "--library", DRIVER_FEATURE_LIBRARY}), success(""));
}

}  // namespace
