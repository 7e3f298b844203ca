// Changes, and the replies about them.

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

const char* const kPrinter =
    R"(<Feature FeatureType="IntEntry" Name="Copies" IntMinValue="1" IntMaxValue="99" DefaultValue="1" PSCommand="/#copies %d def&#10;"/>
<Feature FeatureType="MultiSelect" Name="Duplex" DefaultValue="None" PSCommand="&lt;&lt; /Duplex %s >> setpagedevice&#10;">
  <Option Name="None" PSCommand="false"/>
  <Option Name="LongEdge" PSCommand="true"/>
</Feature>
<Feature FeatureType="MultiSelect" Name="MediaType" DefaultValue="Plain" PSCommand="&lt;&lt; /MediaType (%s) >> setpagedevice&#10;">
  <Option Name="Plain" PSCommand="Plain"/>
  <Option Name="Film" PSCommand="Transparency"/>
</Feature>
<Feature FeatureType="TextEntry" Name="Pin" Encrypted="true" MaxTextLength="4" PJLCommand="@PJL PIN &quot;%s&quot;&#10;"/>
<Feature FeatureType="MultiSelect" Name="Unit" DefaultValue="Installed">
  <Option Name="Installed"/>
  <Option Name="Missing"/>
</Feature>
)";

const char* const kRules =
    R"(<FeatureRules>
  <Hardware Feature="Unit"/>
  <Never Id="unit" Text="Two sides need the unit."><When Feature="Unit" Is="Missing"/><When Feature="Duplex" IsNot="None"/></Never>
  <Never Id="film" Text="Films are printed on one side."><When Feature="MediaType" Is="Film"/><When Feature="Duplex" IsNot="None"/></Never>
</FeatureRules>
<FeaturePresets>
  <Preset Name="draft">Duplex=LongEdge
Copies=3</Preset>
  <Preset Name="wrong">MediaType=Film
Duplex=LongEdge</Preset>
</FeaturePresets>
<FeatureTexts Language="en"><Text For="Copies">Copies</Text></FeatureTexts>
<FeatureTexts Language="de"><Text For="rule:film">Folien werden einseitig bedruckt.</Text></FeatureTexts>
)";

class PageChangesTest : public ::testing::Test {
 protected:
  PageChangesTest()
      : file_(writtenFile("printer.xml", description(kPrinter, kRules))),
        page_(requestFor(file_)) {}

  Json ask(const std::string& request) { return page_.askText(request); }
  Json set(const std::string& pairs, const std::string& more = "") {
    return ask(R"({"do":"set","settings":)" + pairs + more + "}");
  }
  std::string rule(const std::string& text, int line) const {
    return text + " (" + file_ + ":" + std::to_string(line) + ")";
  }

  std::string file_;
  PageClient page_;
};

TEST_F(PageChangesTest, FirstState_IsThatOfTheDefaults) {
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(state["whole"], true);
  EXPECT_EQ(state["serial"], 0);
  EXPECT_EQ(state["values"], Json::parse(R"({"Copies":"1","Duplex":"None","MediaType":"Plain",
      "Pin":"","Unit":"Installed"})"));
  for (const char* list : {"changed", "masked", "hidden", "log", "notifications"}) {
    EXPECT_EQ(state[list], Json::array()) << list;
  }
  for (const char* part : {"off", "disabled", "hiddenChoices", "conflicts", "records"}) {
    EXPECT_EQ(state[part], Json::object()) << part;
  }
  EXPECT_EQ(state["query"], "");
  EXPECT_EQ(
      state["outputs"]["ps"],
      Json::parse(
          R"({"text":"/#copies 1 def\n<< /Duplex false >> setpagedevice\n<< /MediaType (Plain) >> setpagedevice\n",
      "spans":[[0,15,"Copies"],[15,34,"Duplex"],[49,39,"MediaType"]]})"));
}

TEST_F(PageChangesTest, Change_IsToldAsDifference) {
  const Json reply = set(R"([["Duplex","LongEdge"]])");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["whole"], false);
  EXPECT_EQ(reply["serial"], 1);
  EXPECT_EQ(reply["revision"], 0);
  EXPECT_EQ(reply["also"], Json::array());
  EXPECT_EQ(reply["values"], Json::parse(R"({"Duplex":"LongEdge"})"));
  EXPECT_EQ(reply["changed"], Json::parse(R"(["Duplex"])"));
  EXPECT_EQ(reply["conflicts"], Json::parse(R"({"MediaType":["Film"],"Unit":["Missing"]})"));
  EXPECT_EQ(reply["off"], Json::object());
  EXPECT_EQ(reply["records"], Json::object());
  EXPECT_EQ(reply["outputs"].size(), 1U);
  EXPECT_EQ(reply["outputs"]["ps"], Json::parse(R"({"at":26,"gone":4,"text":"tru","head":1,
      "tail":1,"spans":[[15,33,"Duplex"]]})"));
  EXPECT_EQ(reply["notifications"], Json::parse(R"(["Duplex"])"));
  EXPECT_EQ(reply["query"], "Duplex=LongEdge");
}

