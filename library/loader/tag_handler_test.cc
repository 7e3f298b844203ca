// The walk over the description's children and the host's routines that it
// registers. What ends the process is in tag_handler_exit_test.cc.

#include <dlfcn.h>

#include <cstring>
#include <string>

#include "frame/state.h"
#include "model/notification.h"
#include "support/loader_test.h"
#include "support/recording_parser.h"

#include "Log.h"

namespace {

// The arguments of the latest conversions, noted while a test asks for it.
struct Conversion {
  bool noted = false;
  bool hasMasterSet = false;
  int calls = 0;
  std::string input;
  int outputLength = 0;
};
Conversion conversion;

}  // namespace

// Stands in front of libxml2's routine and hands the call on to it.
extern "C" __attribute__((visibility("default"))) int isolat1ToUTF8(unsigned char* out, int* outlen,
                                                                    const unsigned char* in,
                                                                    int* inlen) {
  using Convert = int (*)(unsigned char*, int*, const unsigned char*, int*);
  static const auto kReal = reinterpret_cast<Convert>(dlsym(RTLD_NEXT, "isolat1ToUTF8"));
  if (conversion.noted) {
    ++conversion.calls;
    conversion.hasMasterSet = driver_feature::libraryState().masterSet != nullptr;
    conversion.input.assign(reinterpret_cast<const char*>(in), static_cast<std::size_t>(*inlen));
    conversion.outputLength = *outlen;
    driver_feature::testing::RecordingHost::record("isolat1ToUTF8");
    // The whole of the stated length can be written to.
    std::memset(out, 0, static_cast<std::size_t>(*outlen));
  }
  return kReal(out, outlen, in, inlen);
}

extern "C" int TagHandlerTestLoad(void* /*element*/, int mode) {
  driver_feature::testing::RecordingHost::record("load " + std::to_string(mode));
  return 0;
}
extern "C" int TagHandlerTestOtherLoad(void* /*element*/, int mode) {
  driver_feature::testing::RecordingHost::record("other load " + std::to_string(mode));
  return 0;
}
extern "C" bool TagHandlerTestThrow() {
  throw 1;
}

