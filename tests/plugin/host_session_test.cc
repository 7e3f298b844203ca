// A host's session with the library: through names and virtual tables, with
// no class of the library but the abstract ones.

#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/core_feature_group.h"
#include "plugin/loaded_library.h"

#include "AttributeMap.h"
#include "Log.h"

namespace {

std::vector<std::string>* events = nullptr;

void addEvent(const std::string& event) {
  if (events != nullptr) events->push_back(event);
}

void recordLine(int level, const char* category, const char* text, std::size_t length,
                void* /*context*/) {
  addEvent(std::to_string(level) + ' ' + category + ": " + std::string(text, length));
}

}  // namespace

extern "C" {

bool PluginTestUpdate() {
  addEvent("update");
  return true;
}

void PluginTestChange() {
  addEvent("change");
}

int PluginTestLoad(void* element, int mode) {
  addEvent(std::string("load ") + (element != nullptr ? "element " : "null ") +
           std::to_string(mode));
  return 1;
}

int PluginTestSort(AttributeMap& first, AttributeMap& second) {
  return first["Page"] > second["Page"] ? 1 : -1;
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kDescription = R"(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="PluginTestUpdate"
                   LoadVORNCallbackHandler="PluginTestLoad"/>
  <Feature FeatureType="MultiSelect" Name="Media" DefaultValue="Letter"
           AddCallbackRoutine="PluginTestChange" PSCommand="[%s]" PJLCommand="@%s@"
           TESKJTAttributeName="media" TESKAttributeSyntax="keyword">
    <Option Name="A4" PSCommand="a4" PJLCommand="A4" TESKCommand="iso-a4"/>
    <Option Name="Letter" PSCommand="letter" PJLCommand="LETTER" TESKCommand="na-letter"/>
  </Feature>
  <Feature FeatureType="IntEntry" Name="Copies" DefaultValue="1" PSCommand="{%d}"/>
</Features>)";

constexpr const char* kGroups = R"(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="PluginTestUpdate"
                   LoadVORNCallbackHandler="PluginTestLoad"/>
  <FeatureStaticGroup Name="Quality">
    <Feature FeatureType="IntEntry" Name="Resolution" DefaultValue="600"/>
  </FeatureStaticGroup>
  <FeatureDynamicGroup Name="Exceptions" SortFunctionName="PluginTestSort">
    <FeatureStaticGroup Name="Exception">
      <Feature FeatureType="IntEntry" Name="Page"/>
    </FeatureStaticGroup>
  </FeatureDynamicGroup>
</Features>)";

class HostSessionTest : public LoadedLibraryTest {
 protected:
  void SetUp() override {
    LoadedLibraryTest::SetUp();
    events = &events_;
    SetLogHandler(recordLine, nullptr);
  }
  ~HostSessionTest() override {
    SetLogHandler(nullptr, nullptr);
    events = nullptr;
  }

  void loadAndComplete(const char* description) {
    ASSERT_EQ(library_.load(description), 1);
    library_.function<void()>("SetFeatureCreationCompleteFlag")();
    events_.clear();
  }

  std::string serialize(int type) {
    std::string output;
    library_.set().serialize(output, type, false, "first", "second");
    return output;
  }

  std::vector<std::string> events_;
};

