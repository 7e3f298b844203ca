// What a page receives of a description once.

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

const char* const kOffice =
    R"(<Feature FeatureType="IntEntry" Name="Copies" IntMinValue="1" IntMaxValue="99" DefaultValue="1"/>
<Feature FeatureType="MultiSelect" Name="Duplex" DefaultValue="Off">
  <Option Name="Off"/>
  <Option Name="On"/>
</Feature>
<FeatureStaticGroup Name="Finish">
  <Feature FeatureType="MultiSelect" Name="Fold" DefaultValue="Half">
    <Option Name="None"/>
    <Option Name="Half"/>
    <Option Name="Z"/>
  </Feature>
  <FeatureStaticGroup Name="Inner">
    <Feature FeatureType="FloatEntry" Name="Gap" FloatMinValue="0.5" FloatMaxValue="3.25" DefaultValue="1.1"/>
  </FeatureStaticGroup>
</FeatureStaticGroup>
<Feature FeatureType="TextEntry" Name="Pin" Encrypted="true" MaxTextLength="4" TextValidationCharSet="0123456789" DefaultValue="0000"/>
<Feature FeatureType="MultiSelect" Name="Unit" DefaultValue="Yes"><Option Name="Yes"/><Option Name="No"/></Feature>
<Feature FeatureType="UIOnly" Name="Mark" Visibility="false"/>
)";

const char* const kAdditions =
    R"(<FeatureRules><Hardware Feature="Unit"/></FeatureRules>
<FeaturePresets><Preset Name="draft" Text="Draft">Duplex=On</Preset><Preset Name="plain">Copies=1</Preset></FeaturePresets>
<FeatureTexts Language="en"><Text For="Duplex">Two sides</Text><Text For="Duplex.On">Both</Text><Text For="Finish">Finishing</Text></FeatureTexts>
<FeatureTexts Language="de"><Text For="Duplex">Beidseitig</Text><Text For="preset:draft">Entwurf</Text></FeatureTexts>
)";

class PageModelTest : public ::testing::Test {
 protected:
  PageModelTest()
      : file_(writtenFile("office.xml", description(kOffice, kAdditions))),
        page_(requestFor(file_)) {}

  Json place(int line, int column) const {
    return {{"file", file_}, {"line", line}, {"column", column}};
  }

  std::string file_;
  PageClient page_;
};

TEST_F(PageModelTest, Model_HasWhatDoesNotChange) {
  EXPECT_EQ(page_.greeting(), Json({{"loaded", true}}));
  const Json model = page_.askText(R"({"do":"model"})");
  EXPECT_EQ(model["revision"], 0);
  EXPECT_EQ(model["loaded"], true);
  EXPECT_EQ(model["file"], file_);
  EXPECT_EQ(model["name"], "office");
  EXPECT_EQ(model["mode"], "preview");
  EXPECT_EQ(model["language"], "en");
  EXPECT_EQ(model["languages"], Json::parse(R"(["en","de"])"));
  EXPECT_EQ(model["outputs"], Json::parse(R"(["ps","pjl","ticket"])"));
  EXPECT_EQ(model["presets"],
            Json::parse(R"([{"name":"draft","text":"Draft"},{"name":"plain","text":"plain"}])"));
}

TEST_F(PageModelTest, Sections_AreInTheOrderOfTheDescription) {
  Json sections = Json::parse(R"([
    {"id":"","text":"","kind":"features","outer":"","members":["Copies","Duplex","Pin","Mark"]},
    {"id":"Finish","text":"Finishing","kind":"group","outer":"","members":["Fold"]},
    {"id":"Inner","text":"Inner","kind":"group","outer":"Finish","members":["Gap"]},
    {"id":"","text":"","kind":"hardware","outer":"","members":["Unit"]}])");
  sections[1]["place"] = place(9, 1);
  sections[2]["place"] = place(15, 3);
  EXPECT_EQ(page_.askText(R"({"do":"model"})")["sections"], sections);
}

TEST_F(PageModelTest, Features_HaveTheirKindsLimitsAndPlaces) {
  const Json features = page_.askText(R"({"do":"model"})")["features"];
  EXPECT_EQ(features.size(), 7U);
  Json copies = Json::parse(R"({"text":"Copies","kind":"integer","secret":false,"hardware":false,
      "default":"1","min":1,"max":99,"step":1})");
  copies["place"] = place(4, 1);
  EXPECT_EQ(features["Copies"], copies);
  Json duplex = Json::parse(R"({"text":"Two sides","kind":"switch","secret":false,
      "hardware":false,"default":"Off","off":"Off","on":"On",
      "choices":[{"name":"Off","text":"Off"},{"name":"On","text":"Both"}]})");
  duplex["place"] = place(5, 1);
  EXPECT_EQ(features["Duplex"], duplex);
  Json fold = Json::parse(R"({"text":"Fold","kind":"list","secret":false,"hardware":false,
      "default":"Half","choices":[{"name":"None","text":"None"},{"name":"Half","text":"Half"},
      {"name":"Z","text":"Z"}]})");
  fold["place"] = place(10, 3);
  EXPECT_EQ(features["Fold"], fold);
  Json gap = Json::parse(R"({"text":"Gap","kind":"decimal","secret":false,"hardware":false,
      "default":"1.1","min":0.5,"max":3.25})");
  gap["place"] = place(16, 5);
  EXPECT_EQ(features["Gap"], gap);
  Json pin = Json::parse(R"({"text":"Pin","kind":"text","secret":true,"hardware":false,
      "default":"","maxLength":4,"allowed":"0123456789"})");
  pin["place"] = place(19, 1);
  EXPECT_EQ(features["Pin"], pin);
  EXPECT_EQ(features["Unit"]["hardware"], true);
  EXPECT_EQ(features["Unit"]["kind"], "switch");
  EXPECT_EQ(features["Unit"]["off"], "No");
  EXPECT_EQ(features["Unit"]["on"], "Yes");
  EXPECT_EQ(features["Mark"]["kind"], "shown");
}

