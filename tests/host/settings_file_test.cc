// --settings and --save.

#include <sys/resource.h>

#include "host/program_runner.h"

namespace {

class SettingsFileTest : public ProgramTest {
 protected:
  SettingsFileTest() {
    describe("office.xml",
             {"<Feature FeatureType='MultiSelect' Name='PageSize' DefaultValue='A4'"
              " PSCommand='%s&#10;'><O Name='A4' PSCommand='a4'/>"
              "<O Name='B 5' PSCommand='b5'/></Feature>",
              feature("IntEntry", "Copies", "DefaultValue='1' IntMinValue='1' IntMaxValue='99'"),
              feature("FloatEntry", "Scale", "DefaultValue='1' FloatMaxValue='4'"),
              feature("TextEntry", "Owner", "DefaultValue='me' PSCommand='(%s)'"),
              feature("IntEntry", "Locked", "DefaultValue='5' Sensitivity='false'"),
              feature("IntEntry", "Wrong", "DefaultValue='7' IntMaxValue='6'"),
              "<FeatureDynamicGroup Name='Jobs'><FeatureStaticGroup Name='Job'>"
              "<Feature FeatureType='TextEntry' Name='Title'/>"
              "<Feature FeatureType='FloatEntry' Name='Shift' DefaultValue='0.1234567'/>"
              "</FeatureStaticGroup></FeatureDynamicGroup>",
              "<FeatureDynamicGroup Name='Logs'><FeatureStaticGroup Name='Log'>"
              "<Feature FeatureType='IntEntry' Name='Level'/>"
              "</FeatureStaticGroup></FeatureDynamicGroup>"});
  }

  RunResult showWith(const std::string& settings) const {
    write("in.conf", settings);
    return run({"show", "office.xml", "--settings", "in.conf", "--json"});
  }

  // The settings file after the settings of another one.
  std::string savedAfter(const std::string& settings) const {
    write("in.conf", settings);
    EXPECT_EQ(run({"emit", "office.xml", "--to", "ticket=ticket.xml", "--settings", "in.conf",
                   "--save", "out.conf", "--allow-control-characters"}),
              success(""));
    return read("out.conf");
  }
};

constexpr const char* kHeading =
    "# Settings of driver-feature.\n"
    "# NAME=VALUE sets a feature. \"[GROUP]\" begins a record of a dynamic group.\n"
    "# In values: \\\\ backslash, \\s blank at an end, \\t tab, \\n line end, \\xNN byte.\n";

TEST_F(SettingsFileTest, Save_EveryKind_HoldsValuesAndRecords) {
  write("jobs.json", R"([{"Title": " b ", "Shift": 0.25}, {"Title": "", "Shift": 3}])");
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps", "-o", "PageSize=B 5", "-o", "Owner= #\"\\\n",
                 "-o", "Scale=0.1234567", "--records", "Jobs", "jobs.json", "--save", "a.conf",
                 "--allow-control-characters"}),
            success("( #\"\\\n)b5\n"));
  const std::string saved = std::string(kHeading) +
                            "Copies=1\n"
                            "Locked=5\n"
                            "Owner=\\s#\"\\\\\\n\n"
                            "PageSize=B 5\n"
                            "Scale=0.1234567\n"
                            "Wrong=7\n"
                            "\n[Jobs]\nTitle=\\sb\\s\nShift=0.25\n"
                            "\n[Jobs]\nTitle=\nShift=3\n"
                            "\n[Logs] none\n";
  EXPECT_EQ(read("a.conf"), saved);
  // What is unavailable, or outside its limits from the beginning, is no
  // obstacle.
  EXPECT_EQ(savedAfter(saved), saved);
}

TEST_F(SettingsFileTest, Settings_HandWritten_TakesBlanksCommentsAndTwoGroups) {
  EXPECT_EQ(savedAfter("\xEF\xBB\xBF  # hand-written\r\n"
                       " Copies =  7 \r\n"
                       "Owner = \\x41\\x0a \\t\n"
                       "[Logs]\n Level=-3\n[ Jobs ]\nShift=1\nTitle=#1\n[Logs]\nLevel=2"),
            std::string(kHeading) +
                "Copies=7\nLocked=5\nOwner=A\\n \\t\nPageSize=A4\nScale=1\n"
                "Wrong=7\n"
                "\n[Jobs]\nTitle=#1\nShift=1\n"
                "\n[Logs]\nLevel=-3\n\n[Logs]\nLevel=2\n");
}

