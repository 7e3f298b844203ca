// Groups, records, the dump, and trying settings out.

#include "host/program_runner.h"

namespace {

class GroupsTest : public ProgramTest {
 protected:
  GroupsTest() {
    describe(
        "office.xml",
        {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
         " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>",
         "<Feature FeatureType='IntEntry' Name='Copies' IntMinValue='1' DefaultValue='1'"
         " PSCommand='%d copies&#10;'/>",
         "<FeatureStaticGroup Name='Finishing' PSCommand='[%s]&#10;'"
         " TESKJTAttributeName='finishing'>",
         "<Feature FeatureType='IntEntry' Name='Staple' IntMaxValue='2' DefaultValue='0'"
         " PSCommand='%d' TESKJTAttributeName='staple'/>",
         "<FeatureStaticGroup Name='Fold' PSCommand='(%s)'>",
         "<Feature FeatureType='FloatEntry' Name='Angle' DefaultValue='0.5' PSCommand='%.1f'/>",
         "</FeatureStaticGroup></FeatureStaticGroup>", "<FeatureDynamicGroup Name='Exceptions'>",
         "<FeatureStaticGroup Name='Exception'>",
         "<Feature FeatureType='IntEntry' Name='Page' IntMinValue='1' DefaultValue='1'/>",
         "<Feature FeatureType='MultiSelect' Name='Media' DefaultValue='Plain'>"
         "<O Name='Plain'/><O Name='Heavy'/></Feature>",
         "</FeatureStaticGroup></FeatureDynamicGroup>"});
  }

