// What comes from outside: requests that are none, hostile names, routines that
// crash.

#include <csignal>

#include "page_process/page_fixture.h"
#include "support/address_checks.h"

namespace driver_feature::testing {
namespace {

TEST(PageRequestsTest, WhatIsNoRequest_IsAnErrorAndThePageLivesOn) {
  PageClient page(labelPrinter());
  struct Row {
    const char* request;
    const char* error;
  };
  const Row rows[] = {
      {"", "the request is not a JSON object"},
      {"{", "the request is not a JSON object"},
      {"[]", "the request is not a JSON object"},
      {"{\"do\":\"set\",\"settings\":[[\"a\",\"\xFF\"]]}", "the request is not a JSON object"},
      {"{}", "there is no request \"\""},
      {R"({"do":7})", "there is no request \"\""},
      {R"({"do":"dance"})", "there is no request \"dance\""},
      {R"({"do":"set","settings":{}})", "\"settings\" is not [[\"NAME\",\"VALUE\"], ...]"},
      {R"({"do":"set","settings":[["a"]]})", "\"settings\" is not [[\"NAME\",\"VALUE\"], ...]"},
      {R"({"do":"set","settings":[["a",{}]]})", "\"settings\" is not [[\"NAME\",\"VALUE\"], ...]"},
      {R"({"do":"plan","settings":7})", "\"settings\" is not [[\"NAME\",\"VALUE\"], ...]"},
      {R"({"do":"set","settings":[],"conduct":"force"})",
       "there is no conduct \"force\"; give refuse or mend"},
      {R"({"do":"open","records":[]})", "\"records\" is not {\"GROUP\": [[\"VALUE\", ...], ...]}"},
      {R"({"do":"open","records":{"a":[["b",[]]]}})",
       "\"records\" is not {\"GROUP\": [[\"VALUE\", ...], ...]}"},
      {R"({"do":"records","values":{}})", "\"values\" is not an array"},
      {R"({"do":"records","values":[[]]})", "a value is neither a text nor a number; give one"},
  };
  for (const auto& [request, error] : rows) {
    EXPECT_EQ(page.askText(request), Json({{"error", error}})) << request;
  }
  EXPECT_EQ(page.askText(std::string(100000, '[')),
            Json({{"error", "the request is not a JSON object"}}));
  EXPECT_EQ(page.askText(R"({"do":"state"})")["serial"], 0);
}

TEST(PageRequestsTest, EmptyChange_IsAChange) {
  PageClient page(labelPrinter());
  const Json reply = page.askText(R"({"do":"set"})");
  EXPECT_EQ(reply["ok"], true);
  EXPECT_EQ(reply["serial"], 1);
  EXPECT_EQ(reply["values"], Json::object());
}

TEST(PageHostileTest, NamesOfAllKinds_AreShownAndFound) {
  // The names are a"b, <i>, a=b, -x, 'q', $(x) and one that is no UTF-8 (ISO-8859-1 text).
  PageClient page(requestFor(writtenFile(
      "names.xml",
      description(
          R"(<Feature FeatureType="IntEntry" Name="a&quot;b" DefaultValue="1" PSCommand="1%d "/>
<Feature FeatureType="MultiSelect" Name="&lt;i>" DefaultValue="&lt;script>" PSCommand="%s"><Option Name="&lt;script>" PSCommand="2 "/><Option Name="'&quot;&#10;" PSCommand="3 "/></Feature>
<Feature FeatureType="IntEntry" Name="a=b" DefaultValue="1" PSCommand="4%d "/>
<Feature FeatureType="IntEntry" Name="-x" DefaultValue="1" PSCommand="5%d "/>
<Feature FeatureType="IntEntry" Name="'q' $(x) `y`" DefaultValue="1" PSCommand="6%d "/>
<Feature FeatureType="TextEntry" Name="[t]" DefaultValue="" PSCommand="7(%s) "/>
<Feature FeatureType="TextEntry" Name="n" TESKOAAttributeName="t" TESKAttributeSyntax="name"/>
)"))));
  const Json model = page.askText(R"({"do":"model"})");
  EXPECT_EQ(model["features"]["<i>"]["choices"][1]["name"], "'\"\n");
  page.askText(R"({"do":"state"})");
  const Json reply = page.askText(
      R"({"do":"set","settings":[["a\"b","9"],["<i>","'\"\n"],["a=b","9"],["-x","9"],
          ["'q' $(x) `y`","9"],["[t]","\u00e4 END"],["n","END\nEND\n"]]})");
  ASSERT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(page.output("ps")["text"], "69 59 3 7(\u00e4 END) 19 49 ");
  EXPECT_EQ(runCommand(reply["command"]), outputsOf(page.askText(R"({"do":"state"})")));
  EXPECT_EQ(runCommand(reply["command"]).ps, "69 59 3 7(\u00e4 END) 19 49 ");
  EXPECT_EQ(page.askText(Json({{"do", "open"}, {"query", reply["query"]}}).dump())["ok"], true);
  EXPECT_EQ(page.askText(R"({"do":"state"})")["outputs"]["ps"]["text"],
            "69 59 3 7(\u00e4 END) 19 49 ");
}

TEST(PageHostileTest, HiddenAndUnavailable_AreTold) {
  PageClient page(requestFor(writtenFile(
      "flags.xml",
      description(R"(<Feature FeatureType="IntEntry" Name="A" Visibility="false" DefaultValue="1"/>
<Feature FeatureType="MultiSelect" Name="B" Sensitivity="false" DefaultValue="x"><Option Name="x"/><Option Name="y" Sensitivity="false"/></Feature>
)"))));
  const Json state = page.askText(R"({"do":"state"})");
  EXPECT_EQ(state["hidden"], Json::parse(R"(["A"])"));
  EXPECT_EQ(state["disabled"], Json::parse(R"({"B":""})"));
  EXPECT_EQ(state["off"],
            Json::parse(R"({"B":{"y":"option \"y\" of feature \"B\" is unavailable"}})"));
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["B","x"]]})")["problem"],
            "feature \"B\" is unavailable; leave it out");
}