TEST_F(PageModelTest, OtherLanguage_HasItsTextsAndThoseThatStandInForThem) {
  const Json model = page_.askText(R"({"do":"model","language":"de-AT"})");
  EXPECT_EQ(model["language"], "de");
  EXPECT_EQ(model["features"]["Duplex"]["text"], "Beidseitig");
  EXPECT_EQ(model["features"]["Duplex"]["choices"][1]["text"], "Both");
  EXPECT_EQ(model["presets"][0]["text"], "Entwurf");
}

TEST(PageSectionsTest, NameThatOccursTwice_IsWhereItIsLast) {
  PageClient page(requestFor(writtenFile(
      "twice.xml", description(R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1"/>
<FeatureStaticGroup Name="G"><Feature FeatureType="IntEntry" Name="A" DefaultValue="2"/></FeatureStaticGroup>
)"))));
  const Json model = page.askText(R"({"do":"model"})");
  ASSERT_EQ(model["sections"].size(), 1U);
  EXPECT_EQ(model["sections"][0]["members"], Json::array({"A"}));
  EXPECT_EQ(model["sections"][0]["id"], "G");
  EXPECT_EQ(model["features"]["A"]["place"]["line"], 5);
}

TEST(PageShippedModelTest, OfficeLaser_HasColumnsAndHardware) {
  PageClient page(officeLaser());
  const Json model = page.askText(R"({"do":"model"})");
  const Json& sections = model["sections"];
  ASSERT_EQ(sections.size(), 6U);
  EXPECT_EQ(sections[3]["id"], "PageExceptions");
  EXPECT_EQ(sections[3]["kind"], "records");
  EXPECT_EQ(sections[3]["text"], "Other paper for some pages");
  EXPECT_EQ(sections[3]["members"], Json::parse(R"(["ExceptionFirstPage","ExceptionLastPage",
      "ExceptionMediaType","ExceptionDuplex"])"));
  EXPECT_EQ(sections[5]["members"], Json::parse(R"(["InstalledDuplexUnit","InstalledFinisher"])"));
  EXPECT_EQ(model["features"]["ExceptionDuplex"]["column"], true);
  EXPECT_EQ(model["features"]["DeviceStatus"]["kind"], "shown");
  EXPECT_EQ(model["name"], "office_laser");
}

TEST(PageShippedModelTest, LabelPrinter_IsOfAPrinterWhenAsked) {
  page::PageRequest request = labelPrinter();
  request.mode = "printer";
  request.revision = 5;
  PageClient page(request);
  const Json model = page.askText(R"({"do":"model"})");
  EXPECT_EQ(model["mode"], "printer");
  EXPECT_EQ(model["revision"], 5);
  EXPECT_EQ(model["features"]["InstalledCutter"]["hardware"], true);
  EXPECT_EQ(model["file"], "label_printer.xml");
  EXPECT_EQ(model["features"]["InstalledCutter"]["place"]["file"], "label_printer.xml");
}

TEST(PageShippedModelTest, OfPrinters_NameNoFolders) {
  page::PageRequest request = officeLaser();
  request.mode = "printer";
  PageClient page(request);
  const std::string model = page.askText(R"({"do":"model"})").dump();
  EXPECT_NE(model.find("\"file\":\"office_laser.xml\""), std::string::npos);
  EXPECT_EQ(model.find(DESCRIPTIONS), std::string::npos);
  const Json refused =
      page.askText(R"({"do":"set","settings":[["MediaType","CardStock"],["Duplex","LongEdge"]]})");
  const std::string problem = refused["problem"];
  EXPECT_NE(problem.find(" (office_laser.xml:"), std::string::npos) << problem;
  const Json none =
      page.askText(R"({"do":"set","settings":[["InstalledFinisher","NotInstalled"]]})");
  for (const Json& reply : {refused, none}) {
    EXPECT_EQ(reply.dump().find(DESCRIPTIONS), std::string::npos) << reply;
  }
}

TEST(PageLoadTest, DescriptionThatIsNotThere_IsToldInTheFirstFrame) {
  PageClient page(requestFor("/nowhere/x.xml"));
  EXPECT_EQ(page.greeting()["loaded"], false);
  EXPECT_EQ(page.greeting()["text"].get<std::string>().find("error: ") != std::string::npos, true)
      << page.greeting();
  EXPECT_EQ(WEXITSTATUS(page.end()), 1);
}

TEST(PageLoadTest, ClosedSocket_EndsTheProcess) {
  PageClient page(labelPrinter());
  EXPECT_EQ(page.end(), 0);
}

}  // namespace
}  // namespace driver_feature::testing