  // What a refused record file gets.
  RunResult refusedRecords(const std::string& json) const {
    write("records.json", json);
    RunResult result = run({"show", "office.xml", "--records", "Exceptions", "records.json"});
    const std::string prefix = "driver-feature: ";
    if (result.errors.starts_with(prefix)) result.errors.erase(0, prefix.size());
    return result;
  }
};

constexpr const char* kGroupTable =
    "\nGROUP       KIND      IN          RECORDS  MEMBERS\n"
    "Finishing   static    -           -        Staple, Fold\n"
    "Fold        static    Finishing   -        Angle\n";

TEST_F(GroupsTest, Show_Groups_AreBelowTheFeatures) {
  EXPECT_EQ(run({"show", "office.xml"}),
            success(std::string("NAME    TYPE         VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                                "Angle   FloatEntry   0.5    available\n"
                                "Copies  IntEntry     1      available     at least 1\n"
                                "Media   MultiSelect  Plain  available     Plain, Heavy\n"
                                "Page    IntEntry     1      available     at least 1\n"
                                "Staple  IntEntry     0      available     at most 2\n") +
                    kGroupTable +
                    "Exceptions  dynamic   -           0        Page, Media\n"
                    "Exception   template  Exceptions  -        Page, Media\n"));
}

TEST_F(GroupsTest, Show_Records_AreAddedAndPrintedBackInTheirOrder) {
  write("records.json", R"([{"Page": 7, "Media": "Heavy"}, {"Media": "Plain", "Page": "2"}])");
  const RunResult result = run({"show", "office.xml", "--records", "Exceptions", "records.json"});
  const std::size_t groups = result.output.find("\nGROUP");
  ASSERT_NE(groups, std::string::npos);
  // The template has its own values again.
  EXPECT_NE(result.output.find("Page    IntEntry     1 "), std::string::npos);
  EXPECT_EQ(result.output.substr(groups),
            std::string(kGroupTable) +
                "Exceptions  dynamic   -           2        Page, Media\n"
                "Exception   template  Exceptions  -        Page, Media\n"
                "\nExceptions\n"
                "RECORD  Page  Media\n"
                "0       7     Heavy\n"
                "1       2     Plain\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.status, 0);
}

TEST_F(GroupsTest, Show_Groups_LeaveTheLogWhereItWas) {
  describe("gone.xml",
           {"<FeatureDynamicGroup Name='Jobs' SortFunctionName='gone'>"
            "<FeatureStaticGroup Name='Job'><Feature FeatureType='TextEntry' Name='Title'/>"
            "</FeatureStaticGroup></FeatureDynamicGroup>"});
  write("records.json", R"([{"Title": "a"}])");
  const RunResult result = run({"show", "gone.xml", "--records", "Jobs", "records.json"});
  EXPECT_EQ(result.errors,
            "driver-feature: misuse: addStaticGroupToDynamicGroupWithSort:  Failed to load custom "
            "sort callback:  gone\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(GroupsTest, ShowJson_GroupsAndRecords_AreAnArray) {
  write("records.json", R"([{"Page": 7, "Media": "Heavy"}])");
  const RunResult result =
      run({"show", "office.xml", "--json", "--records", "Exceptions", "records.json"});
  const std::size_t groups = result.output.find("\"groups\"");
  ASSERT_NE(groups, std::string::npos);
  std::string compact;
  for (const char c : result.output.substr(groups)) {
    if (c != ' ' && c != '\n') compact += c;
  }
  EXPECT_EQ(
      compact,
      R"("groups":[{"name":"Finishing","kind":"static","line":4,"members":["Staple","Fold"]},)"
      R"({"name":"Fold","kind":"static","line":6,"in":"Finishing","members":["Angle"]},)"
      R"({"name":"Exceptions","kind":"dynamic","line":9,"members":["Page","Media"],)"
      R"("records":[{"Page":"7","Media":"Heavy"}]},)"
      R"({"name":"Exception","kind":"template","line":10,"in":"Exceptions",)"
      R"("members":["Page","Media"]}]})");
}

TEST_F(GroupsTest, Records_ThatDoNotFit_AreRefusedWithTheReason) {
  const std::pair<const char*, const char*> rows[] = {
      {R"([{"Page": 0, "Media": "Plain"}])",
       "records.json:1: record 0: \"Page\": 0 is out of range; give a whole number, at least 1 "
       "(office.xml:11)\n"},
      {R"([{"Page": 1, "Media": "Plain"}, {"Page": 1, "Media": "Soft"}])",
       "records.json:1: record 1: \"Media\": feature \"Media\" has no option \"Soft\"; choose one "
       "of Plain, "
       "Heavy\n"},
      {R"([{"Page": 1}])",
       "records.json:1: record 0: member \"Media\" is missing; give it a value\n"},
      {R"([{"Page": 1, "Media": "Plain", "Medi": 1}])",
       "records.json:1: record 0: there is no member \"Medi\"; did you mean \"Media\"?\n"},
      {R"([{"Page": 1, "Media": "Plain", "Something": 1}])",
       "records.json:1: record 0: there is no member \"Something\"; the members are Page, Media\n"},
      {R"([{"Page": null, "Media": "Plain"}])",
       "records.json:1: record 0: the value of \"Page\" is neither a text nor a number; give "
       "one\n"},
      {"[3]", "records.json:1: record 0: it is not an object; write {\"NAME\": VALUE, ...}\n"},
      {"{}",
       "--records Exceptions records.json: the file is not an array; write [ {\"NAME\": VALUE, "
       "...}, ... ]\n"},
      {"[\n {]", "records.json:2:3: the file is not JSON; correct it there or just before\n"},
      {R"([{"Page": 1e400, "Media": "Plain"}])",
       "--records Exceptions records.json: the file holds a number that is too large for any "
       "feature; give a smaller one\n"},
  };
  for (const auto& [json, reason] : rows) EXPECT_EQ(refusedRecords(json), failure(2, reason));
}

TEST_F(GroupsTest, Records_SeveralFaults_AreAllReportedAtTheirLines) {
  write("records.json",
        "[\n  {\"Page\": 0,\n   \"Media\": \"So\\\"[{ft\"},\n  {\"Page\": 1, \"Media\": "
        "\"Plain\"}, 7,\n"
        "  {\"Medi\\u0061\":\n     \"Plain\", \"Pagee\": {\"Page\": [1]}}\n]\n");
  EXPECT_EQ(
      run({"show", "office.xml", "-o", "Copies=0", "-o", "Nope=1", "-o", "Staple=1", "--records",
           "Exceptions", "records.json", "--records", "Gone", "records.json"}),
      failure(2,
              "driver-feature: -o Copies=0: 0 is out of range; give a whole number, at least "
              "1 (office.xml:3)\n"
              "driver-feature: -o Nope=1: there is no feature \"Nope\"; \"driver-feature "
              "show\" lists the features\n"
              "driver-feature: records.json:2: record 0: \"Page\": 0 is out of range; give a "
              "whole number, at least 1 (office.xml:11)\n"
              "driver-feature: records.json:3: record 0: \"Media\": feature \"Media\" has no "
              "option \"So\"[{ft\"; choose one of Plain, Heavy\n"
              "driver-feature: records.json:4: record 2: it is not an object; write "
              "{\"NAME\": VALUE, ...}\n"
              "driver-feature: records.json:5: record 3: member \"Page\" is missing; give it a "
              "value\n"
              "driver-feature: records.json:6: record 3: there is no member \"Pagee\"; did you "
              "mean \"Page\"?\n"
              "driver-feature: --records Gone records.json: there is no dynamic group "
              "\"Gone\"; give one of Exceptions\n"));
}

TEST_F(GroupsTest, Records_ForNoDynamicGroup_AreRefused) {
  write("records.json", "[]");
  EXPECT_EQ(run({"show", "office.xml", "--records", "Finishing", "records.json"}),
            failure(2,
                    "driver-feature: --records Finishing records.json: there is no dynamic group "
                    "\"Finishing\"; give one of Exceptions\n"));
  EXPECT_EQ(
      run({"show", "office.xml", "--records", "Exceptions", "missing.json"}),
      failure(2,
              "driver-feature: --records Exceptions missing.json: the file cannot be read: No "
              "such file or directory; give a JSON file\n"));
  describe("plain.xml", {"<Feature FeatureType='UIOnly' Name='A'/>"});
  EXPECT_EQ(run({"show", "plain.xml", "--records", "Exceptions", "records.json"}),
            failure(2,
                    "driver-feature: --records Exceptions records.json: the description has no "
                    "dynamic group; leave the records out\n"));
}

TEST_F(GroupsTest, Emit_Groups_AreWrittenAfterTheFeatures) {
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps", "-o", "Staple=2", "-o", "Angle=1"}),
            success("1 copies\n[2(1.0)]\n"));
  EXPECT_EQ(run({"emit", "office.xml", "--to", "ps", "-o", "Finishing=1"}),
            failure(2,
                    "driver-feature: -o Finishing=1: \"Finishing\" is a static group and holds no "
                    "value; set its features instead\n"));
}

TEST_F(GroupsTest, Dump_Changes_ShowInTheLibrarysListing) {
  describe("small.xml", {"<Feature FeatureType='IntEntry' Name='Copies' DefaultValue='1'/>",
                         "<FeatureDynamicGroup Name='Jobs'><FeatureStaticGroup Name='Job'>"
                         "<Feature FeatureType='TextEntry' Name='Title'/></FeatureStaticGroup>"
                         "</FeatureDynamicGroup>"});
  write("records.json", R"([{"Title": "a"}, {"Title": ""}])");
  EXPECT_EQ(run({"dump", "small.xml", "-o", "Copies=3", "--records", "Jobs", "records.json"}),
            success("\n\"Copies\" (IntEntry/enabled/visible)Int:3 (not in a group)"
                    "\n\"Title\" (TextEntry/enabled/visible)Text: (in a group)\n"
                    "\nStatic Feature Group:Job:Dynamic Group Template Contains 1 Features\n\tTitle"
                    "\nDynamic Feature Group:Jobs:2(enabled, visible)\n\n"));
}

TEST_F(GroupsTest, Dump_FullDisk_IsAFailure) {
  EXPECT_EQ(run({"dump", "office.xml"}, [] { freopen("/dev/full", "w", stdout); }),
            failure(1,
                    "driver-feature: standard output cannot be written: No space left on "
                    "device\n"));
}

TEST_F(GroupsTest, Dump_RefusedChange_PrintsNothing) {
  EXPECT_EQ(run({"dump", "office.xml", "-o", "Copies=0"}),
            failure(2,
                    "driver-feature: -o Copies=0: 0 is out of range; give a whole number, at least "
                    "1 (office.xml:3)\n"));
}

TEST_F(GroupsTest, Try_Changes_AreShownAndTakenBack) {
  EXPECT_EQ(run({"try", "office.xml", "-o", "Copies=4", "-o", "Media=Heavy", "-o", "Angle=2"}),
            success("NAME    BEFORE  CHANGED  RESTORED\n"
                    "Angle   0.5     2        0.5\n"
                    "Copies  1       4        1\n"
                    "Media   Plain   Heavy    Plain\n"));
}

TEST_F(GroupsTest, Try_NoChange_SaysSo) {
  EXPECT_EQ(run({"try", "office.xml", "-o", "Copies=1"}),
            success("The settings change nothing.\n"));
  EXPECT_EQ(
      run({"try", "office.xml", "-o", "Copies=x"}),
      failure(2,
              "driver-feature: -o Copies=x: \"x\" is not a whole number; give a whole number, "
              "at least 1 (office.xml:3)\n"));
}

}  // namespace
