// What "diff" shows of two settings files.

#include "host/program_runner.h"

namespace {

class DiffTest : public ProgramTest {
 protected:
  DiffTest() {
    describe("office.xml",
             {"<Feature FeatureType='MultiSelect' Name='PageSize' DefaultValue='A4'"
              " PJLCommand='@PJL SET PAPER=%s&#13;&#10;'>"
              "<O Name='A4' PJLCommand='A4'/><O Name='Legal' PJLCommand='LEGAL'/></Feature>",
              feature("IntEntry", "Copies", "DefaultValue='1' PSCommand='%d copies&#10;'"),
              feature("TextEntry", "Owner", "DefaultValue='me' PSCommand='(%s)'"),
              "<FeatureDynamicGroup Name='Logs'><FeatureStaticGroup Name='Log'>"
              "<Feature FeatureType='IntEntry' Name='Level'/>"
              "</FeatureStaticGroup></FeatureDynamicGroup>"});
    write("a.conf", "Copies=2\n");
    write("b.conf", "PageSize=Legal\nCopies=2\nOwner=\\x1b\\\\\\xff\n[Logs]\nLevel=4\n");
  }
};

TEST_F(DiffTest, Diff_SameValues_PrintsNothing) {
  write("c.conf", "# other words\nCopies=1\nCopies=2\nOwner=me\n");
  EXPECT_EQ(run({"diff", "office.xml", "a.conf", "c.conf"}), success(""));
  EXPECT_EQ(run({"diff", "office.xml", "b.conf", "b.conf", "--allow-control-characters"}),
            success(""));
}

TEST_F(DiffTest, Diff_OtherValues_ShowsSettingsAndOutputs) {
  EXPECT_EQ(run({"diff", "office.xml", "a.conf", "b.conf", "--allow-control-characters"}),
            (RunResult{1,
                       "--- a.conf (settings)\n"
                       "+++ b.conf (settings)\n"
                       "-Owner=me\n"
                       "-PageSize=A4\n"
                       "-[Logs] none\n"
                       "+Owner=\\x1b\\\\\\xff\n"
                       "+PageSize=Legal\n"
                       "+[Logs]\n"
                       "+Level=4\n"
                       "--- a.conf (ps)\n"
                       "+++ b.conf (ps)\n"
                       "@@ -1,3 +1,3 @@\n"
                       " 2 copies\n"
                       "-(me)\n"
                       "+(\\x1b\\\\\\xff)\n"
                       " \\ no line end\n"
                       "--- a.conf (pjl)\n"
                       "+++ b.conf (pjl)\n"
                       "@@ -1,1 +1,1 @@\n"
                       "-@PJL SET PAPER=A4\\r\n"
                       "+@PJL SET PAPER=LEGAL\\r\n",
                       ""}));
}

constexpr const char* kDifferenceFromDefaults = R"json({
  "first": "/dev/null",
  "second": "a.conf",
  "different": true,
  "values": [
    {
      "name": "Copies",
      "first": "1",
      "second": "2"
    }
  ],
  "changes": {
    "settings": [
      "-Copies=1",
      "+Copies=2"
    ],
    "ps": [
      "@@ -1,3 +1,3 @@",
      "-1 copies",
      "+2 copies",
      " (me)",
      " \\ no line end"
    ]
  }
}
)json";

TEST_F(DiffTest, DiffJson_EmptyFile_ComparesWithTheDefaults) {
  EXPECT_EQ(run({"diff", "office.xml", "/dev/null", "a.conf", "--json"}),
            (RunResult{1, kDifferenceFromDefaults, ""}));
}

TEST_F(DiffTest, Diff_NotPossible_EndsWithTwo) {
  write("bad.conf", "Copies=x\nNo=1\n");
  EXPECT_EQ(run({"diff", "office.xml", "a.conf", "bad.conf"}),
            failure(2,
                    "driver-feature: bad.conf:1: \"x\" is not a whole number; give a whole "
                    "number\n"
                    "driver-feature: bad.conf:2: there is no feature \"No\"; \"driver-feature "
                    "show\" lists the features\n"));
  EXPECT_EQ(run({"diff", "office.xml", "a.conf", "b.conf", "--allow-control-characters"},
                [] { freopen("/dev/full", "w", stdout); }),
            failure(2,
                    "driver-feature: standard output: cannot be written: No space left on "
                    "device\n"));
  EXPECT_EQ(run({"diff", "missing.xml", "a.conf", "b.conf"}).status, 2);
}

}  // namespace
