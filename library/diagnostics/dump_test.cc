#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DumpTest : public ::testing::Test {
 protected:
  // What the dump writes to standard output.
  static std::string dump(DriverFeatureSet& set = masterSet()) {
    ::testing::internal::CaptureStdout();
    set.dumpFeatureListValues();
    return ::testing::internal::GetCapturedStdout();
  }

  static void setFlag(CoreFeature& feature, const char* property, bool value) {
    feature.setFeatureProperty(std::string(property), value);
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(DumpTest, EmptySet_GivesThreeLineEnds) {
  EXPECT_EQ(dump(), "\n\n\n");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DumpTest, UIOnlyFeature_HasItsHeadAlone) {
  model_.feature("Title", 0, {{"PJLCommand", "never shown"}});
  EXPECT_EQ(dump(), "\n\"Title\" (UIOnly/enabled/visible)\n\n\n");
}

TEST_F(DumpTest, TextFeature_HasHeadValueAndGroupState) {
  DriverFeature& media = model_.feature("Media", 3);
  media.setFeatureProperty(std::string("CurrentTextValue"), std::string("Plain"));
  EXPECT_EQ(dump(), "\n\"Media\" (TextEntry/enabled/visible)Text:Plain (not in a group)\n\n\n");
}

TEST_F(DumpTest, States_AreShownInWords) {
  DriverFeature& a = model_.feature("A", 2);
  DriverFeature& b = model_.feature("B", 2);
  setFlag(a, "Sensitivity", false);
  setFlag(b, "Visibility", false);
  setFlag(b, "FeatureInGroup", true);
  EXPECT_EQ(dump(),
            "\n\"A\" (IntEntry/disabled/visible)Int:0 (not in a group)"
            "\n\"B\" (IntEntry/enabled/invisible)Int:0 (in a group)\n\n\n");
}

struct FloatRow {
  float value;
  const char* text;
};

TEST_F(DumpTest, FloatFeature_HasSixSignificantDigits) {
  DriverFeature& gamma = model_.feature("Gamma", 4);
  constexpr FloatRow kRows[] = {{2.5F, "2.5"},
                                {1e-7F, "1e-07"},
                                {0.1F, "0.1"},
                                {1234567.0F, "1.23457e+06"},
                                {100000.0F, "100000"},
                                {-0.5F, "-0.5"},
                                {3.14159274F, "3.14159"},
                                {0.0F, "0"}};
  for (const FloatRow& row : kRows) {
    gamma.setFeatureProperty(std::string("CurrentFloatValue"), row.value);
    EXPECT_EQ(dump(), std::string("\n\"Gamma\" (FloatEntry/enabled/visible)Float:") + row.text +
                          " (not in a group)\n\n\n");
  }
}

TEST_F(DumpTest, OtherTypes_ShowWhatTheirValueTypeSays) {
  DriverFeature& list = model_.feature("List", 5);
  list.setFeatureProperty(std::string("CurrentIntValue"), -7);
  EXPECT_EQ(dump(), "\n\"List\" (MVCList/enabled/visible)Int:-7 (not in a group)\n\n\n");
  list.setFeatureProperty(std::string("FeatureValueType"), 0);
  EXPECT_EQ(dump(), "\n\"List\" (MVCList/enabled/visible)UIOnly: (not in a group)\n\n\n");
}

TEST_F(DumpTest, GroupTypesOnAFeature_HaveNoDisplayName) {
  DriverFeature& feature = model_.feature("F", 2);
  for (const int type : {6, 7, 8}) {
    feature.setFeatureProperty(std::string("FeatureType"), type);
    EXPECT_EQ(dump(), "\n\"F\" (/enabled/visible)Int:0 (not in a group)\n\n\n");
  }
}

TEST_F(DumpTest, Commands_AreShownInTheirOrderWhenNotEmpty) {
  model_.feature("A", 2,
                 {{"AddVORNCallbackRoutine", "vorn()"},
                  {"AddPSCallbackRoutine", "ps()"},
                  {"AddPJLCallbackRoutine", "pjl()"},
                  {"TESKOAAttributeName", "oa"},
                  {"TESKJTAttributeName", "jt"},
                  {"PSCommand", "ps %d"},
                  {"PJLCommand", "pjl %d"},
                  {"InstOptAttributeName", "never shown"}});
  model_.feature("B", 2, {{"PSCommand", "ps"}});
  EXPECT_EQ(dump(),
            "\n\"A\" (IntEntry/enabled/visible)Int:0 (not in a group)"
            "\nPJL Command: pjl %d\nPS Command: ps %d\nTESK JT Command: jt\nTESK OA Command: oa"
            "\nPJL Callback: pjl()\nPS Callback: ps()\nVORN Callback: vorn()"
            "\n\"B\" (IntEntry/enabled/visible)Int:0 (not in a group)\nPS Command: ps\n\n\n");
}

TEST_F(DumpTest, Options_AreShownWithEveryCommand) {
  DriverFeature& size = model_.feature("Size", 1, {{"PSCommand", "%s"}});
  model_.option(size, "A4", {{"PJLCommand", "pjl"}, {"PSCommand", "ps"}, {"TESKCommand", "tesk"}});
  model_.option(size, "Letter").setOptionProperty(std::string("Sensitivity"), false);
  size.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_EQ(dump(),
            "\n\"Size\" (MultiSelect/enabled/visible)Int:1 (not in a group)\nPS Command: %s"
            "\n\t\"A4\" (enabled)\n\t\t\"PJL Command\": \"pjl\"\n\t\t\"PS Command\": \"ps\""
            "\n\t\t\"TESK Command\": \"tesk\""
            "\n\t\"Letter\" (disabled)\n\t\t\"PJL Command\": \"\"\n\t\t\"PS Command\": \"\""
            "\n\t\t\"TESK Command\": \"\"\n\n\n");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DumpTest, MissingOption_IsShownAsAnErrorAndPassedOver) {
  class Holed : public DriverFeature {
   public:
    using DriverFeature::DriverFeature;
    CoreOption* fetchOptionByIndex(int index) override {
      return index == 0 ? nullptr : DriverFeature::fetchOptionByIndex(index);
    }
  };
  Holed feature(std::string("F"));
  model_.option(feature, "A");
  model_.option(feature, "B");
  masterSet().addFeatureToFeatureList("F", &feature);
  EXPECT_EQ(dump(),
            "\n\"F\" (MultiSelect/enabled/visible)Int:0 (not in a group)"
            "\n\nError: NULL option pointer\n\n"
            "\n\t\"B\" (enabled)\n\t\t\"PJL Command\": \"\"\n\t\t\"PS Command\": \"\""
            "\n\t\t\"TESK Command\": \"\"\n\n\n");
}

TEST_F(DumpTest, MissingFeature_IsPassedOver) {
  class HoledSet : public DriverFeatureSet {
   public:
    DriverFeature* fetchFeatureByIndex(int index) override {
      return index == 0 ? nullptr : DriverFeatureSet::fetchFeatureByIndex(index);
    }
  };
  HoledSet set;
  set.addFeatureToFeatureList("A", &model_.feature("A", 0));
  set.addFeatureToFeatureList("B", &model_.feature("B", 0));
  EXPECT_EQ(dump(set), "\n\"B\" (UIOnly/enabled/visible)\n\n\n");
}

TEST_F(DumpTest, StaticGroups_AreShownInListOrderWithTheirMembers) {
  DriverFeature& a = model_.feature("A", 0);
  DriverFeatureStaticGroup& inner = model_.group("Z inner", {}, {&a});
  model_.group("Outer",
               {{"AddVORNCallbackRoutine", "vorn()"},
                {"AddPSCallbackRoutine", "ps()"},
                {"AddPJLCallbackRoutine", "pjl()"},
                {"TESKOAAttributeName", "oa"},
                {"TESKJTAttributeName", "jt"},
                {"PSCommand", "ps %s"},
                {"PJLCommand", "pjl %s"}},
               {&inner, &a});
  model_.group("Shape", {}).setFeatureProperty(std::string("FeatureType"), 7);
  EXPECT_EQ(dump(),
            "\n\"A\" (UIOnly/enabled/visible)\n"
            "\nStatic Feature Group:Z inner:Static Group Contains 1 Features\n\tA"
            "\nStatic Feature Group:Outer:Static Group Contains 2 Features"
            "\nPJL Command: pjl %s\nPS Command: ps %s\nTESK JT Command: jt\nTESK OA Command: oa"
            "\nPJL Callback: pjl()\nPS Callback: ps()\nVORN Callback: vorn()\n\tZ inner\n\tA"
            "\nStatic Feature Group:Shape:Dynamic Group Template Contains 0 Features\n\n");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DumpTest, StaticGroup_IsAskedForTheMembersThatItHas) {
  class Asked : public DriverFeatureStaticGroup {
   public:
    CoreFeature* fetchFeatureInGroupByIndex(unsigned index) override {
      indices.push_back(index);
      return DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(index);
    }
    std::vector<unsigned> indices;
  };
  Asked group;
  DriverFeature a(std::string("A"));
  DriverFeature b(std::string("B"));
  group.addFeatureToGroup(&a);
  group.addFeatureToGroup(&b);
  masterSet().addStaticGroupToFeatureList(&group);
  dump();
  EXPECT_THAT(group.indices, ElementsAre(0, 1));
}

TEST_F(DumpTest, MissingMember_IsPassedOver) {
  class Holed : public DriverFeatureStaticGroup {
   public:
    CoreFeature* fetchFeatureInGroupByIndex(unsigned index) override {
      return index == 0 ? nullptr : DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(index);
    }
  };
  Holed group;
  DriverFeature a(std::string("A"));
  DriverFeature b(std::string("B"));
  group.addFeatureToGroup(&a);
  group.addFeatureToGroup(&b);
  masterSet().addStaticGroupToFeatureList(&group);
  EXPECT_EQ(dump(), "\n\nStatic Feature Group::Static Group Contains 2 Features\n\tB\n\n");
}

TEST_F(DumpTest, DynamicGroup_ShowsItsRecordsAndTheLastFeaturesState) {
  DriverFeature& a = model_.feature("A", 0);
  DriverFeature& b = model_.feature("B", 0);
  setFlag(a, "Sensitivity", true);
  setFlag(b, "Sensitivity", false);
  setFlag(b, "Visibility", false);
  DriverFeatureStaticGroup shape;
  DriverFeatureDynamicGroup& pages =
      model_.dynamicGroup("Pages", {{"PJLCommand", "cannot be read back"},
                                    {"PSCommand", "cannot be read back"},
                                    {"TESKJTAttributeName", "jt"},
                                    {"TESKOAAttributeName", "oa"},
                                    {"AddPJLCallbackRoutine", "not shown"},
                                    {"AddPSCallbackRoutine", "not shown"}});
  pages.addDefaultStaticGroupTemplate(&shape);
  AttributeMap empty;
  pages.addStaticGroupToDynamicGroup(empty);
  pages.addStaticGroupToDynamicGroup(empty);
  model_.dynamicGroup("Other");
  EXPECT_EQ(dump(),
            "\n\"A\" (UIOnly/enabled/visible)\n\"B\" (UIOnly/disabled/invisible)\n\n"
            "Dynamic Feature Group:Pages:2(disabled, invisible)\n"
            "\nTESK JT Command: jt\nTESK OA Command: oa"
            "Dynamic Feature Group:Other:0(disabled, invisible)\n\n");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DumpTest, DynamicGroupWithoutAnyFeature_ShowsEmptyWords) {
  model_.dynamicGroup("Pages");
  EXPECT_EQ(dump(), "\n\nDynamic Feature Group:Pages:0(, )\n\n");
}

TEST_F(DumpTest, OptionsState_IsNotTakenForTheLastFeatures) {
  DriverFeature& size = model_.feature("Size", 1);
  model_.option(size, "A4").setOptionProperty(std::string("Sensitivity"), false);
  model_.dynamicGroup("Pages");
  EXPECT_THAT(dump(), ::testing::EndsWith("Dynamic Feature Group:Pages:0(enabled, visible)\n\n"));
}

// A feature and a group of the host that add others when they are read.
class GrowingFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  using DriverFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, bool* value) override {
    for (; added < 100; ++added) {
      masterSet().addFeatureToFeatureList("b" + std::to_string(added), &other);
      masterSet().addStaticGroupToFeatureList(&group);
      masterSet().addDynamicGroupToFeatureList(&dynamicGroup);
    }
    return DriverFeature::getFeatureProperty(name, value);
  }
  int added = 0;
  DriverFeature other{std::string("other")};
  DriverFeatureStaticGroup group{std::string("static")};
  DriverFeatureDynamicGroup dynamicGroup{std::string("dynamic")};
};

TEST_F(DumpTest, Feature_AddsOthers_TheyArePrinted) {
  GrowingFeature feature(std::string("a"));
  feature.setFeatureProperty(std::string("FeatureType"), 0);
  masterSet().addFeatureToFeatureList("a", &feature);
  const std::string text = dump();
  const auto countOf = [&text](const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
  };
  EXPECT_EQ(countOf("\n\"other\" ("), 100);
  EXPECT_EQ(countOf("\nStatic Feature Group:static:"), 100);
  EXPECT_EQ(countOf("Dynamic Feature Group:dynamic:"), 100);
}

}  // namespace
}  // namespace driver_feature::testing
