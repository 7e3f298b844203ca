// Routines of a description that do what none should do.

#include <string>
#include <vector>

#include "host/program_runner.h"

namespace {

class RoutineFaultsTest : public ProgramTest {
 protected:
  RoutineFaultsTest() { letCrashesEndPrograms(); }

  RunResult runWith(const std::string& attribute, const std::vector<std::string>& arguments) {
    write("d.xml",
          "<FeatureDescription>\n"
          "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
          "<Feature FeatureType='IntEntry' Name='A'\n" +
              attribute + "/>\n</FeatureDescription>\n");
    std::vector<std::string> all = arguments;
    all.insert(all.begin() + 1, {"d.xml", "--callbacks", ROUTINES_LIBRARY, "--quiet"});
    return run(all);
  }
};

TEST_F(RoutineFaultsTest, Emit_OutputRoutineDoesNotReturn_IsNamedAndNothingIsWritten) {
  const std::pair<std::string, std::string> rows[] = {
      {"crashInOutput", "crashed (signal 11, Segmentation fault); correct it"},
      {"exitInOutput", "ended the process with exit status 0; let it return"},
      {"leaveInOutput", "ended the process with exit status 0; let it return"},
      {"throwInOutput", "threw an exception: no paper; catch it in the routine"},
      {"throwNumberInOutput",
       "threw an exception that is not derived from std::exception; catch it in the routine"},
  };
  for (const char* attribute :
       {"AddPSCallbackRoutine", "AddPJLCallbackRoutine", "AddVORNCallbackRoutine"}) {
    for (const auto& [routine, fault] : rows) {
      SCOPED_TRACE(attribute + routine);
      write("job", "old");
      const std::string form = attribute == std::string("AddPSCallbackRoutine")    ? "ps"
                               : attribute == std::string("AddPJLCallbackRoutine") ? "pjl"
                                                                                   : "ticket";
      EXPECT_EQ(
          runWith(std::string(attribute) + "='" + routine + "'", {"emit", "--to", form + "=job"}),
          failure(1, "driver-feature: the routine \"" + routine + "\" of the description " + fault +
                         "\n"));
      EXPECT_EQ(read("job"), "old");
    }
  }
}

TEST_F(RoutineFaultsTest, AllCommands_NameIsNotARoutines_IsRefusedWithItsPlace) {
  const std::pair<std::string, std::string> rows[] = {
      // Not one that checks of addresses replace by their own, as they do with printf.
      {"getppid", "is a function of libc.so.6, not a routine for a description"},
      {"routineCounter", "is a variable of libhost_test_routines.so, not a routine"},
  };
  for (const auto& [name, objection] : rows) {
    for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
             {"emit", "--to", "ps"}, {"show"}, {"try"}, {"dump"}}) {
      SCOPED_TRACE(command.front() + name);
      EXPECT_EQ(runWith("AddPSCallbackRoutine='" + name + "'", command),
                failure(1, "driver-feature: d.xml:3: \"" + name +
                               "\", the AddPSCallbackRoutine of \"A\", " + objection +
                               "; name a function of a library given with --callbacks\n"));
    }
  }
}

TEST_F(RoutineFaultsTest, ShowAndTry_ChangeRoutineDoesNotReturn_IsNamed) {
  const std::pair<std::string, std::string> rows[] = {
      {"endProcess", "ended the process with exit status 7; let it return"},
      {"throwException", "threw an exception: no paper; catch it in the routine"},
  };
  for (const char* command : {"show", "try"}) {
    for (const auto& [routine, fault] : rows) {
      SCOPED_TRACE(command + routine);
      EXPECT_EQ(runWith("AddCallbackRoutine='" + routine + "'", {command, "-o", "A=1"}),
                failure(1, "driver-feature: the routine \"" + routine + "\" of the description " +
                               fault + "\n"));
    }
  }
}