TEST_F(SettingsFileTest, Settings_FloatsOfEverySize_ComeBackExactly) {
  for (const char* number :
       {"1e-45", "-3.4028235e+38", "0.1", "-16777217", "-0", "1.17549435e-38"}) {
    const std::string first = savedAfter("Scale=" + std::string(number) + "\n");
    EXPECT_EQ(savedAfter(first), first) << number;
  }
  EXPECT_NE(savedAfter("Scale=-3.4028235e+38\n").find("\nScale=-3.4028235e+38\n"),
            std::string::npos);
}

TEST_F(SettingsFileTest, Settings_RefusedLines_AreAllReportedAndNothingIsWritten) {
  write("in.conf",
        "Copies=0\n"
        "PagSize=A4\n"
        "Scale=2\n"
        "Owner=\\q\n"
        "foo\n"
        "=3\n"
        "Locked=6\n"
        "[Jobs]\n"
        "Titl=x\n"
        "Shift=9\n"
        "[Nope]\n"
        "A=1\n"
        "[Jobs\n"
        "Ignored=1\n"
        "[Logs]\n"
        "[Jobs] none\n");
  const RunResult refused = failure(
      2,
      "driver-feature: in.conf:1: 0 is out of range; give a whole number, from 1 to 99 "
      "(office.xml:3)\n"
      "driver-feature: in.conf:2: there is no feature \"PagSize\"; did you mean \"PageSize\"?\n"
      "driver-feature: in.conf:4: there is no escape \"\\q\"; write \\\\, \\s, \\t, \\n, \\r or "
      "\\xNN, and a backslash as \\\\\n"
      "driver-feature: in.conf:5: there is no equals sign; write NAME=VALUE, or # before a "
      "comment\n"
      "driver-feature: in.conf:6: there is no name before the equals sign; write NAME=VALUE\n"
      "driver-feature: in.conf:7: feature \"Locked\" is unavailable; leave it out\n"
      "driver-feature: in.conf:9: there is no member \"Titl\" in \"Jobs\"; did you mean "
      "\"Title\"?\n"
      "driver-feature: in.conf:11: there is no dynamic group \"Nope\"; give one of Jobs, Logs\n"
      "driver-feature: in.conf:13: a record begins with [GROUP]; write that, or \"[GROUP] none\" "
      "for no records\n"
      "driver-feature: in.conf:15: member \"Level\" is missing; give it a value\n"
      "driver-feature: in.conf:16: a line says that \"Jobs\" has no records; leave that line or "
      "the records out\n");
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps=job.ps", "--settings", "in.conf", "--save",
                 "out.conf"}),
            refused);
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"in.conf", "office.xml"}));
}

TEST_F(SettingsFileTest, Settings_FeatureAfterARecord_IsNotAMember) {
  EXPECT_EQ(showWith("[Logs]\nLevel=1\nCopies=2\n"),
            failure(2,
                    "driver-feature: in.conf:3: there is no member \"Copies\" in \"Logs\"; the "
                    "members are Level, and settings come before the first [GROUP]\n"));
}

TEST_F(SettingsFileTest, Settings_UnreadableFile_SaysSo) {
  EXPECT_EQ(run({"show", "office.xml", "--settings", "no.conf"}),
            failure(2,
                    "driver-feature: no.conf: cannot be read: No such file or directory; give a "
                    "settings file\n"));
  EXPECT_EQ(
      run({"show", "office.xml", "--settings", "."}),
      failure(2, "driver-feature: .: cannot be read: Is a directory; give a settings file\n"));
}

TEST_F(SettingsFileTest, Settings_OptionsBesideThem_AreMadeAfterwards) {
  write("in.conf", "Owner=file\nPageSize=B 5\n");
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps", "-o", "Owner=line", "--settings", "in.conf"}),
            success("(line)b5\n"));
}

// A refused file must not have reached the routine, which prints at each call.
TEST_F(SettingsFileTest, Settings_Refused_CallNoRoutine) {
  describe("noisy.xml", {"<Feature FeatureType='IntEntry' Name='A' PSCommand='%d'"
                         " AddCallbackRoutine='printSomething'/>"});
  write("good.conf", "A=1\n");
  write("bad.conf", "A=1\nB=1\n");
  const std::vector<std::string> arguments = {"emit", "noisy.xml",   "--to",
                                              "ps",   "--callbacks", ROUTINES_LIBRARY};
  std::vector<std::string> good = arguments;
  good.insert(good.end(), {"--settings", "good.conf"});
  EXPECT_EQ(run(good), (RunResult{0, "1", "printed by puts\nprinted by a stream\n"}));
  std::vector<std::string> bad = arguments;
  bad.insert(bad.end(), {"--settings", "bad.conf"});
  EXPECT_EQ(run(bad),
            failure(2,
                    "driver-feature: bad.conf:2: there is no feature \"B\"; \"driver-feature "
                    "show\" lists the features\n"));
}

