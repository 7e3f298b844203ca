// What "emit" writes.

#include <sys/resource.h>
#include <unistd.h>

#include "host/program_runner.h"

namespace {

namespace fs = std::filesystem;

class EmitTest : public ProgramTest {
 protected:
  EmitTest() {
    describe("office.xml",
             {"<Feature FeatureType='MultiSelect' Name='PageSize' DefaultValue='A4'"
              " PSCommand='/Size (%s) def&#10;' PJLCommand='@PJL SET PAPER=%s&#13;&#10;'"
              " TESKJTAttributeName='media' TESKAttributeSyntax='keyword'>"
              "<O Name='A4' PSCommand='a4' PJLCommand='A4' TESKCommand='iso-a4'/>"
              "<O Name='Letter' PSCommand='letter' PJLCommand='LETTER' TESKCommand='na-letter'/>"
              "</Feature>",
              "<Feature FeatureType='IntEntry' Name='Copies' DefaultValue='1' IntMinValue='-5'"
              " PSCommand='/Copies %d def&#10;' InstOptAttributeName='copies'"
              " TESKAttributeSyntax='integer'/>",
              "<Feature FeatureType='FloatEntry' Name='Scale' DefaultValue='1'"
              " PSCommand='%f scale&#10;'/>",
              "<Feature FeatureType='TextEntry' Name='Owner' DefaultValue='me'"
              " PSCommand='(%s) owner&#10;'/>"});
  }

  // Emits PostScript with the settings.
  RunResult emitWith(const std::vector<std::string>& settings) const {
    std::vector<std::string> arguments = {"emit", "office.xml", "--to", "ps"};
    for (const std::string& setting : settings) {
      arguments.insert(arguments.end(), {"-o", setting});
    }
    return run(arguments);
  }

  RunResult emitTo(const std::string& file, const std::function<void()>& prepare = {}) const {
    return run({"emit", "office.xml", "--to", "ps", "--output", file}, prepare);
  }
};

constexpr const char* kPostScript = "/Copies 1 def\n(me) owner\n/Size (a4) def\n1.000000 scale\n";

TEST_F(EmitTest, Emit_PostScriptAndPjl_WritesTheDefaults) {
  EXPECT_EQ(emitWith({}), success(kPostScript));
  EXPECT_EQ(run({"emit", "--to", "pjl", "office.xml"}), success("@PJL SET PAPER=A4\r\n"));
}

TEST_F(EmitTest, Emit_Settings_ChangeValuesOfEveryType) {
  EXPECT_EQ(emitWith({"PageSize=Letter", "Copies=-5", "Scale=.25", "Owner=a=b c"}),
            success("/Copies -5 def\n(a=b c) owner\n/Size (letter) def\n0.250000 scale\n"));
  EXPECT_EQ(emitWith({"Copies=+7", "Scale=1e1", "Owner="}),
            success("/Copies 7 def\n() owner\n/Size (a4) def\n10.000000 scale\n"));
  EXPECT_EQ(emitWith({"Copies=2147483647"}),
            success("/Copies 2147483647 def\n(me) owner\n/Size (a4) def\n1.000000 scale\n"));
  EXPECT_EQ(run({"emit", "office.xml", "--to=pjl", "--option=PageSize=Letter"}),
            success("@PJL SET PAPER=LETTER\r\n"));
}

TEST_F(EmitTest, Emit_SameFeatureTwice_TheLaterWins) {
  EXPECT_EQ(emitWith({"Copies=3", "PageSize=Letter", "Copies=4", "PageSize=A4"}),
            success("/Copies 4 def\n(me) owner\n/Size (a4) def\n1.000000 scale\n"));
}

TEST_F(EmitTest, Emit_Ticket_TakesArgumentsAndInstallableOptions) {
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ticket"}),
            success("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<JobTicket argument1=\"\" argument2=\"\">\n"
                    "  <JobTicketAttributes>\n"
                    "    <Command name=\"media\" syntax=\"keyword\" value=\"iso-a4\"/>\n"
                    "  </JobTicketAttributes>\n"
                    "  <OutputAttributes/>\n"
                    "</JobTicket>\n"));
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ticket", "--inst-opt", "--ticket-argument1", "a b",
                 "--ticket-argument2", "<", "-o", "Copies=9"}),
            success("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<JobTicket argument1=\"a b\" argument2=\"&lt;\">\n"
                    "  <JobTicketAttributes>\n"
                    "    <Command name=\"copies\" syntax=\"integer\" value=\"9\"/>\n"
                    "    <Command name=\"media\" syntax=\"keyword\" value=\"iso-a4\"/>\n"
                    "  </JobTicketAttributes>\n"
                    "  <OutputAttributes/>\n"
                    "</JobTicket>\n"));
}

TEST_F(EmitTest, Emit_RoutineWritesAnyBytes_AllComeOut) {
  describe("bytes.xml",
           {"<Feature FeatureType='UIOnly' Name='A' AddPSCallbackRoutine='writeBytes'/>"});
  const std::string bytes("\0\x80\xFF\r\n\x1A", 6);
  EXPECT_EQ(run({"emit", "bytes.xml", "--to", "ps", "--callbacks", ROUTINES_LIBRARY}),
            success(bytes));
  EXPECT_EQ(run({"emit", "bytes.xml", "--to", "ps", "--callbacks", ROUTINES_LIBRARY, "--output",
                 "job.ps"}),
            success(""));
  EXPECT_EQ(read("job.ps"), bytes);
}