TEST_F(PageChangesTest, EntryThatHasGone_IsNull) {
  set(R"([["Duplex","LongEdge"]])");
  const Json reply = set(R"([["Duplex","None"]])");
  EXPECT_EQ(reply["conflicts"], Json::parse(R"({"MediaType":null,"Unit":null})"));
  EXPECT_EQ(reply["changed"], Json::array());
  EXPECT_EQ(reply["serial"], 2);
}

TEST_F(PageChangesTest, RefusedValues_ChangeNothing) {
  set(R"([["Copies","7"]])");
  struct Row {
    const char* settings;
    std::string problem;
    const char* feature;
  };
  const std::string place = " (" + file_ + ":4)";
  const Row rows[] = {
      {R"([["Copies","0"]])", "0 is out of range; give a whole number, from 1 to 99" + place,
       "Copies"},
      {R"([["Copies","x"]])",
       "\"x\" is not a whole number; give a whole number, from 1 to 99" + place, "Copies"},
      {R"([["Duplex","LongEdg"]])",
       "feature \"Duplex\" has no option \"LongEdg\"; did you mean \"LongEdge\"? (choose one of "
       "None, LongEdge)",
       "Duplex"},
      {R"([["Duplexx","None"]])", "there is no feature \"Duplexx\"; did you mean \"Duplex\"?",
       "Duplexx"},
      // The first one is taken back.
      {R"([["Copies","9"],["Duplex","Z"]])",
       "feature \"Duplex\" has no option \"Z\"; choose one of None, LongEdge", "Duplex"},
  };
  for (const auto& [settings, problem, feature] : rows) {
    const Json reply = set(settings);
    EXPECT_EQ(reply["ok"], false) << settings;
    EXPECT_EQ(reply["problem"], problem);
    EXPECT_EQ(reply["feature"], feature);
    EXPECT_EQ(reply["serial"], 1);
  }
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(state["serial"], 1);
  EXPECT_EQ(state["values"]["Copies"], "7");
  EXPECT_EQ(state["query"], "Copies=7");
}

TEST_F(PageChangesTest, RefusalByARule_IsThatOfEmitAndHasAPlan) {
  set(R"([["Duplex","LongEdge"]])");
  const Json reply = set(R"([["MediaType","Film"]])");
  EXPECT_EQ(reply["ok"], false);
  EXPECT_EQ(
      reply["problem"],
      "MediaType=Film cannot be combined with Duplex=LongEdge: Films are printed on one side (" +
          file_ + ":22); --resolve changes Duplex: LongEdge -> None");
  EXPECT_EQ(reply["plan"]["kind"], "mended");
  EXPECT_EQ(reply["plan"]["changes"],
            Json::parse(R"([{"feature":"Duplex","from":"LongEdge","to":"None"}])"));
  EXPECT_EQ(reply["plan"]["reasons"].size(), 1U);
  EXPECT_EQ(ask(R"({"do":"state"})")["values"]["MediaType"], "Plain");
}

TEST_F(PageChangesTest, RefusedByARule_IsNotAPersonsChoiceAfterwards) {
  set(R"([["Duplex","LongEdge"]])");
  set(R"([["MediaType","Film"]])");
  // If the film still counted as chosen, this would be refused.
  const Json reply = set(R"([["Copies","2"]])");
  EXPECT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(reply["query"], "Duplex=LongEdge&Copies=2");
}

TEST_F(PageChangesTest, MendedChange_SaysWhatElseHasChanged) {
  set(R"([["Duplex","LongEdge"]])");
  const Json reply = set(R"([["MediaType","Film"]])", R"(,"conduct":"mend")");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["also"],
            Json::array({rule("Duplex is changed from \"LongEdge\" to \"None\": MediaType=Film "
                              "cannot be combined with Duplex=LongEdge: Films are printed on one "
                              "side",
                              22)}));
  EXPECT_EQ(reply["values"], Json::parse(R"({"Duplex":"None","MediaType":"Film"})"));
  EXPECT_EQ(reply["notifications"], Json::parse(R"(["MediaType","Duplex"])"));
}