page::PageRequest withRoutines(const std::string& elements) {
  page::PageRequest request = requestFor(writtenFile("routines.xml", description(elements)));
  request.routines = {ROUTINES_LIBRARY};
  return request;
}

// The check of addresses takes the signal and ends the process by itself.
#ifdef ADDRESSES_ARE_CHECKED
constexpr int kCrashSignal = 0;
constexpr const char* kEndOfCrash =
    "the routine \"crash\" of the description ended the process with exit status 1; let it return";
#else
constexpr int kCrashSignal = SIGSEGV;
constexpr const char* kEndOfCrash =
    "the routine \"crash\" of the description crashed (signal 11, Segmentation fault); correct it";
#endif

TEST(PageRoutinesTest, ChangeRoutineThatCrashes_IsNamedAndThePageLivesOn) {
  PageClient page(withRoutines(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" AddCallbackRoutine="crash" PSCommand="%d"/>
<Feature FeatureType="IntEntry" Name="B" DefaultValue="1" AddCallbackRoutine="throwException"/>
<Feature FeatureType="IntEntry" Name="C" DefaultValue="1" PSCommand="c%d"/>
)"));
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["A","2"]]})")["problem"], kEndOfCrash);
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["B","2"]]})")["problem"],
            "the routine \"throwException\" of the description threw an exception: no paper; catch "
            "it in the routine");
  const Json reply = page.askText(R"({"do":"set","settings":[["C","2"]]})");
  EXPECT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(reply["outputs"]["ps"],
            Json::parse(R"({"at":2,"gone":1,"text":"2","head":2,"tail":0,"spans":[]})"));
}

TEST(PageRoutinesTest, OutputRoutineThatCrashes_EndsTheProcessAtTheStart) {
  PageClient page(withRoutines(
      R"(<Feature FeatureType="UIOnly" Name="A" AddPSCallbackRoutine="crashInOutput"/>)"));
  EXPECT_EQ(page.greeting(), Json());
  const int status = page.end();
  EXPECT_NE(status, 0);
  EXPECT_EQ(WTERMSIG(status), kCrashSignal);
}

TEST(PageRoutinesTest, RoutineThatPrints_DoesNotDisturbTheReplies) {
  PageClient page(withRoutines(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" AddCallbackRoutine="printSomething"/>)"));
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["A","2"]]})")["ok"], true);
}

TEST(PageRoutinesTest, ValuesThatARoutineHasChanged_AreTold) {
  PageClient page(withRoutines(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" AddCallbackRoutine="forbidDuplex" PSCommand="a%d"/>
<Feature FeatureType="MultiSelect" Name="Duplex" DefaultValue="x" PSCommand="%s"><Option Name="x" PSCommand="1"/><Option Name="y" PSCommand="2"/></Feature>
)"));
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["Duplex","y"]]})")["ok"], true);
  const Json reply = page.askText(R"({"do":"set","settings":[["A","2"]]})");
  EXPECT_EQ(reply["disabled"], Json::parse(R"({"Duplex":""})"));
  // Duplex must be set first.
  EXPECT_TRUE(reply["command"].get<std::string>().ends_with("-o Duplex=y -o A=2"));
  EXPECT_EQ(runCommand(reply["command"]).ps, "a22");
}

TEST(PageRoutinesTest, ChoiceThatARoutineHides_IsTold) {
  PageClient page(withRoutines(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" AddCallbackRoutine="hideLongEdge"/>
<Feature FeatureType="MultiSelect" Name="Duplex" DefaultValue="x"><Option Name="x"/><Option Name="LongEdge"/></Feature>
)"));
  EXPECT_EQ(page.askText(R"({"do":"state"})")["hiddenChoices"], Json::object());
  EXPECT_EQ(page.askText(R"({"do":"set","settings":[["A","2"]]})")["hiddenChoices"],
            Json::parse(R"({"Duplex":["LongEdge"]})"));
}

TEST(PageRoutinesTest, ValueThatNeedsAnEarlierOne_IsInTheCommandWithIt) {
  PageClient page(officeLaser());
  page.askText(R"({"do":"set","settings":[["Watermark","Custom"],["WatermarkText","Mine"]]})");
  Json reply = page.askText(R"({"do":"set","settings":[["Watermark","None"]]})");
  EXPECT_EQ(reply["query"], "Watermark=Custom&WatermarkText=Mine&Watermark=None");
  reply = page.askText(R"({"do":"set","settings":[["Copies","3"]]})");
  EXPECT_EQ(runCommand(reply["command"]), outputsOf(page.askText(R"({"do":"state"})")));
  EXPECT_EQ(page.askText(Json({{"do", "open"}, {"query", reply["query"]}}).dump())["ok"], true);
  EXPECT_EQ(page.askText(R"({"do":"state"})")["values"]["WatermarkText"], "Mine");
  reply = page.askText(R"({"do":"reset"})");
  EXPECT_EQ(reply["query"], "");
}

}  // namespace
}  // namespace driver_feature::testing
