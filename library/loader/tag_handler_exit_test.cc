// Descriptions that end the process: exit status and the whole of standard
// error, in which the log lines stand among the handler's own.

#include <cstdio>
#include <string>
#include <vector>

#include "support/loader_test.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::Eq;
using ::testing::ExitedWithCode;

void writeMarkedLine(int level, const char* category, const char* text, std::size_t length,
                     void* /*context*/) {
  const std::string line =
      "LOG " + std::to_string(level) + ' ' + category + ": " + std::string(text, length) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

std::string logged(const std::string& text) {
  return "LOG 1 DriverFeature: " + text + '\n';
}

// A line that is logged and then written to standard error as well.
std::string loggedAndWritten(const std::string& text) {
  return logged(text) + text + '\n';
}

const std::string kFatal = "Feature Tag fatal error\n";

class TagHandlerDeathTest : public LoaderTest {
 protected:
  // Loads in a child process, which must end by itself with status 1.
  void expectEnd(const std::string& children, const std::string& standardError) {
    void* element = host_.parse("<Features>" + children + "</Features>");
    EXPECT_EXIT(
        {
          SetLogHandler(writeMarkedLine, nullptr);
          FeatureXMLTagHandler(element);
          std::fputs("the handler came back\n", stderr);
        },
        ExitedWithCode(1), Eq(standardError));
  }
};

TEST_F(TagHandlerDeathTest, BaseInfo_NoDefaultCallbackHandler_EndsTheProcess) {
  const std::string expected =
      loggedAndWritten("FeatureXMLTagHandler() - No Default Callback Handler element");
  expectEnd("<BaseFeatureInfo/>", expected);
  // The other routine is not looked at before.
  expectEnd(R"(<BaseFeatureInfo LoadVORNCallbackHandler="NoSuchRoutine"/>)", expected);
}

TEST_F(TagHandlerDeathTest, BaseInfo_UnresolvableDefaultCallbackHandler_EndsTheProcess) {
  const std::string expected =
      loggedAndWritten("FeatureXMLTagHandler() - Null Default Callback Handler pointer");
  expectEnd(R"(<BaseFeatureInfo DefaultCallbackHandler="NoSuchRoutine"/>)", expected);
  expectEnd(R"(<BaseFeatureInfo DefaultCallbackHandler=""/>)", expected);
}

TEST_F(TagHandlerDeathTest, BaseInfo_SecondIsIncomplete_EndsTheProcess) {
  expectEnd(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                LoadVORNCallbackHandler="RecordChange"/><BaseFeatureInfo/>)",
            loggedAndWritten("FeatureXMLTagHandler() - No Default Callback Handler element"));
}

TEST_F(TagHandlerDeathTest, Child_UnknownTag_EndsTheProcessAndQuotesTheTag) {
  for (const std::string tag :
       {"feature", "FEATURE", "Features", "Featur", "featureStaticGroup", "FeatureGroup",
        "FeatureDynamicgroup", "baseFeatureInfo", "Option"}) {
    SCOPED_TRACE(tag);
    expectEnd('<' + tag + R"( FeatureType="UIOnly" Name="A"/>)",
              loggedAndWritten("FeatureXMLTagHandler() - Invalid element tag \"" + tag + "\"."));
  }
}

TEST_F(TagHandlerDeathTest, Child_UnknownTagAfterGoodOnes_EndsTheProcess) {
  expectEnd(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>
               <Feature FeatureType="UIOnly" Name="A"/><Wrong/><Feature/>)",
            "LOG 2 DriverFeature: FeatureXMLTagHandler() - No Custom Load VORN Callback Handler "
            "element\n" +
                loggedAndWritten("FeatureXMLTagHandler() - Invalid element tag \"Wrong\"."));
}

struct UnbuiltRow {
  const char* name;
  const char* xml;
  std::vector<std::string> lines;  // Without level and category.
};

