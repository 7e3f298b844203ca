// Pages of large descriptions.

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

std::string listOf(const std::string& name, int choices) {
  std::string text = "<Feature FeatureType=\"MultiSelect\" Name=\"" + name +
                     "\" DefaultValue=\"C0\" PSCommand=\"%s\" PJLCommand=\"@PJL SET " + name +
                     " = %s&#10;\" TESKJTAttributeName=\"" + name + "\">\n";
  for (int i = 0; i < choices; ++i) {
    const std::string choice = "C" + std::to_string(i);
    text += "<Option Name=\"" + choice + "\" PSCommand=\"/" + name + " (" + choice +
            ") def&#10;\" PJLCommand=\"" + choice + "\" TESKCommand=\"" + choice + "\"/>\n";
  }
  return text + "</Feature>\n";
}

std::string numbersOf(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    const std::string name = "N" + std::to_string(i);
    text += "<Feature FeatureType=\"IntEntry\" Name=\"" + name +
            "\" DefaultValue=\"1\" IntMinValue=\"0\" IntMaxValue=\"999\" PSCommand=\"/" + name +
            " %d def&#10;\" PJLCommand=\"@PJL SET " + name + " = %d&#10;\" TESKOAAttributeName=\"" +
            name + "\"/>\n";
  }
  return text;
}

std::string rulesOf(int lists, int count) {
  std::string text = "<FeatureRules>\n";
  for (int i = 0; i < count; ++i) {
    text += "<Never Id=\"r" + std::to_string(i) + "\"><When Feature=\"L" +
            std::to_string(i % lists) + "\" Is=\"C" + std::to_string(i + 1) +
            "\"/><When Feature=\"L" + std::to_string((i + 1) % lists) + "\" Is=\"C" +
            std::to_string(i + 2) + "\"/></Never>\n";
  }
  return text + "</FeatureRules>\n";
}

TEST(PageScaleTest, ThousandFeaturesAndLongLists_AreToldWhole) {
  std::string elements = numbersOf(995);
  for (int i = 0; i < 5; ++i) elements += listOf("L" + std::to_string(i), 2000);
  const std::string file = writtenFile("large.xml", description(elements, rulesOf(5, 200)));
  PageClient page(requestFor(file));
  ASSERT_EQ(page.greeting(), Json({{"loaded", true}}));
  const Json state = page.ask({{"do", "state"}});
  EXPECT_EQ(state["values"].size(), 1000U);
  EXPECT_EQ(state["outputs"]["ps"]["spans"].size(), 1000U);
  EXPECT_EQ(state["outputs"]["pjl"]["spans"].size(), 1000U);
  EXPECT_EQ(state["outputs"]["ticket"]["spans"].size(), 1000U);
  const Json reply = page.askText(R"({"do":"set","settings":[["L0","C1999"],["L1","C2"]]})");
  EXPECT_EQ(reply["values"], Json::parse(R"({"L0":"C1999","L1":"C2"})"));
  EXPECT_EQ(reply["conflicts"], Json::parse(R"({"L0":["C1"],"L2":["C3"]})"));
}

TEST(PageScaleTest, TenThousandFeatures_AreUsable) {
  const std::string file = writtenFile("many.xml", description(numbersOf(10000)));
  PageClient page(requestFor(file));
  const Json model = page.ask({{"do", "model"}});
  EXPECT_EQ(model["features"].size(), 10000U);
  EXPECT_EQ(model["sections"][0]["members"].size(), 10000U);
  const Json reply = page.askText(R"({"do":"set","settings":[["N9999","77"]]})");
  EXPECT_EQ(reply["values"], Json({{"N9999", "77"}}));
  // What has changed is told, and not the 10,000 others.
  EXPECT_EQ(reply["outputs"]["ps"]["tail"], 0);
  EXPECT_EQ(reply["outputs"]["ps"]["head"], 9999);
  EXPECT_LT(reply.dump().size(), 2000U);
}

}  // namespace
}  // namespace driver_feature::testing