TEST_F(EmitTest, Emit_RoutineIsMissing_SaysSoAndWritesTheRest) {
  describe("gone.xml", {"<Feature FeatureType='UIOnly' Name='A' AddPSCallbackRoutine='gone'/>",
                        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d&#10;'/>"});
  EXPECT_EQ(run({"emit", "gone.xml", "--to", "ps"}),
            (RunResult{0, "0\n",
                       "driver-feature: misuse: serialize() - Cannot load PS Command callback: "
                       "gone\n"}));
}

TEST_F(EmitTest, Emit_RoutineThatPrints_PutsNothingBetween) {
  describe("noisy.xml", {"<Feature FeatureType='IntEntry' Name='A' PSCommand='%d&#10;'"
                         " AddCallbackRoutine='printSomething'/>"});
  const std::vector<std::string> arguments = {"emit",        "noisy.xml",      "--to", "ps",
                                              "--callbacks", ROUTINES_LIBRARY, "-o",   "A=1",
                                              "--output",    "/dev/stdout"};
  EXPECT_EQ(run(arguments), (RunResult{0, "1\n", "printed by puts\nprinted by a stream\n"}));
  EXPECT_EQ(run(arguments, [] { close(STDERR_FILENO); }), success("1\n"));
}

TEST_F(EmitTest, EmitOutput_NewAndExistingFile_HoldsTheOutput) {
  EXPECT_EQ(emitTo("job.ps"), success(""));
  EXPECT_EQ(read("job.ps"), kPostScript);
  write("old.ps", std::string(1000, 'x'));
  fs::permissions(folder() / "old.ps", static_cast<fs::perms>(0640));
  EXPECT_EQ(emitTo("old.ps"), success(""));
  EXPECT_EQ(read("old.ps"), kPostScript);
  EXPECT_EQ(fs::status(folder() / "old.ps").permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"job.ps", "office.xml", "old.ps"}));
}

TEST_F(EmitTest, EmitOutput_StandardOutput_IsWrittenDirectly) {
  EXPECT_EQ(emitTo("-"), success(kPostScript));
  EXPECT_EQ(emitTo("/dev/stdout"), success(kPostScript));
  EXPECT_EQ(fileNames(), std::vector<std::string>{"office.xml"});
}

TEST_F(EmitTest, EmitOutput_FileGrowsTooLarge_LeavesTheOldOne) {
  write("old.ps", "old");
  // Standard error goes into a file, too, and its line must fit.
  describe("large.xml", {"<Feature FeatureType='TextEntry' Name='A' PSCommand='%s'/>"});
  const RunResult result = run({"emit", "large.xml", "--to", "ps", "--output", "old.ps", "-o",
                                "A=" + std::string(5000, 'x')},
                               [] {
                                 const rlimit limit{4096, 4096};
                                 setrlimit(RLIMIT_FSIZE, &limit);
                               });
  EXPECT_EQ(result, failure(1, "driver-feature: old.ps: cannot be written: File too large\n"));
  EXPECT_EQ(read("old.ps"), "old");
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"large.xml", "office.xml", "old.ps"}));
}

TEST_F(EmitTest, EmitOutput_FolderIsMissing_EndsWithOne) {
  EXPECT_EQ(emitTo("no/job.ps"),
            failure(1,
                    "driver-feature: no/job.ps: a temporary file beside it cannot be created: No "
                    "such file or directory\n"));
}

TEST_F(EmitTest, Emit_StandardOutputFullOrClosed_EndsWithOne) {
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps"}, [] { freopen("/dev/full", "w", stdout); }),
            failure(1,
                    "driver-feature: standard output: cannot be written: No space left on "
                    "device\n"));
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps"}, [] { close(STDOUT_FILENO); }),
            failure(1,
                    "driver-feature: standard output: cannot be written: Bad file "
                    "descriptor\n"));
  EXPECT_EQ(emitTo("/dev/full"),
            failure(1, "driver-feature: /dev/full: cannot be written: No space left on device\n"));
}

TEST_F(EmitTest, Emit_NobodyReadsThePipe_EndsWithOne) {
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps"},
                [] {
                  int ends[2];
                  if (pipe(ends) != 0) _exit(125);
                  dup2(ends[1], STDOUT_FILENO);
                  close(ends[0]);
                  close(ends[1]);
                }),
            failure(1, "driver-feature: standard output: cannot be written: Broken pipe\n"));
}

TEST_F(EmitTest, Emit_EveryStandardStreamClosed_HarmsNoFile) {
  write("job.ps", "old");
  EXPECT_EQ(emitTo("job.ps",
                   [] {
                     for (const int stream : {0, 1, 2}) close(stream);
                   }),
            success(""));
  EXPECT_EQ(read("job.ps"), kPostScript);
}

TEST_F(EmitTest, Emit_RoutineThrows_EndsWithOneAndWritesNothing) {
  struct Row {
    const char* routine;
    const char* errors;
  };
  const Row kRows[] = {
      {"throwNumber",
       "driver-feature: the routine \"throwNumber\" of the description threw an exception that is "
       "not derived from std::exception; catch it in the routine\n"},
      {"throwException",
       "driver-feature: the routine \"throwException\" of the description threw an exception: no "
       "paper; catch it in the routine\n"},
  };
  write("job.ps", "old");
  for (const Row& row : kRows) {
    describe("throwing.xml", {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>",
                              "<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='" +
                                  std::string(row.routine) + "'/>"});
    EXPECT_EQ(run({"emit", "throwing.xml", "--callbacks", ROUTINES_LIBRARY, "--to", "ps=job.ps",
                   "-o", "A=1"}),
              failure(1, row.errors));
    EXPECT_EQ(read("job.ps"), "old");
  }
}

}  // namespace