const std::vector<UnbuiltRow>& unbuiltRows() {
  static const std::vector<UnbuiltRow> kRows = {
      {"feature", "<Feature/>", {"CreateFeature() - No keyword defined for feature type"}},
      {"feature with an option without a name",
       R"(<Feature FeatureType="MultiSelect" Name="A"><Option/></Feature>)",
       {"CreateFeatureOption() - No name defined for option",
        "CreateFeature() - Could not create MultiSelect feature option"}},
      {"feature without a name",
       R"(<Feature FeatureType="UIOnly"/>)",
       {"CreateFeature() - No name defined for feature"}},
      {"feature of an unknown type",
       R"(<Feature FeatureType="Static" Name="A"/>)",
       {"CreateFeature() - Invalid feature type \"Static\" for feature \"A\"."}},
      {"list without options",
       R"(<Feature FeatureType="MultiSelect" Name="A"/>)",
       {"CreateFeature() - No options for MultiSelect feature"}},
      {"static group without a name",
       R"(<FeatureStaticGroup><Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>)",
       {"CreateStaticFeatureGroup() - No name defined for feature group"}},
      {"dynamic group in a static group",
       R"(<FeatureStaticGroup Name="G"><FeatureDynamicGroup Name="D"/></FeatureStaticGroup>)",
       {"CreateStaticFeatureGroup() - Invalid node tag \"FeatureDynamicGroup\"."}},
      {"feature in a static group",
       R"(<FeatureStaticGroup Name="G"><Feature FeatureType="UIOnly"/></FeatureStaticGroup>)",
       {"CreateFeature() - No name defined for feature",
        "CreateStaticFeatureGroup() - Could not create feature for feature group"}},
      {"dynamic group without a name",
       R"(<FeatureDynamicGroup><FeatureStaticGroup Name="T"/></FeatureDynamicGroup>)",
       {"CreateDynamicFeatureGroup() - No name defined for feature group"}},
      {"dynamic group with two children",
       R"(<FeatureDynamicGroup Name="D"><FeatureStaticGroup Name="T"/><FeatureStaticGroup Name="U"/>
          </FeatureDynamicGroup>)",
       {"CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group"}},
      {"dynamic group of a feature",
       R"(<FeatureDynamicGroup Name="D"><Feature FeatureType="UIOnly" Name="A"/>
          </FeatureDynamicGroup>)",
       {"CreateDynamicFeatureGroup() - Invalid node tag \"Feature\"."}},
      {"static group",
       R"(<FeatureStaticGroup Name="G"/>)",
       {"CreateStaticFeatureGroup() - No features for feature group"}},
      {"feature in a nested static group",
       R"(<FeatureStaticGroup Name="G"><FeatureStaticGroup Name="H"><Feature Name="A"/>
          </FeatureStaticGroup></FeatureStaticGroup>)",
       {"CreateFeature() - No keyword defined for feature type",
        "CreateStaticFeatureGroup() - Could not create feature for feature group",
        "CreateStaticFeatureGroup() - Cannot create nested static feature group to feature group "
        "\"G\"."}},
      {"dynamic group",
       R"(<FeatureDynamicGroup Name="D"/>)",
       {"CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group"}},
      {"template of a dynamic group",
       R"(<FeatureDynamicGroup Name="D"><FeatureStaticGroup Name="T"/></FeatureDynamicGroup>)",
       {"CreateStaticFeatureGroup() - No features for feature group",
        "CreateDynamicFeatureGroup() - Cannot create template static feature group to feature "
        "group \"D\"."}},
  };
  return kRows;
}

TEST_F(TagHandlerDeathTest, Child_CannotBeBuilt_EndsTheProcessAfterTheBuildersLines) {
  for (const UnbuiltRow& row : unbuiltRows()) {
    SCOPED_TRACE(row.name);
    std::string expected;
    for (const std::string& line : row.lines) expected += logged(line);
    expectEnd(row.xml, expected + kFatal);
  }
}

TEST_F(TagHandlerDeathTest, Child_CannotBeBuilt_LaterChildrenAreNotReached) {
  expectEnd(R"(<Feature FeatureType="UIOnly"/><Wrong/>)",
            logged("CreateFeature() - No name defined for feature") + kFatal);
}

}  // namespace
}  // namespace driver_feature::testing