// One that the library has let end where it called the routine.
TEST_F(RoutineFaultsTest, AllCommands_SwallowedException_IsReportedAndNothingIsWritten) {
  write("d.xml",
        "<FeatureDescription>\n"
        "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
        "<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='setOther'/>\n"
        "<Feature FeatureType='IntEntry' Name='B' AddCallbackRoutine='throwException'/>\n"
        "</FeatureDescription>\n");
  const std::string error =
      "driver-feature: the routine \"throwException\" of the description threw an exception: no "
      "paper; catch it in the routine\n";
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"emit", "--to", "ps"}, {"show"}, {"try"}, {"dump"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.begin() + 1, {"-q", "d.xml", "--callbacks", ROUTINES_LIBRARY});
    arguments.insert(arguments.end(), {"-o", "A=1", "--save", "saved.conf"});
    EXPECT_EQ(run(arguments), failure(1, error)) << command.front();
    EXPECT_EQ(fileNames(), std::vector<std::string>{"d.xml"});
  }
}

TEST_F(RoutineFaultsTest, Emit_SwallowedExceptionInOutput_IsReportedAndNothingIsWritten) {
  write("d.xml",
        "<FeatureDescription>\n"
        "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
        "<Feature FeatureType='IntEntry' Name='A' AddPSCallbackRoutine='setOtherInOutput'/>\n"
        "<Feature FeatureType='IntEntry' Name='B' AddCallbackRoutine='throwException'/>\n"
        "</FeatureDescription>\n");
  EXPECT_EQ(run({"emit", "d.xml", "-q", "--to", "ps=job.ps", "--callbacks", ROUTINES_LIBRARY}),
            failure(1,
                    "driver-feature: the routine \"throwException\" of the description threw an "
                    "exception: no paper; catch it in the routine\n"));
  EXPECT_EQ(fileNames(), std::vector<std::string>{"d.xml"});
}

TEST_F(RoutineFaultsTest, Try_RoutineThrowsWhileRestoring_IsNamed) {
  EXPECT_EQ(runWith("AddCallbackRoutine='throwWhenRestored'", {"try", "-o", "A=1"}),
            failure(1,
                    "driver-feature: the routine \"throwWhenRestored\" of the description threw an "
                    "exception: no paper; catch it in the routine\n"));
}

TEST_F(RoutineFaultsTest, Shell_RoutineDoesNotReturn_IsNamed) {
  const std::pair<std::string, std::string> rows[] = {
      {"crash", "crashed (signal 11, Segmentation fault); correct it"},
      {"abortProcess", "crashed (signal 6, Aborted); correct it"},
      {"endProcess", "ended the process with exit status 7; let it return"},
  };
  for (const auto& [routine, fault] : rows) {
    write("script", "get A\nset A 1\nget A\n");
    write("d.xml",
          "<FeatureDescription>\n"
          "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
          "<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='" +
              routine + "'/>\n</FeatureDescription>\n");
    EXPECT_EQ(run({"shell", "d.xml", "--quiet", "--callbacks", ROUTINES_LIBRARY},
                  [] { static_cast<void>(freopen("script", "r", stdin)); }),
              (RunResult{1, "0\n",
                         "driver-feature: the routine \"" + routine + "\" of the description " +
                             fault + "\n"}));
  }
}

TEST_F(RoutineFaultsTest, Shell_RoutineThrows_RefusesTheLine) {
  write("script", "set A 1\nget A\nset B 1\nget B\n");
  write("d.xml",
        "<FeatureDescription>\n"
        "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n"
        "<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='throwNumber'/>\n"
        "<Feature FeatureType='IntEntry' Name='B' AddCallbackRoutine='throwException'/>\n"
        "</FeatureDescription>\n");
  const RunResult result =
      run({"shell", "d.xml", "--quiet", "--keep-going", "--callbacks", ROUTINES_LIBRARY},
          [] { static_cast<void>(freopen("script", "r", stdin)); });
  EXPECT_EQ(result,
            (RunResult{1, "1\n1\n",
                       "  changed A: 0 -> 1\n"
                       "driver-feature: standard input:1: the routine \"throwNumber\" of the "
                       "description threw an exception that is not derived from std::exception; "
                       "catch it in the routine\n"
                       "  changed B: 0 -> 1\n"
                       "driver-feature: standard input:3: the routine \"throwException\" of the "
                       "description threw an exception: no paper; catch it in the routine\n"}));
}