extern "C" bool TagHandlerTestOtherUpdate() {
  driver_feature::testing::RecordingHost::record("other update callback");
  return true;
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kNoLoadLine =
    logLine(2, "FeatureXMLTagHandler() - No Custom Load VORN Callback Handler element");
const std::string kNullLoadLine =
    logLine(1, "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer");

using TagHandlerTest = LoaderTest;

TEST_F(TagHandlerTest, Load_NoChildren_ReturnsOneAndMakesAnEmptySet) {
  EXPECT_EQ(load(""), 1);
  ASSERT_NE(libraryState().masterSet, nullptr);
  EXPECT_THAT(featureNames(), IsEmpty());
  EXPECT_THAT(staticGroupNames(), IsEmpty());
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(TagHandlerTest, Load_SetMadeByTheHost_IsTheOneThatIsFilled) {
  void* set = GetMasterFeatureList();
  EXPECT_EQ(load(R"(<Feature FeatureType="UIOnly" Name="A"/>)"), 1);
  EXPECT_EQ(GetMasterFeatureList(), set);
  EXPECT_THAT(featureNames(), ElementsAre("A"));
}

TEST_F(TagHandlerTest, Load_AttributesOfTheDescription_AreNotRead) {
  void* element = host_.parse(R"(<Anything Name="x" DefaultCallbackHandler="NoSuchRoutine"/>)");
  EXPECT_EQ(FeatureXMLTagHandler(element), 1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(TagHandlerTest, Load_AnyDescription_ConvertsTheLogCategoryFirst) {
  conversion = {};
  conversion.noted = true;
  const RecordingParser parser;
  EXPECT_EQ(load(""), 1);
  EXPECT_THAT(takeEvents(), ElementsAre("isolat1ToUTF8", "firstChild(Features)"));
  EXPECT_EQ(conversion.calls, 1);
  EXPECT_TRUE(conversion.hasMasterSet);
  EXPECT_EQ(conversion.input, "DriverFeature");
  EXPECT_EQ(conversion.outputLength, 27);
  conversion = {};
}

TEST_F(TagHandlerTest, Load_EachKindOfChild_AsksTheParserInTheOrderOfTheWalk) {
  void* element = host_.parse(R"(<Features>
      <BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                       LoadVORNCallbackHandler="TagHandlerTestLoad"/>
      <Feature FeatureType="UIOnly" Name="A" Sensitivity="true"/>
      <FeatureStaticGroup Name="G"><Feature FeatureType="UIOnly" Name="B"/></FeatureStaticGroup>
      <FeatureDynamicGroup Name="D"><FeatureStaticGroup Name="T">
        <Feature FeatureType="UIOnly" Name="C"/></FeatureStaticGroup></FeatureDynamicGroup>
      </Features>)");
  const RecordingParser parser;
  EXPECT_EQ(FeatureXMLTagHandler(element), 1);
  EXPECT_THAT(takeEvents(),
              ElementsAre("firstChild(Features)", "tagName(BaseFeatureInfo)",
                          "attributes(BaseFeatureInfo, 0)", "nextSibling(BaseFeatureInfo)",
                          "tagName(Feature A)", "attributes(Feature A, 0)", kUpdateCalled,
                          "nextSibling(Feature A)", "tagName(FeatureStaticGroup G)",
                          "attributes(FeatureStaticGroup G, 0)", "childCount(FeatureStaticGroup G)",
                          "firstChild(FeatureStaticGroup G)", "tagName(Feature B)",
                          "attributes(Feature B, 0)", "nextSibling(Feature B)",
                          "nextSibling(FeatureStaticGroup G)", "tagName(FeatureDynamicGroup D)",
                          "attributes(FeatureDynamicGroup D, 0)",
                          "childCount(FeatureDynamicGroup D)", "firstChild(FeatureDynamicGroup D)",
                          "tagName(FeatureStaticGroup T)", "attributes(FeatureStaticGroup T, 0)",
                          "childCount(FeatureStaticGroup T)", "firstChild(FeatureStaticGroup T)",
                          "tagName(Feature C)", "attributes(Feature C, 0)",
                          "nextSibling(Feature C)", "nextSibling(FeatureDynamicGroup D)"));
}

TEST_F(TagHandlerTest, Load_AnyOrderOfChildren_BuildsThemAll) {
  EXPECT_EQ(load(R"(<FeatureDynamicGroup Name="D"><FeatureStaticGroup Name="T">
                      <Feature FeatureType="UIOnly" Name="C"/></FeatureStaticGroup>
                    </FeatureDynamicGroup>
                    <FeatureStaticGroup Name="G"><Feature FeatureType="UIOnly" Name="B"/>
                    </FeatureStaticGroup>
                    <Feature FeatureType="UIOnly" Name="A"/>
                    <BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>)"),
            1);
  EXPECT_THAT(featureNames(), ElementsAre("A", "B", "C"));
  EXPECT_THAT(staticGroupNames(), ElementsAre("T", "G"));
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("D")->getFeatureType(), 8);
  EXPECT_THAT(takeEvents(), ElementsAre(kNoLoadLine));
}

TEST_F(TagHandlerTest, Load_AttributesOfOneChild_NeverReachTheNext) {
  load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                           LoadVORNCallbackHandler="TagHandlerTestLoad"/>
          <Feature FeatureType="TextEntry" Name="A" PSCommand="ps" CLOKey="key" Encrypted="true"
                   MaxTextLength="7" DefaultValue="text"/>
          <Feature FeatureType="TextEntry" Name="B"/>
          <BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>)");
  // The second "BaseFeatureInfo" has not kept the first one's routine either.
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled, kNoLoadLine));
  CoreFeature& feature = *masterSet().FindFeatureInFeatureList("B");
  EXPECT_EQ(readText(feature, "PSCommand"), "");
  EXPECT_EQ(readText(feature, "CLOKey"), "");
  EXPECT_FALSE(read<bool>(feature, "Encrypted"));
  EXPECT_EQ(read<int>(feature, "MaxTextLength"), 0);
  EXPECT_EQ(readText(feature, "CurrentTextValue"), "");
}