// A feature keeps its value when another one's routine makes it unavailable,
// so it has to be set first, wherever its line is.
TEST_F(SettingsFileTest, Settings_LineThatForbidsALaterOne_AreMadeInAnotherOrder) {
  describe("duplex.xml",
           {feature("IntEntry", "Copies", "PSCommand='%d,' AddCallbackRoutine='forbidDuplex'"),
            feature("IntEntry", "Duplex", "PSCommand='%d'")});
  write("in.conf", "Copies=2\nDuplex=1\n");
  EXPECT_EQ(run({"emit", "duplex.xml", "--to", "ps", "--callbacks", ROUTINES_LIBRARY, "--settings",
                 "in.conf"}),
            success("2,1"));
  EXPECT_EQ(run({"emit", "duplex.xml", "--to", "ps", "--callbacks", ROUTINES_LIBRARY, "-o",
                 "Copies=2", "--settings", "in.conf", "-o", "Duplex=3"}),
            failure(2,
                    "driver-feature: -o Duplex=3: feature \"Duplex\" is unavailable; leave it "
                    "out\n"));
}

TEST_F(SettingsFileTest, Settings_RoutineChangesAnEarlierLine_MakesItAgain) {
  describe("scale.xml",
           {feature("IntEntry", "Copies", "PSCommand='%d,' AddCallbackRoutine='resetScale'"),
            feature("IntEntry", "Scale", "PSCommand='%d'")});
  write("in.conf", "Scale=4\nCopies=2\n");
  EXPECT_EQ(run({"emit", "scale.xml", "--to", "ps", "--callbacks", ROUTINES_LIBRARY, "--settings",
                 "in.conf"}),
            success("2,4"));
}

TEST_F(SettingsFileTest, Settings_TwoFiles_TheLaterOnesRecordsReplaceTheOthers) {
  write("a.conf", "[Logs]\nLevel=1\n[Jobs]\nTitle=t\nShift=1\n");
  write("b.conf", "[Logs]\nLevel=2\n[Jobs] none\n");
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ticket=t.xml", "--settings", "a.conf", "--settings",
                 "b.conf", "--save", "out.conf"}),
            success(""));
  EXPECT_TRUE(read("out.conf").ends_with("\nWrong=7\n\n[Jobs] none\n\n[Logs]\nLevel=2\n"));
}

TEST_F(SettingsFileTest, Settings_RoutineEndsTheProgram_IsRefused) {
  describe("end.xml", {feature("IntEntry", "A", "AddCallbackRoutine='endProcess'")});
  write("in.conf", "A=2\n");
  EXPECT_EQ(
      run({"show", "end.xml", "--callbacks", ROUTINES_LIBRARY, "--settings", "in.conf"}),
      failure(2,
              "driver-feature: in.conf: applying these settings ends the program, probably in a "
              "routine of the description; remove lines to find which one\n"));
}

TEST_F(SettingsFileTest, Save_FileGrowsTooLarge_LeavesTheOldOneAndWritesNoOutput) {
  write("old.conf", "old");
  const RunResult result = run({"emit", "office.xml", "--to", "ps=job.ps", "--save", "old.conf",
                                "-o", "Owner=" + std::string(5000, 'x')},
                               [] {
                                 const rlimit limit{4096, 4096};
                                 setrlimit(RLIMIT_FSIZE, &limit);
                               });
  EXPECT_EQ(result, failure(1, "driver-feature: old.conf: cannot be written: File too large\n"));
  EXPECT_EQ(read("old.conf"), "old");
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"office.xml", "old.conf"}));
}

TEST_F(SettingsFileTest, Save_StandardOutput_ComesBeforeTheOutput) {
  const RunResult result = run({"try", "office.xml", "-o", "Copies=2", "--save", "-"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.output.starts_with(std::string(kHeading) + "Copies=2\n"));
  EXPECT_TRUE(
      result.output.ends_with("NAME    BEFORE  CHANGED  RESTORED\nCopies  1       2"
                              "        1\n"));
  EXPECT_EQ(run({"dump", "office.xml", "--save", "/dev/full"}),
            failure(1, "driver-feature: /dev/full: cannot be written: No space left on device\n"));
}

}  // namespace