TEST_F(RoutineFaultsTest, Diff_RoutineDoesNotReturn_IsNamed) {
  write("a.conf", "A=1\n");
  EXPECT_EQ(runWith("AddPSCallbackRoutine='crashInOutput'", {"diff", "/dev/null", "a.conf"}),
            failure(2,
                    "driver-feature: /dev/null: the values and outputs could not be made: the "
                    "routine \"crashInOutput\" of the description crashed (signal 11, Segmentation "
                    "fault); correct it\n"));
}

TEST_F(RoutineFaultsTest, Emit_RoutineReturns_ItsStatusAndOutputAreTheCommands) {
  EXPECT_EQ(runWith("AddPSCallbackRoutine='writeBytes'", {"emit", "--to", "ps"}),
            success(std::string("\0\x80\xFF\r\n\x1A", 6)));
  EXPECT_EQ(
      runWith("AddPSCallbackRoutine='writeBytes'", {"emit", "--to", "ps", "-o", "A=x"}),
      failure(2, "driver-feature: -o A=x: \"x\" is not a whole number; give a whole number\n"));
}

TEST_F(RoutineFaultsTest, Emit_CommandCannotBeFormatted_IsNamedAndNothingIsWritten) {
  write("d.xml",
        "<FeatureDescription>\n"
        "<Feature FeatureType='IntEntry' Name='A'\n PSCommand='100%' PJLCommand='%d&#10;'/>\n"
        "<Feature FeatureType='UIOnly' Name='U' PSCommand='x'/>\n"
        "<Feature FeatureType='TextEntry' Name='T' PSCommand='%s' PJLCommand='100%'/>\n"
        "<FeatureStaticGroup Name='G' PSCommand='%d'>\n"
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d'/></FeatureStaticGroup>\n"
        "</FeatureDescription>\n");
  const auto line = [](const std::string& place, const std::string& owner,
                       const std::string& command) {
    return "driver-feature: d.xml:" + place + ": " + owner + ", \"" + command +
           "\", cannot be formatted, so that it would be missing; correct it; \"driver-feature "
           "check\" says what is wrong with it\n";
  };
  write("job.ps", "old");
  EXPECT_EQ(run({"-q", "emit", "d.xml", "--to", "ps=job.ps"}),
            failure(1, line("2", "PSCommand of feature \"A\"", "100%") +
                           line("4", "PSCommand of feature \"U\"", "x") +
                           line("6", "PSCommand of group \"G\"", "%d")));
  EXPECT_EQ(read("job.ps"), "old");
  EXPECT_EQ(run({"-q", "emit", "d.xml", "--to", "pjl"}),
            failure(1, line("5", "PJLCommand of feature \"T\"", "100%")));
  EXPECT_EQ(run({"-q", "emit", "d.xml", "--to", "ticket"}).status, 0);
}

TEST_F(RoutineFaultsTest, Places_StartTagOfSeveralLines_AreItsFirst) {
  write("d.xml",
        "<FeatureDescription>\n<!-- x -->\n<Feature FeatureType='IntEntry'\n  Name='A'\n"
        "  IntMaxValue='&#51;'\n/>\n</FeatureDescription>\n");
  EXPECT_EQ(
      run({"emit", "d.xml", "--to", "ps", "-o", "A=4"}).errors,
      "driver-feature: -o A=4: 4 is out of range; give a whole number, at most 3 (d.xml:3)\n");
  EXPECT_NE(run({"show", "d.xml", "A"}).output.find("Defined  d.xml:3\n"), std::string::npos);
}

}  // namespace
