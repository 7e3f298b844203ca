// What the commands do about rules that forbid values together.

#include "host/program_runner.h"

namespace {

class RulesTest : public ProgramTest {
 protected:
  RulesTest() {
    write("office.xml",
          "<Driver><FeatureDescription>\n"
          "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>\n" +
              feature("MultiSelect", "Duplex", "DefaultValue='None' PSCommand='%s&#10;'",
                      "<O Name='None' PSCommand='one side'/><O Name='On' PSCommand='two sides'/>") +
              "\n" +
              feature("MultiSelect", "Media", "DefaultValue='Plain' PSCommand='%s&#10;'",
                      "<O Name='Plain' PSCommand='plain'/><O Name='Film' PSCommand='film'/>") +
              "\n" +
              feature("MultiSelect", "Staple", "DefaultValue='No' PSCommand='%s&#10;'",
                      "<O Name='No' PSCommand='loose'/><O Name='Yes' PSCommand='stapled'/>") +
              "\n" +
              feature("MultiSelect", "Unit", "DefaultValue='No'", "<O Name='No'/><O Name='Yes'/>") +
              "\n" +
              feature("IntEntry", "Copies",
                      "DefaultValue='1' IntMinValue='1' IntMaxValue='99' PSCommand='%d&#10;'") +
              "\n</FeatureDescription>\n"
              "<FeatureRules>\n"
              "<Hardware Feature='Unit'/>\n"
              "<Never Id='film' Text='Film is printed on one side.'>"
              "<When Feature='Media' Is='Film'/><When Feature='Duplex' IsNot='None'/></Never>\n"
              "<Never Id='staple'>"
              "<When Feature='Staple' Is='Yes'/><When Feature='Unit' Is='No'/></Never>\n"
              "<Never Id='copies' Text='Film is printed once.'>"
              "<When Feature='Media' Is='Film'/><When Feature='Copies' Above='1'/></Never>\n"
              "</FeatureRules></Driver>\n");
  }

  RunResult command(const std::string& name, const std::vector<std::string>& settings,
                    const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments = {name, "office.xml"};
    for (const std::string& setting : settings) {
      arguments.insert(arguments.end(), {"-o", setting});
    }
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(arguments);
  }

  RunResult emit(const std::vector<std::string>& settings, bool resolves = false) const {
    std::vector<std::string> more = {"--to", "ps"};
    if (resolves) more.emplace_back("--resolve");
    return command("emit", settings, more);
  }
};

constexpr const char* kFilm =
    "Media=Film cannot be combined with Duplex=On: Film is printed on one side (office.xml:11)";
constexpr const char* kDuplex =
    "Duplex=On cannot be combined with Media=Film: Film is printed on one side (office.xml:11)";
constexpr const char* kStaple =
    "driver-feature: Staple=Yes cannot be combined with Unit=No (rule staple) (office.xml:12); "
    "possible with Unit=Yes\n";

constexpr const char* kMendedJson = R"({
  "result": "mended",
  "changes": [
    {
      "feature": "Duplex",
      "from": "On",
      "to": "None"
    }
  ],
  "rules": [
    {
      "id": "film",
      "text": "Film is printed on one side.",
      "file": "office.xml",
      "line": 11,
      "values": {
        "Media": "Film",
        "Duplex": "On"
      }
    }
  ],
  "hardware": [],
  "withHardware": []
}
)";

constexpr const char* kImpossibleJson = R"({
  "result": "impossible",
  "changes": [],
  "rules": [
    {
      "id": "staple",
      "text": "",
      "file": "office.xml",
      "line": 12,
      "values": {
        "Staple": "Yes",
        "Unit": "No"
      }
    }
  ],
  "hardware": [
    {
      "feature": "Unit",
      "from": "No",
      "to": "Yes"
    }
  ],
  "withHardware": []
}
)";