TEST_F(PageChangesTest, Hardware_TakesOutChoicesWithTheReason) {
  Json reply = set(R"([["Unit","Missing"]])");
  EXPECT_EQ(
      reply["off"]["Duplex"]["LongEdge"],
      rule("Duplex=LongEdge cannot be combined with Unit=Missing: Two sides need the unit", 21));
  EXPECT_EQ(reply["conflicts"], Json::object());  // What is off is reported once.
  reply = set(R"([["Duplex","LongEdge"]])", R"(,"conduct":"mend")");
  EXPECT_EQ(reply["ok"], false);
  EXPECT_EQ(reply["plan"]["kind"], "impossible");
  EXPECT_EQ(reply["plan"]["hardware"],
            Json::parse(R"([{"feature":"Unit","from":"Missing","to":"Installed"}])"));
  EXPECT_EQ(
      reply["problem"],
      rule("Duplex=LongEdge cannot be combined with Unit=Missing: Two sides need the unit", 21) +
          "; possible with Unit=Installed");
  reply = set(R"([["Unit","Installed"]])");
  EXPECT_EQ(reply["off"], Json::parse(R"({"Duplex":null})"));
}

TEST_F(PageChangesTest, Plan_ChangesNothing) {
  set(R"([["Duplex","LongEdge"]])");
  const Json plan = ask(R"({"do":"plan","settings":[["MediaType","Film"]],"language":"de"})");
  EXPECT_EQ(plan["kind"], "mended");
  EXPECT_EQ(plan["changes"],
            Json::parse(R"([{"feature":"Duplex","from":"LongEdge","to":"None"}])"));
  EXPECT_EQ(plan["reasons"],
            Json::array({rule("MediaType=Film cannot be combined with Duplex=LongEdge: Folien "
                              "werden einseitig bedruckt",
                              22)}));
  EXPECT_EQ(plan["hardware"], Json::array());
  EXPECT_EQ(ask(R"({"do":"plan","settings":[["Copies","2"]]})")["kind"], "fits");
  EXPECT_EQ(ask(R"({"do":"state"})")["serial"], 1);
}

TEST_F(PageChangesTest, Presets_AreSetWithinTheRules) {
  const Json reply = ask(R"({"do":"preset","name":"draft"})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"3","Duplex":"LongEdge"})"));
  EXPECT_EQ(ask(R"({"do":"preset","name":"wrong"})")["ok"], false);
  EXPECT_EQ(ask(R"({"do":"preset","name":"draf"})")["problem"],
            "there is no preset \"draf\"; did you mean \"draft\"?");
  EXPECT_EQ(ask(R"({"do":"state"})")["values"]["MediaType"], "Plain");
}

TEST_F(PageChangesTest, Preset_ThatChangesOthers_KeepsItsOwnSettings) {
  set(R"([["MediaType","Film"]])");
  EXPECT_EQ(ask(R"({"do":"preset","name":"draft"})")["plan"]["changes"],
            Json::parse(R"([{"feature":"MediaType","from":"Film","to":"Plain"}])"));
  const Json reply = ask(R"({"do":"preset","name":"draft","conduct":"mend"})");
  EXPECT_EQ(reply["values"],
            Json::parse(R"({"Copies":"3","Duplex":"LongEdge","MediaType":"Plain"})"));
  EXPECT_EQ(reply["query"], "Duplex=LongEdge&Copies=3");
}

TEST_F(PageChangesTest, Reset_SetsTheDefaults) {
  set(R"([["Duplex","LongEdge"],["Copies","4"]])");
  const Json reply = ask(R"({"do":"reset"})");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"1","Duplex":"None"})"));
  EXPECT_EQ(reply["query"], "");
  // The choice of two sides is forgotten with its value.
  EXPECT_EQ(set(R"([["MediaType","Film"]])")["ok"], true);
}

TEST_F(PageChangesTest, Open_SetsTheDefaultsFirst) {
  set(R"([["Copies","4"]])");
  Json reply = ask(R"({"do":"open","settings":[["Duplex","LongEdge"]]})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"1","Duplex":"LongEdge"})"));
  reply = ask(R"({"do":"open","query":"Copies=5&MediaType=Film"})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"5","Duplex":"None","MediaType":"Film"})"));
  EXPECT_EQ(reply["query"], "Copies=5&MediaType=Film");
}

TEST_F(PageChangesTest, RefusedOpen_ChangesNothing) {
  set(R"([["Copies","4"]])");
  const Json reply = ask(R"({"do":"open","query":"Duplex=LongEdge&Copies=100"})");
  EXPECT_EQ(reply["ok"], false);
  EXPECT_EQ(reply["feature"], "Copies");
  EXPECT_EQ(ask(R"({"do":"open","query":"Duplex=LongEdge&MediaType=Film"})")["ok"], false);
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(state["values"]["Copies"], "4");
  EXPECT_EQ(state["values"]["Duplex"], "None");
  EXPECT_EQ(state["query"], "Copies=4");
}

