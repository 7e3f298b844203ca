// The lines in the tables of slots are those that the library logs. Objects
// are named F, properties P and values V, as they are in the tables.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"
#include "model/core_feature_group.h"
#include "plugin/loaded_library.h"

#include "AttributeMap.h"
#include "Log.h"

extern "C" bool HostInterfaceLinesUpdate() {
  return true;
}

namespace driver_feature::testing {
namespace {

using ::testing::HasSubstr;

constexpr const char* kDescription = R"(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="HostInterfaceLinesUpdate"/>
  <Feature FeatureType="MultiSelect" Name="Choice"><Option Name="F"/></Feature>
  <Feature FeatureType="UIOnly" Name="Plain"/>
  <FeatureStaticGroup Name="Group"><Feature FeatureType="IntEntry" Name="A"/></FeatureStaticGroup>
  <FeatureDynamicGroup Name="List" SortFunctionName="V">
    <FeatureStaticGroup Name="Record"><Feature FeatureType="IntEntry" Name="Page"/></FeatureStaticGroup>
  </FeatureDynamicGroup>
</Features>)";

struct Line {
  int level;
  std::string text;
};
std::vector<Line> lines;

void keepLine(int level, const char* /*category*/, const char* text, std::size_t length,
              void* /*context*/) {
  lines.push_back({level, std::string(text, length)});
}

class HostInterfaceLinesTest : public LoadedLibraryTest {
 protected:
  void SetUp() override {
    LoadedLibraryTest::SetUp();
    SetLogHandler(keepLine, nullptr);
    ASSERT_EQ(library_.load(kDescription), 1);
  }
  ~HostInterfaceLinesTest() override { SetLogHandler(nullptr, nullptr); }

  // The object of that name, which is F from then on.
  template <class Interface>
  Interface& named(const std::string& name) {
    auto& object = dynamic_cast<Interface&>(*library_.set().FindFeatureInFeatureList(name));
    object.setFeatureProperty(std::string("Name"), std::string("F"));
    return object;
  }

  // What the call logs, in one line, is in the row of the slot, with its level.
  static void expectLine(const std::string& title, std::size_t slot,
                         const std::function<void()>& call) {
    SCOPED_TRACE(title + ", slot " + std::to_string(slot));
    const auto table = firstTableOf(sectionOf(readPage("host-interface-slots.md"), title));
    ASSERT_LT(slot, table.size());
    lines.clear();
    call();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(table[slot].at(3), HasSubstr('`' + lines[0].text + '`'));
    EXPECT_THAT(table[slot].at(3), HasSubstr(std::to_string(lines[0].level) + ": `"));
  }