constexpr const char* kTakenOutJson = R"json(  "takenOut": [
    {
      "feature": "Staple",
      "choice": "Yes",
      "reasons": [
        "Staple=Yes cannot be combined with Unit=No (rule staple) (office.xml:12)"
      ]
    }
  ])json";

TEST_F(RulesTest, Emit_ForbiddenValues_AreRefusedWithTheWayOut) {
  EXPECT_EQ(emit({"Media=Film"}), success("1\none side\nfilm\nloose\n"));
  EXPECT_EQ(emit({"Duplex=On", "Media=Film"}),
            failure(2, std::string("driver-feature: ") + kFilm +
                           "; --resolve changes Duplex: On -> None\n"));
  EXPECT_EQ(emit({"Media=Film", "Duplex=On"}),
            failure(2, std::string("driver-feature: ") + kDuplex +
                           "; --resolve changes Media: Film -> Plain\n"));
  EXPECT_EQ(emit({"Staple=Yes"}), failure(2, kStaple));
  EXPECT_EQ(emit({"Staple=Yes", "Unit=Yes"}), success("1\none side\nplain\nstapled\n"));
}

TEST_F(RulesTest, Resolve_ChangesTheFewestOthersAndSaysSo) {
  EXPECT_EQ(emit({"Duplex=On", "Media=Film"}, true),
            (RunResult{0, "1\none side\nfilm\nloose\n",
                       std::string("driver-feature: Duplex is changed from \"On\" to \"None\": ") +
                           kFilm + "\n"}));
  EXPECT_EQ(emit({"Duplex=On", "Copies=3", "Media=Film"}, true).output,
            "1\none side\nfilm\nloose\n");
  EXPECT_EQ(emit({"Media=Film", "Duplex=On"}, true).output, "1\ntwo sides\nplain\nloose\n");
}

TEST_F(RulesTest, Resolve_HardwareIsNeverChanged) {
  EXPECT_EQ(emit({"Staple=Yes"}, true), failure(2, kStaple));
  EXPECT_EQ(emit({"Staple=Yes", "Unit=No"}, true).output, "1\none side\nplain\nloose\n");
}

TEST_F(RulesTest, IgnoreRules_WritesForbiddenValues) {
  EXPECT_EQ(
      command("emit", {"Staple=Yes", "Duplex=On", "Media=Film"}, {"--to", "ps", "--ignore-rules"}),
      success("1\ntwo sides\nfilm\nstapled\n"));
  EXPECT_EQ(emit({}, true).status, 0);
  EXPECT_EQ(command("emit", {}, {"--to", "ps", "--ignore-rules", "--resolve"}).status, 2);
}

TEST_F(RulesTest, SettingsFile_ForbiddenValues_AreRefusedOrMended) {
  write("my.conf", "Duplex=On\nMedia=Film\n");
  EXPECT_EQ(command("emit", {}, {"--to", "ps", "--settings", "my.conf"}),
            failure(2, std::string("driver-feature: ") + kFilm +
                           "; --resolve changes Duplex: On -> None\n"));
  EXPECT_EQ(command("emit", {}, {"--to", "ps", "--settings", "my.conf", "--resolve"}).output,
            "1\none side\nfilm\nloose\n");
  EXPECT_EQ(command("emit", {"Duplex=None"}, {"--to", "ps", "--settings", "my.conf"}),
            success("1\none side\nfilm\nloose\n"));
}

TEST_F(RulesTest, RefusedValues_WriteNeitherOutputNorSettings) {
  EXPECT_EQ(command("emit", {"Duplex=On", "Media=Film"},
                    {"--to", "ps", "--output", "job.ps", "--save", "job.conf"})
                .status,
            2);
  EXPECT_EQ(fileNames(), std::vector<std::string>{"office.xml"});
}

