// Descriptions that cannot be used, and those that the library refuses.

#include "host/program_runner.h"

namespace {

namespace fs = std::filesystem;

class DescriptionTest : public ProgramTest {
 protected:
  // No library is loaded when the description is unusable: it would be missed.
  RunResult show(const std::string& file) const {
    return run({"show", file, "--library", "no-library.so"});
  }
};

TEST_F(DescriptionTest, Show_FileIsMissing_EndsWithTwo) {
  EXPECT_EQ(
      show("missing.xml"),
      failure(2,
              "driver-feature: missing.xml: error: the file cannot be opened: No such file or "
              "directory; give the path of a readable feature description\n"));
}

TEST_F(DescriptionTest, Show_Folder_EndsWithTwo) {
  fs::create_directory(folder() / "office.xml");
  EXPECT_EQ(
      show("office.xml"),
      failure(2,
              "driver-feature: office.xml: error: the file is a directory; give the path of a "
              "readable feature description\n"));
}

TEST_F(DescriptionTest, Show_NotXml_NamesLineAndColumn) {
  write("office.xml", "Name=Office\n");
  EXPECT_EQ(show("office.xml"),
            failure(2,
                    "driver-feature: office.xml:1:1: error: there is no element; give a file that "
                    "is XML\n"));
  write("cut.xml", "<FeatureDescription>\n  <Feature>\n  </Featur>\n</FeatureDescription>\n");
  EXPECT_EQ(
      show("cut.xml"),
      failure(2,
              "driver-feature: cut.xml:3:12: error: </Featur> ends an element while <Feature> of "
              "line 2 is still open; write </Feature> before it, or correct one of the "
              "names\n"));
}

TEST_F(DescriptionTest, Show_EmptyFile_NamesLineAndColumn) {
  write("office.xml", "");
  EXPECT_EQ(show("office.xml"),
            failure(2,
                    "driver-feature: office.xml:1:1: error: the file is empty; give "
                    "a file that is XML\n"));
}

TEST_F(DescriptionTest, Show_ElementIsMissing_NamesTheRootsLine) {
  write("office.xml", "<?xml version=\"1.0\"?>\n\n<Driver>\n<Features/>\n</Driver>\n");
  EXPECT_EQ(show("office.xml"),
            failure(2,
                    "driver-feature: office.xml:3:1: error: there is no FeatureDescription "
                    "element; name the root <Driver> or one of its children "
                    "<FeatureDescription>\n"));
  // Neither a grandchild nor a name in another case counts.
  write("deep.xml", "<Driver><A><FeatureDescription/></A><featureDescription/></Driver>");
  EXPECT_EQ(show("deep.xml"),
            failure(2,
                    "driver-feature: deep.xml:1:1: error: there is no FeatureDescription "
                    "element; name the root <Driver> or one of its children "
                    "<FeatureDescription>\n"));
}

TEST_F(DescriptionTest, Emit_UnusableDescription_WritesNoFile) {
  EXPECT_EQ(run({"emit", "missing.xml", "--to", "ps", "--output", "job.ps"}).status, 2);
  EXPECT_TRUE(fileNames().empty());
}

TEST_F(DescriptionTest, Show_ElementIsAChild_ReadsTheFirst) {
  write("driver.xml",
        "<Driver>\n<Port/>\n<FeatureDescription>\n"
        "<Feature FeatureType='IntEntry' Name='First'/></FeatureDescription>\n"
        "<FeatureDescription><Feature FeatureType='IntEntry' Name='Second'/></FeatureDescription>\n"
        "</Driver>\n");
  EXPECT_EQ(run({"show", "driver.xml"}),
            success("NAME   TYPE      VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                    "First  IntEntry  0      available\n"));
}

// What ends a load, with the lines on standard error.
struct Fatal {
  const char* element;
  const char* errors;
};

TEST_F(DescriptionTest, Show_LibraryRefusesTheDescription_EndsWithOneAndSaysWhich) {
  constexpr Fatal kRows[] = {
      {"<feature/>",
       "FeatureXMLTagHandler() - Invalid element tag \"feature\".\n"
       "driver-feature: office.xml: the description could not be loaded\n"},
      {"<BaseFeatureInfo/>",
       "FeatureXMLTagHandler() - No Default Callback Handler element\n"
       "driver-feature: office.xml: the description could not be loaded\n"},
      {"<BaseFeatureInfo DefaultCallbackHandler='noSuchRoutine'/>",
       "FeatureXMLTagHandler() - Null Default Callback Handler pointer\n"
       "driver-feature: office.xml: the description could not be loaded: it names a routine "
       "\"noSuchRoutine\" that does not exist; load the library that has it with --callbacks "
       "LIB.so\n"},
      {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/><feature/>"
       "<BaseFeatureInfo DefaultCallbackHandler='noSuchRoutine'/>",
       "FeatureXMLTagHandler() - Invalid element tag \"feature\".\n"
       "driver-feature: office.xml: the description could not be loaded\n"},
      {"<Feature Name='A'/>",
       "driver-feature: error: CreateFeature() - No keyword defined for feature type\n"
       "Feature Tag fatal error\n"
       "driver-feature: office.xml: the description could not be loaded\n"},
      {"<FeatureStaticGroup Name='G'><Option/></FeatureStaticGroup>",
       "driver-feature: error: CreateStaticFeatureGroup() - Invalid node tag \"Option\".\n"
       "Feature Tag fatal error\n"
       "driver-feature: office.xml: the description could not be loaded\n"},
  };
  for (const Fatal& row : kRows) {
    describe("office.xml", {row.element});
    EXPECT_EQ(run({"show", "office.xml"}), failure(1, row.errors)) << row.element;
    EXPECT_EQ(run({"-q", "show", "office.xml"}), failure(1, row.errors)) << row.element;
    EXPECT_EQ(run({"emit", "office.xml", "--to", "ps", "--output", "job.ps"}),
              failure(1, row.errors))
        << row.element;
  }
  EXPECT_EQ(fileNames(), std::vector<std::string>{"office.xml"});
}

TEST_F(DescriptionTest, Show_WarningsOfTheLoad_FollowTheDetail) {
  describe("office.xml", {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>",
                          "<Feature FeatureType='MultiSelect' Name='A'><O Name='x'/></Feature>",
                          "<Feature FeatureType='IntEntry' Name='B' AddCallbackRoutine='gone'/>",
                          "<Feature FeatureType='IntEntry' Name='C' IntMaxValue='9x'/>"});
  const std::string table =
      "NAME  TYPE         VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
      "A     MultiSelect  x      available     x\n"
      "B     IntEntry     0      available\n"
      "C     IntEntry     0      available\n";
  const std::string misuse =
      "driver-feature: misuse: DriverFeature::setFeatureProperty(string):  Failed to load custom "
      "feature callback:  gone\n";
  EXPECT_EQ(run({"show", "office.xml"}), (RunResult{0, table, misuse}));
  EXPECT_EQ(run({"show", "office.xml", "--quiet"}), success(table));
  EXPECT_EQ(run({"show", "office.xml", "--verbose"}),
            (RunResult{0, table,
                       "driver-feature: misuse: FeatureXMLTagHandler() - No Custom Load VORN "
                       "Callback Handler element\n"
                       "driver-feature: warning: CreateFeature() - No default value for feature "
                       "\"A\", using 0.\n" +
                           misuse +
                           "driver-feature: warning: AttributeMap::loadMapVariable() - Attribute "
                           "\"IntMaxValue\" holds \"9x\" where a decimal 32-bit number is "
                           "needed.\n"}));
}

TEST_F(DescriptionTest, Show_NoBaseFeatureInfo_LoadsWithTheProgramsOwnUpdateCallback) {
  describe("office.xml", {"<Feature FeatureType='IntEntry' Name='A' Sensitivity='true'/>"});
  EXPECT_EQ(run({"show", "office.xml"}),
            success("NAME  TYPE      VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                    "A     IntEntry  0      available\n"));
}

TEST_F(DescriptionTest, Callbacks_LibraryOfRoutines_ResolvesTheirNames) {
  describe("office.xml", {"<BaseFeatureInfo DefaultCallbackHandler='testUpdate'/>"});
  const std::string table = "NAME  TYPE  VALUE  AVAILABILITY  CHOICES AND LIMITS\n";
  EXPECT_EQ(run({"show", "office.xml", "--callbacks", ROUTINES_LIBRARY}), success(table));
  EXPECT_EQ(
      run({"--callbacks", ROUTINES_LIBRARY, "--callbacks", ROUTINES_LIBRARY, "show", "office.xml"}),
      success(table));
  EXPECT_EQ(run({"show", "office.xml"}),
            failure(1,
                    "FeatureXMLTagHandler() - Null Default Callback Handler pointer\n"
                    "driver-feature: office.xml: the description could not be loaded: it names a "
                    "routine \"testUpdate\" that does not exist; load the library that has it with "
                    "--callbacks " +
                        std::string(ROUTINES_LIBRARY) + "\n"));
}

// Every command that loads a description ends in the same two lines.
TEST_F(DescriptionTest, Load_RoutineIsMissing_EveryCommandNamesTheLibraryBesideTheDescription) {
  describe("office.xml", {"<BaseFeatureInfo DefaultCallbackHandler='noSuchRoutine'/>"});
  write("a.so", std::string("noSuchRoutine2\0\0anoSuchRoutine\0", 31));
  write("b.so", std::string("\x7F"
                            "ELF\0noSuchRoutine\0",
                            19));
  write("c.so", std::string("\0noSuchRoutine\0", 15));
  write("a.txt", std::string("\0noSuchRoutine\0", 15));
  const std::string errors =
      "FeatureXMLTagHandler() - Null Default Callback Handler pointer\n"
      "driver-feature: office.xml: the description could not be loaded: it names a routine "
      "\"noSuchRoutine\" that does not exist; load the library that has it with --callbacks b.so\n";
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"show", "office.xml"},
                                             {"emit", "office.xml", "--to", "pjl"},
                                             {"dump", "office.xml"},
                                             {"try", "office.xml"},
                                             {"queue", "office.xml"},
                                             {"shell", "office.xml"}}) {
    EXPECT_EQ(run(command), failure(1, errors)) << command.front();
  }
}

TEST_F(DescriptionTest, Callbacks_LibraryIsMissing_EndsWithOne) {
  describe("office.xml", {});
  EXPECT_EQ(run({"show", "office.xml", "--callbacks", "gone.so"}),
            failure(1,
                    "driver-feature: the library of routines cannot be loaded: ./gone.so: cannot "
                    "open shared object file: No such file or directory; check the path given "
                    "with --callbacks\n"));
}

TEST_F(DescriptionTest, Callbacks_RoutineEndsTheProcess_SaysWhatWasLoaded) {
  describe("office.xml", {"<BaseFeatureInfo DefaultCallbackHandler='endProcess'/>",
                          "<Feature FeatureType='IntEntry' Name='A' Visibility='true'/>"});
  EXPECT_EQ(run({"show", "office.xml", "--callbacks", ROUTINES_LIBRARY}),
            failure(1,
                    "driver-feature: office.xml: the description could not be loaded\n"
                    "driver-feature: the routine \"endProcess\" of the description ended the "
                    "process with exit status 7; let it return\n"));
}

TEST_F(DescriptionTest, Callbacks_RoutineEndsTheProcessLater_LosesNoLogLine) {
  describe("office.xml", {"<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='gone'/>",
                          "<Feature FeatureType='IntEntry' Name='B'"
                          " AddCallbackRoutine='endProcess'/>"});
  EXPECT_EQ(run({"show", "office.xml", "--callbacks", ROUTINES_LIBRARY, "-o", "B=1"}),
            failure(1,
                    "driver-feature: misuse: DriverFeature::setFeatureProperty(string):  Failed to "
                    "load custom feature callback:  gone\n"
                    "driver-feature: the routine \"endProcess\" of the description ended the "
                    "process with exit status 7; let it return\n"));
}

}  // namespace