  std::string text_;
  int number_ = 0;
  float fraction_ = 0;
  bool flag_ = false;
  const std::string p_ = "P";
  const std::string v_ = "V";
};

TEST_F(HostInterfaceLinesTest, Option_Refusals_AsInTheTable) {
  CoreOption& option = *named<CoreFeature>("Choice").fetchOptionByIndex(0);
  expectLine("Option", 0, [&] { option.getOptionProperty(p_, text_); });
  expectLine("Option", 1, [&] { option.getOptionProperty(p_, &flag_); });
  expectLine("Option", 2, [&] { option.setOptionProperty(p_, v_); });
  expectLine("Option", 3, [&] { option.setOptionProperty(p_, true); });
}

TEST_F(HostInterfaceLinesTest, Feature_UnknownProperties_AsInTheTable) {
  auto& feature = named<IntermediateCoreFeature>("Plain");
  expectLine("Feature", 4, [&] { feature.getFeatureProperty(p_, text_); });
  expectLine("Feature", 4, [&] { feature.getFeatureProperty("ValueString", text_); });
  expectLine("Feature", 5, [&] { feature.getFeatureProperty(p_, &number_); });
  expectLine("Feature", 6, [&] { feature.getFeatureProperty(p_, &flag_); });
  expectLine("Feature", 7, [&] { feature.getFeatureProperty(p_, &fraction_); });
  expectLine("Feature", 17, [&] { feature.setFeatureProperty(p_, v_); });
  expectLine("Feature", 17, [&] { feature.setFeatureProperty("AddCallbackRoutine", v_); });
  expectLine("Feature", 18, [&] { feature.setFeatureProperty(p_, 1); });
  expectLine("Feature", 19, [&] { feature.setFeatureProperty(p_, 1.0F); });
  expectLine("Feature", 20, [&] { feature.setFeatureProperty(p_, true); });
}

TEST_F(HostInterfaceLinesTest, Feature_WithoutOptions_AsInTheTable) {
  auto& feature = named<IntermediateCoreFeature>("Plain");
  expectLine("Feature", 9, [&] { feature.fetchNumberOfOptions(); });
  expectLine("Feature", 10, [&] { feature.fetchOptionIndexByName(v_); });
  expectLine("Feature", 11, [&] { feature.fetchCurrentOption(); });
  expectLine("Feature", 12, [&] { feature.fetchOptionByName("Name", v_); });
  expectLine("Feature", 14, [&] { feature.fetchOptionByIndex(0); });
  expectLine("Feature", 15, [&] { feature.getFeatureOptionCount(); });
}

TEST_F(HostInterfaceLinesTest, Feature_OptionNotThere_AsInTheTable) {
  auto& feature = named<IntermediateCoreFeature>("Choice");
  expectLine("Feature", 13, [&] { feature.fetchOptionByName(v_); });
  expectLine("Feature", 14, [&] { feature.fetchOptionByIndex(1); });
  expectLine("Feature", 16, [&] { feature.applyOptionConstraint("F", 1, false); });
}

TEST_F(HostInterfaceLinesTest, StaticGroup_Refusals_AsInTheTable) {
  auto& group = named<IntermediateStaticFeatureGroup>("Group");
  expectLine("Static group", 1, [&] { group.setFeatureProperty(p_, 1); });
  expectLine("Static group", 2, [&] { group.setFeatureProperty(p_, 1.0F); });
  expectLine("Static group", 3, [&] { group.setFeatureProperty(p_, true); });
  expectLine("Static group", 5, [&] { group.getFeatureProperty(p_, &number_); });
  expectLine("Static group", 6, [&] { group.getFeatureProperty(p_, &flag_); });
  expectLine("Static group", 7, [&] { group.getFeatureProperty(p_, &fraction_); });
}

TEST_F(HostInterfaceLinesTest, DynamicGroup_Refusals_AsInTheTable) {
  auto& group = named<IntermediateDynamicFeatureGroup>("List");
  expectLine("Dynamic group", 5, [&] { group.getFeatureProperty(p_, &number_); });
  expectLine("Dynamic group", 6, [&] { group.getFeatureProperty(p_, &flag_); });
  expectLine("Dynamic group", 7, [&] { group.getFeatureProperty(p_, &fraction_); });
  expectLine("Dynamic group", 22, [&] { group.setFeatureProperty(p_, 1); });
  expectLine("Dynamic group", 23, [&] { group.setFeatureProperty(p_, 1.0F); });
  expectLine("Dynamic group", 24, [&] { group.setFeatureProperty(p_, true); });
}

TEST_F(HostInterfaceLinesTest, DynamicGroup_Records_AsInTheTable) {
  auto& group = named<IntermediateDynamicFeatureGroup>("List");
  library_.set().FindFeatureInFeatureList("Page")->setFeatureProperty("Name", v_);
  AttributeMap values;
  expectLine("Dynamic group", 29, [&] { group.addStaticGroupToDynamicGroup(values); });
  values["other"] = "1";
  expectLine("Dynamic group", 29, [&] { group.addStaticGroupToDynamicGroup(values); });
  values.clear();
  values["V"] = "1";
  expectLine("Dynamic group", 29, [&] { group.addStaticGroupToDynamicGroup(values); });
}

TEST_F(HostInterfaceLinesTest, Set_NothingFound_AsInTheTable) {
  CoreFeatureSet& set = library_.set();
  expectLine("Set", 3, [&] { set.FindFeatureInFeatureList(v_); });
  expectLine("Set", 4, [&] { set.FindFeatureInFeatureList("Name", v_); });
  expectLine("Set", 6, [&] { set.serialize(text_, 3, false, nullptr, nullptr); });
}

}  // namespace
}  // namespace driver_feature::testing