TEST_F(RulesTest, RuleThatHoldsByDefault_RefusesOnlyWhoSetsItsFeatures) {
  write("office.xml",
        "<D><FeatureDescription>"
        "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>" +
            feature("IntEntry", "A", "DefaultValue='5' PSCommand='%d '") +
            feature("IntEntry", "B", "DefaultValue='5' PSCommand='%d '") +
            "</FeatureDescription><FeatureRules><Never Id='low' Text='A stays low.'>"
            "<When Feature='A' Above='4'/></Never></FeatureRules></D>\n");
  EXPECT_EQ(emit({"B=6"}), success("5 6 "));
  EXPECT_EQ(emit({"A=6"}).status, 2);
  EXPECT_EQ(emit({"A=4"}), success("4 5 "));
}

// The routine makes "Duplex" unavailable when "Media" changes; the rule forbids
// two sides on film.
TEST_F(RulesTest, ChangeRoutineAndRule_BothHold) {
  const std::string list = "PSCommand='%s&#10;' DefaultValue=";
  write(
      "office.xml",
      "<D><FeatureDescription>"
      "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>" +
          feature("MultiSelect", "Duplex", list + "'None'",
                  "<O Name='None' PSCommand='one side'/><O Name='On' PSCommand='two sides'/>") +
          feature("MultiSelect", "Media", "AddCallbackRoutine='forbidDuplex' " + list + "'Plain'",
                  "<O Name='Plain' PSCommand='plain'/><O Name='Film' PSCommand='film'/>"
                  "<O Name='Foil' PSCommand='foil'/>") +
          feature("IntEntry", "Copies", "DefaultValue='1' PSCommand='%d&#10;'") +
          "</FeatureDescription><FeatureRules>\n<Never Id='film'><When Feature='Media' Is='Film'/>"
          "<When Feature='Copies' Above='1'/></Never></FeatureRules></D>\n");
  const std::vector<std::string> command = {
      "--callbacks", ROUTINES_LIBRARY, "emit", "office.xml", "--to", "ps", "-o", "Media=Film"};
  const auto with = [&](const std::vector<std::string>& more) {
    std::vector<std::string> all = command;
    all.insert(all.end(), more.begin(), more.end());
    return run(all);
  };
  EXPECT_EQ(with({}), success("1\none side\nfilm\n"));
  EXPECT_EQ(with({"-o", "Duplex=On"}),
            failure(2,
                    "driver-feature: -o Duplex=On: feature \"Duplex\" is unavailable; leave it "
                    "out\n"));
  EXPECT_EQ(with({"-o", "Copies=2"}),
            failure(2,
                    "driver-feature: Copies=2 cannot be combined with Media=Film (rule film) "
                    "(office.xml:2); --resolve changes Media: Film -> Plain\n"));
  EXPECT_EQ(with({"-o", "Copies=2", "--resolve"}).output, "2\none side\nplain\n");
}

TEST_F(RulesTest, ResolveCommand_ShowsThePlanAndChangesNothing) {
  EXPECT_EQ(command("resolve", {"Media=Film"}), success("The values fit together.\n"));
  EXPECT_EQ(command("resolve", {"Duplex=On", "Media=Film"}),
            success("NAME    NOW  THEN\nDuplex  On   None\n\n" + std::string(kFilm) + "\n"));
  EXPECT_EQ(command("resolve", {"Staple=Yes"}), failure(1, kStaple));
}

TEST_F(RulesTest, ResolveCommand_Json_HasChangesRulesAndHardware) {
  EXPECT_EQ(command("resolve", {"Duplex=On", "Media=Film"}, {"--json"}), success(kMendedJson));
  EXPECT_EQ(command("resolve", {"Staple=Yes"}, {"--json"}),
            (RunResult{1, kImpossibleJson, kStaple}));
}

TEST_F(RulesTest, Try_ShowsWhatResolveChanges) {
  EXPECT_EQ(command("try", {"Copies=3", "Media=Film"}).status, 2);
  EXPECT_EQ(
      command("try", {"Copies=3", "Media=Film"}, {"--resolve"}),
      (RunResult{0, "NAME   BEFORE  CHANGED  RESTORED\nMedia  Plain   Film     Plain\n",
                 "driver-feature: Copies is changed from \"3\" to \"1\": Media=Film cannot be "
                 "combined with Copies=3: Film is printed once (office.xml:13)\n"}));
}