TEST_F(PageChangesTest, Restore_LeavesOutWhatCannotBe) {
  const Json reply = ask(R"({"do":"restore","settings":[["Copies","4"],["Gone","x"],
      ["Duplex","Old"],["Pin","12"],["MediaType","Film"]]})");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["lost"], Json::parse(R"(["Gone","Duplex"])"));
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"4","MediaType":"Film"})"));
  EXPECT_EQ(reply["masked"], Json::parse(R"(["Pin"])"));
}

TEST_F(PageChangesTest, RestoreAgainstRules_MendsOrLeavesOut) {
  Json reply = ask(R"({"do":"restore","settings":[["Duplex","LongEdge"],["MediaType","Film"]]})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"MediaType":"Film"})"));
  EXPECT_EQ(reply["also"].size(), 1U);
  // Nothing mends a lack of hardware.
  reply = ask(R"({"do":"restore","settings":[["Unit","Missing"],["Duplex","LongEdge"]]})");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["lost"], Json::parse(R"(["Duplex"])"));
  EXPECT_EQ(reply["values"]["Unit"], "Missing");
}

TEST_F(PageChangesTest, SettingsFiles_AreOpenedAndWritten) {
  Json reply = ask(R"({"do":"open-text","text":"# mine\nCopies=6\nDuplex=LongEdge\n"})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"Copies":"6","Duplex":"LongEdge"})"));
  const std::string text = ask(R"({"do":"settings"})")["text"];
  EXPECT_EQ(text.substr(text.find("Copies")),
            "Copies=6\nDuplex=LongEdge\nMediaType=Plain\n"
            "# Pin is not saved, being marked Encrypted; --save-secrets saves it.\n"
            "Unit=Installed\n");
  EXPECT_EQ(ask(R"({"do":"preset-text"})")["text"],
            "# A preset of driver-feature: what differs from the default values.\n"
            "Copies=6\nDuplex=LongEdge\n");
  reply = ask(R"({"do":"open-text","text":"Copies=7\nDuplexx=x\nCopies=0\n"})");
  EXPECT_EQ(reply["ok"], false);
  EXPECT_EQ(ask(R"({"do":"state"})")["values"]["Copies"], "6");
}

TEST_F(PageChangesTest, Secrets_AreNowhereInReplies) {
  for (const char* request :
       {R"({"do":"set","settings":[["Pin","8761"]]})", R"({"do":"state"})", R"({"do":"model"})",
        R"({"do":"settings"})", R"({"do":"preset-text"})",
        R"({"do":"set","settings":[["Pin","8761x"]]})",
        R"({"do":"set","settings":[["Pin","87\n1"]]})"}) {
    const std::string reply = ask(request).dump();
    EXPECT_EQ(reply.find("8761"), std::string::npos) << reply;
  }
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(state["masked"], Json::parse(R"(["Pin"])"));
  EXPECT_EQ(state["values"]["Pin"], "");
  EXPECT_EQ(state["outputs"]["pjl"],
            Json::parse(R"({"text":"@PJL PIN \"****\"\n","spans":[[0,16,"Pin"]]})"));
  EXPECT_EQ(state["query"], "");
  EXPECT_TRUE(state["command"].get<std::string>().ends_with(" -o 'Pin=****'")) << state["command"];
}

TEST_F(PageChangesTest, Outputs_AreThoseOfTheCommand) {
  set(R"([["Copies","2"],["Duplex","LongEdge"]])");
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(runCommand(state["command"]), outputsOf(state));
}

TEST_F(PageChangesTest, Printer_SaysNothingOfCommandLines) {
  page::PageRequest request = requestFor(file_);
  request.mode = "printer";
  request.serial = 41;
  PageClient page(request);
  const Json state = page.askText(R"({"do":"state"})");
  EXPECT_EQ(state["serial"], 41);
  EXPECT_EQ(state["command"], "");
  page.askText(R"({"do":"set","settings":[["Duplex","LongEdge"]]})");
  const Json reply = page.askText(R"({"do":"set","settings":[["MediaType","Film"]]})");
  EXPECT_EQ(reply["problem"].get<std::string>().find("--"), std::string::npos) << reply;
  EXPECT_EQ(reply["serial"], 42);
}

TEST_F(PageChangesTest, Reset_OfAPrinter_KeepsWhatIsBuiltIn) {
  page::PageRequest request = requestFor(file_);
  request.mode = "printer";
  PageClient page(request);
  page.askText(R"({"do":"restore","settings":[["Unit","Missing"],["Copies","4"]]})");
  EXPECT_EQ(page.askText(R"({"do":"reset"})")["values"], Json::parse(R"({"Copies":"1"})"));
  EXPECT_EQ(page.askText(R"({"do":"open","query":"Copies=2"})")["ok"], true);
  const Json state = page.askText(R"({"do":"state"})");
  EXPECT_EQ(state["values"]["Unit"], "Missing");
  EXPECT_EQ(state["values"]["Copies"], "2");
}

}  // namespace
}  // namespace driver_feature::testing