TEST_F(HostSessionTest, MasterList_FreshLibrary_IsEmptyAndAlwaysTheSame) {
  CoreFeatureSet* set = &library_.set();
  EXPECT_EQ(set, &library_.set());
  EXPECT_EQ(set->fetchNumberOfFeatures(), 0);
  EXPECT_EQ(set->fetchFeatureByIndex(0), nullptr);
  EXPECT_EQ(serialize(1), "");
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(HostSessionTest, FreshLibrary_TicketHandlers_HaveNothingToDo) {
  EXPECT_EQ(library_.function<int(void*)>("InstOptVORNTagHandler")(nullptr), 1);
  EXPECT_EQ(library_.function<int(void*)>("JobTicketVORNTagHandler")(nullptr), 1);
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(HostSessionTest, Load_HandlerOfTheRecord_FillsTheSet) {
  EXPECT_EQ(library_.load(kDescription), 1);
  EXPECT_EQ(library_.set().fetchNumberOfFeatures(), 2);
  EXPECT_NE(library_.set().FindFeatureInFeatureList("Media"), nullptr);
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(HostSessionTest, Change_BeforeAndAfterCompletion_CallsTheRoutinesOfThisProgram) {
  ASSERT_EQ(library_.load(kDescription), 1);
  CoreFeature& media = *library_.set().FindFeatureInFeatureList("Media");
  EXPECT_TRUE(media.setFeatureProperty(std::string("CurrentIntValue"), 0));
  EXPECT_THAT(events_, ElementsAre("update"));
  events_.clear();
  library_.function<void()>("SetFeatureCreationCompleteFlag")();
  EXPECT_TRUE(media.setFeatureProperty(std::string("CurrentIntValue"), 1));
  EXPECT_THAT(events_, ElementsAre("change", "update"));
}

TEST_F(HostSessionTest, Use_VirtualInterfaces_WorkInTheirSlots) {
  loadAndComplete(kDescription);
  CoreFeature& media = *library_.set().FindFeatureInFeatureList("Media");
  EXPECT_EQ(media.getFeatureType(), 1);
  EXPECT_EQ(media.fetchNumberOfOptions(), 2);
  EXPECT_EQ(media.fetchOptionIndexByName("Letter"), 1);
  std::string text;
  EXPECT_TRUE(media.fetchCurrentOption()->getOptionProperty("Name", text));
  EXPECT_EQ(text, "Letter");
  CoreOption* option = media.fetchOptionByName(std::string("TESKCommand"), std::string("iso-a4"));
  EXPECT_EQ(option, media.fetchOptionByIndex(0));
  // The only base of the object's class.
  auto& full = static_cast<IntermediateCoreFeature&>(media);
  EXPECT_EQ(full.getFeatureOptionCount(), 2);
  EXPECT_TRUE(full.addConstraint(5));
  EXPECT_THAT(*full.getConstraintSet(), ElementsAre(5));
  EXPECT_FALSE(full.isConstraintSetEmpty());
  EXPECT_EQ(full.fetchOptionIndexByName("PSCommand", "letter"), 1);
  EXPECT_TRUE(full.applyOptionConstraint("Letter", 7, true));
  int value = -1;
  EXPECT_TRUE(media.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 0);
  EXPECT_THAT(events_, ElementsAre("change", "update"));
}

TEST_F(HostSessionTest, Use_ValueFunctions_ReadAndWriteByName) {
  loadAndComplete(kDescription);
  std::string copies = "Copies";
  auto* set = library_.function<int(std::string&, const char*, int)>("SetFeatureIntValue");
  auto* get = library_.function<int(std::string&, const char*, int*)>("GetFeatureIntValue");
  EXPECT_EQ(set(copies, "CurrentIntValue", 3), 1);
  int value = 0;
  EXPECT_EQ(get(copies, "CurrentIntValue", &value), 1);
  EXPECT_EQ(value, 3);
  EXPECT_THAT(events_, ElementsAre("update"));
}

TEST_F(HostSessionTest, Serialize_EachType_WritesTheCurrentSettings) {
  loadAndComplete(kDescription);
  EXPECT_EQ(serialize(1), "{1}[letter]");
  EXPECT_EQ(serialize(0), "@LETTER@");
  EXPECT_THAT(serialize(2), AllOf(HasSubstr("media"), HasSubstr("keyword"), HasSubstr("na-letter"),
                                  HasSubstr("first"), HasSubstr("second")));
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(HostSessionTest, Tickets_LoadRoutineOfThisProgram_IsCalledWithItsMode) {
  loadAndComplete(kDescription);
  int element = 0;
  EXPECT_EQ(library_.function<int(void*)>("JobTicketVORNTagHandler")(&element), 1);
  EXPECT_THAT(events_, ElementsAre("load element 0", "update"));
  events_.clear();
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(library_.function<int(void*)>("InstOptVORNTagHandler")(&element), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Queue Defaults Load Error\n");
  EXPECT_THAT(events_, ElementsAre("load element 1"));
}

TEST_F(HostSessionTest, Groups_VirtualInterfaces_WorkInTheirSlots) {
  loadAndComplete(kGroups);
  auto& quality = static_cast<IntermediateStaticFeatureGroup&>(
      *library_.set().FindFeatureInFeatureList("Quality"));
  ASSERT_EQ(quality.fetchNumberOfFeaturesInGroup(), 1);
  EXPECT_EQ(quality.fetchFeatureInGroupByIndex(0),
            library_.set().FindFeatureInFeatureList("Resolution"));

  auto& exceptions = static_cast<IntermediateDynamicFeatureGroup&>(
      *library_.set().FindFeatureInFeatureList("Exceptions"));
  AttributeMap record;
  for (const std::string page : {"7", "3"}) {
    record["Page"] = page;
    EXPECT_TRUE(exceptions.addStaticGroupToDynamicGroup(record));
  }
  EXPECT_EQ(exceptions.fetchNumberOfDynamicEntries(), 2);
  EXPECT_TRUE(exceptions.detectDuplicateRecord(record));
  CoreFeature* page = exceptions.getDynamicEntryByIndex(0)->fetchFeatureInGroupByIndex(0);
  std::string text;
  EXPECT_TRUE(page->getFeatureProperty(std::string("ValueString"), text));
  EXPECT_EQ(text, "3");
  EXPECT_TRUE(exceptions.addConstraint(1));
  EXPECT_THAT(*exceptions.fetchSelectedEntries(), ElementsAre(1));
  EXPECT_THAT(events_, ElementsAre("update", "update"));
}

TEST_F(HostSessionTest, ExportedOperations_CalledByName_ActOnTheSet) {
  loadAndComplete(kDescription);
  auto* create = library_.function<void*(CoreFeatureSet*, const std::string&, const std::string&,
                                         int)>(
      "_ZN16DriverFeatureSet22CreateOptionForFeatureERKNSt7__cxx1112basic_stringIcSt11char_traits"
      "IcESaIcEEES7_i");
  EXPECT_EQ(create(&library_.set(), "Media", "A3", 0), nullptr);
  auto* dump =
      library_.function<void(CoreFeatureSet*)>("_ZN16DriverFeatureSet21dumpFeatureListValuesEv");
  ::testing::internal::CaptureStdout();
  dump(&library_.set());
  EXPECT_THAT(::testing::internal::GetCapturedStdout(),
              HasSubstr("\n\"Copies\" (IntEntry/enabled/visible)Int:1 (not in a group)"));
}

TEST_F(HostSessionTest, UpdateCallback_ExportedSetter_ReplacesTheDescriptions) {
  loadAndComplete(kDescription);
  auto* setCallback =
      library_.function<void(bool (*)())>("_Z30setDriverFeatureUpdateCallbackPFbvE");
  setCallback([] {
    addEvent("the host's own update");
    return false;
  });
  library_.set().restoreDefaultFeatureValues();
  EXPECT_THAT(events_, ElementsAre("the host's own update"));
}

}  // namespace
}  // namespace driver_feature::testing