TEST_F(RulesTest, Diff_RefusesAFileOrComparesWhatResolveMakesOfIt) {
  write("my.conf", "Duplex=On\nMedia=Film\n");
  EXPECT_EQ(run({"diff", "office.xml", "/dev/null", "my.conf"}),
            failure(2, std::string("driver-feature: ") + kFilm +
                           "; --resolve changes Duplex: On -> None\n"));
  const RunResult mended = run({"diff", "office.xml", "/dev/null", "my.conf", "--resolve"});
  EXPECT_EQ(mended.status, 1);
  EXPECT_EQ(mended.output,
            "--- /dev/null (settings)\n+++ my.conf (settings)\n-Media=Plain\n+Media=Film\n"
            "--- /dev/null (ps)\n+++ my.conf (ps)\n@@ -1,4 +1,4 @@\n 1\n one side\n-plain\n+film\n"
            " loose\n");
}

TEST_F(RulesTest, Show_TellsWhatIsTakenOutAndWhy) {
  EXPECT_EQ(command("show", {}),
            success("NAME    TYPE         VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                    "Copies  IntEntry     1      available     from 1 to 99\n"
                    "Duplex  MultiSelect  None   available     None, On\n"
                    "Media   MultiSelect  Plain  available     Plain, Film\n"
                    "Staple  MultiSelect  No     available     No, Yes (unavailable)\n"
                    "Unit    MultiSelect  No     available     No, Yes\n"
                    "\nTAKEN OUT BY RULES\n  Staple=Yes\n"
                    "    Staple=Yes cannot be combined with Unit=No (rule staple) "
                    "(office.xml:12)\n"));
  EXPECT_EQ(command("show", {"Unit=Yes"}).output.find("TAKEN OUT"), std::string::npos);
  EXPECT_NE(command("show", {}, {"Staple"}).output.find("TAKEN OUT BY RULES\n  Staple=Yes\n"),
            std::string::npos);
  EXPECT_EQ(command("show", {}, {"Duplex"}).output.find("TAKEN OUT"), std::string::npos);
}

TEST_F(RulesTest, ShowJson_ListsWhatIsTakenOut) {
  const std::string output = command("show", {}, {"--json"}).output;
  EXPECT_NE(output.find(kTakenOutJson), std::string::npos) << output;
}

TEST_F(RulesTest, RuleThatCannotBeRead_IsReportedAndLeftOut) {
  write("office.rules.xml", "<FeatureRules><Never Id='x'><When Feature='Media'/></Never>\n");
  const RunResult emitted = emit({"Media=Film"});
  EXPECT_EQ(emitted.status, 0);
  EXPECT_EQ(emitted.errors.find("driver-feature: warning: office.rules.xml:"), 0U)
      << emitted.errors;
  EXPECT_EQ(run({"-q", "emit", "office.xml", "--to", "ps"}),
            success("1\none side\nplain\nloose\n"));
}

TEST_F(RulesTest, ManyRulesOfOneRefusal_AreCounted) {
  std::string rules;
  for (int i = 0; i < 12; ++i) {
    rules += "<Never Id='r" + std::to_string(i) +
             "'><When Feature='Media' Is='Film'/><When Feature='Duplex' Is='On'/></Never>";
  }
  std::string office = read("office.xml");
  office.insert(office.find("</FeatureRules>"), rules);
  write("office.xml", office);
  const std::string errors = emit({"Media=Film", "Duplex=On"}).errors;
  EXPECT_TRUE(
      errors.ends_with("(rule r8) (office.xml:14); and 3 more rules forbid it; "
                       "--resolve changes Media: Film -> Plain\n"))
      << errors;
}

}  // namespace