TEST_F(TagHandlerTest, BaseInfo_BothRoutines_AreRegisteredWithoutLogging) {
  setDriverFeatureUpdateCallback(nullptr);
  EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                     LoadVORNCallbackHandler="TagHandlerTestLoad"/>)"),
            1);
  EXPECT_EQ(notification().updateCallback, RecordUpdate);
  EXPECT_THAT(takeEvents(), IsEmpty());
  InstOptVORNTagHandler(nullptr);
  JobTicketVORNTagHandler(nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre("load 1", "load 0", kUpdateCalled));
}

TEST_F(TagHandlerTest, BaseInfo_NoLoadRoutine_LogsAndTheTicketHandlersDoNothing) {
  setDriverFeatureUpdateCallback(nullptr);
  EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>)"), 1);
  EXPECT_EQ(notification().updateCallback, RecordUpdate);
  EXPECT_EQ(libraryState().loadCallback, nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre(kNoLoadLine));
  EXPECT_EQ(InstOptVORNTagHandler(nullptr), 1);
  EXPECT_EQ(JobTicketVORNTagHandler(nullptr), 1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(TagHandlerTest, BaseInfo_UnresolvableLoadRoutine_LogsAndGoesOn) {
  for (const std::string name : {"NoSuchRoutine", ""}) {
    SCOPED_TRACE(name);
    libraryState().loadCallback = TagHandlerTestLoad;
    EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                       LoadVORNCallbackHandler=")" +
                   name + R"("/><Feature FeatureType="UIOnly" Name="A"/>)"),
              1);
    EXPECT_THAT(takeEvents(), ElementsAre(kNullLoadLine));
    // What was found, nothing, has replaced the earlier routine.
    EXPECT_EQ(libraryState().loadCallback, nullptr);
    EXPECT_THAT(featureNames(), ElementsAre("A"));
  }
}

TEST_F(TagHandlerTest, BaseInfo_Twice_TheLaterRoutinesReplaceTheEarlier) {
  EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                     LoadVORNCallbackHandler="TagHandlerTestLoad"/>
                    <Feature FeatureType="UIOnly" Name="A" Visibility="true"/>
                    <BaseFeatureInfo DefaultCallbackHandler="TagHandlerTestOtherUpdate"
                                     LoadVORNCallbackHandler="TagHandlerTestOtherLoad"/>
                    <Feature FeatureType="UIOnly" Name="B" Visibility="true"/>)"),
            1);
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled, "other update callback"));
  JobTicketVORNTagHandler(nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre("other load 0", "other update callback"));
}

TEST_F(TagHandlerTest, BaseInfo_SecondWithoutLoadRoutine_TheEarlierStays) {
  EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                     LoadVORNCallbackHandler="TagHandlerTestLoad"/>
                    <BaseFeatureInfo DefaultCallbackHandler="TagHandlerTestOtherUpdate"/>)"),
            1);
  EXPECT_THAT(takeEvents(), ElementsAre(kNoLoadLine));
  JobTicketVORNTagHandler(nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre("load 0", "other update callback"));
}

TEST_F(TagHandlerTest, BaseInfo_FixedTexts_LeaveTheMessageBufferAlone) {
  LogMessageBuffer = "untouched";
  load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>)");
  load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                           LoadVORNCallbackHandler="NoSuchRoutine"/>)");
  EXPECT_THAT(takeEvents(), ElementsAre(kNoLoadLine, kNullLoadLine));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(TagHandlerTest, Load_ARoutineThrows_IsTakenBackWhole) {
  ASSERT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"
                                     LoadVORNCallbackHandler="TagHandlerTestLoad"/>
                    <Feature FeatureType="UIOnly" Name="A"/>)"),
            1);
  EXPECT_EQ(load(R"(<BaseFeatureInfo DefaultCallbackHandler="TagHandlerTestThrow"
                                     LoadVORNCallbackHandler="TagHandlerTestOtherLoad"/>
                    <FeatureStaticGroup Name="G"><Feature FeatureType="UIOnly" Name="B"/>
                    </FeatureStaticGroup>
                    <Feature FeatureType="UIOnly" Name="C" Visibility="true"/>)"),
            0);
  EXPECT_THAT(featureNames(), ElementsAre("A"));
  EXPECT_THAT(staticGroupNames(), IsEmpty());
  EXPECT_EQ(notification().updateCallback, RecordUpdate);
  EXPECT_EQ(libraryState().loadCallback, TagHandlerTestLoad);
}

}  // namespace
}  // namespace driver_feature::testing
