// Features, options and members of the host's own in a set that is written: they
// are asked for each output, and may change what is being written.

#include "output/host_in_output_test.h"
#include "support/address_checks.h"
#include "support/untyped_feature.h"

namespace driver_feature::testing {
namespace {

// Objects of a host's own return what they like, so they are asked for each
// output.

class CountingOption : public DriverFeatureOption {
 public:
  bool getOptionProperty(const std::string& /*name*/, std::string& value) override {
    value = std::to_string(++reads);
    return true;
  }
  int reads = 0;
};

TEST_F(HostInOutputTest, OptionOfAHost_IsAskedForEachOutput) {
  CountingOption option;
  DriverFeature& list = model_.feature("d", 1, {{"PSCommand", "option %s;"}});
  list.addOptionToFeature(&option);
  const int before = option.reads;
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(write(), "<1st>[0]()option " + std::to_string(before + i) + ";");
  }
}

TEST_F(HostInOutputTest, MemberAndOptionWithoutTypeInformation_AreWritten) {
#if defined(ADDRESSES_ARE_CHECKED)
  GTEST_SKIP() << "the checks of virtual calls ask for the type of each object";
#endif
  model_.group("group", {{"PSCommand", "{%s}"}}, {&untypedFeature()});
  EXPECT_EQ(write(), "<1st>[0](){untyped option;}");
}

// Writes nothing into the text that it is given.
class WordlessOption : public DriverFeatureOption {
 public:
  bool getOptionProperty(const std::string& /*name*/, std::string& /*value*/) override {
    return true;
  }
};

TEST_F(HostInOutputTest, OptionOfAHostGivesNoText_NoOtherTextIsWrittenForIt) {
  CountingOption counting;
  WordlessOption wordless;
  DriverFeature& before = model_.feature("d", 1, {{"PSCommand", "before %s;"}});
  DriverFeature& after = model_.feature("e", 1, {{"PSCommand", "after %s;"}});
  before.addOptionToFeature(&counting);
  after.addOptionToFeature(&wordless);
  EXPECT_EQ(write(), "<1st>[0]()before 1;after ;");
}

// Returns no flag, and another command at each read; none at the first.
class CountingFeature : public DriverFeature {
 public:
  CountingFeature(const std::string& name, int type) : DriverFeature(name), type_(type) {}
  using DriverFeature::getFeatureProperty;
  int getFeatureType() override { return type_; }
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    if (name != "PSCommand") return DriverFeature::getFeatureProperty(name, value);
    if (++reads == 1) return false;
    value = std::to_string(reads);
    return true;
  }
  bool getFeatureProperty(const std::string& name, bool* value) override {
    return answersFlags && DriverFeature::getFeatureProperty(name, value);
  }
  int reads = 0;
  bool answersFlags = false;

 private:
  int type_;
};

TEST_F(HostInOutputTest, FeatureOfAHost_IsAskedForEachOutput) {
  CountingFeature number(std::string("d"), 2);
  CountingFeature list(std::string("e"), 1);
  DriverFeatureOption option(std::string("option"));
  list.addOptionToFeature(&option);
  masterSet().addFeatureToFeatureList("d", &number);
  masterSet().addFeatureToFeatureList("e", &list);
  EXPECT_EQ(write(), "<1st>[0]()");
  EXPECT_EQ(write(), "<1st>[0]()22");
  EXPECT_EQ(write(), "<1st>[0]()33");
  number.answersFlags = true;
  number.setFeatureProperty(std::string("FeatureInGroup"), true);
  EXPECT_EQ(write(), "<1st>[0]()4");
  number.answersFlags = false;
  EXPECT_EQ(write(), "<1st>[0]()45");
}

// An option of the host that changes its feature's command when it is read.
class ChangingOption : public DriverFeatureOption {
 public:
  explicit ChangingOption(DriverFeature& feature) : feature_(feature) {}
  bool getOptionProperty(const std::string& /*name*/, std::string& value) override {
    feature_.setFeatureProperty(std::string("PSCommand"), std::string(100, 'x'));
    value = "host";
    return true;
  }

 private:
  DriverFeature& feature_;
};

TEST_F(HostInOutputTest, OptionChangesItsFeaturesCommand_TheOneReadBeforeIsWritten) {
  DriverFeature& list = model_.feature("d", 1, {{"PSCommand", "{%s}"}});
  ChangingOption option(list);
  list.addOptionToFeature(&option);
  EXPECT_EQ(write(), "<1st>[0](){host}");
}

// A feature of the host that runs an action when one of its texts is read.
class ActingFeature : public DriverFeature {
 public:
  ActingFeature(const std::string& name, std::function<void()> action)
      : DriverFeature(name), action_(std::move(action)) {}
  using DriverFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    if (action_) std::exchange(action_, nullptr)();
    return DriverFeature::getFeatureProperty(name, value);
  }

 private:
  std::function<void()> action_;
};

class GrowingGroupTest : public HostInOutputTest {
 protected:
  void addMembers() {
    for (int i = 0; i < 100; ++i) group_.addFeatureToGroup(&list_);
  }

  DriverFeatureStaticGroup& group_ =
      model_.group("group", {{"PSCommand", "{%s}"}, {"TESKJTAttributeName", "group"}});
  ActingFeature member_{"member", [this] { addMembers(); }};
};

TEST_F(GrowingGroupTest, MemberAddsMembers_TheirTextsFollow) {
  group_.addFeatureToGroup(&member_);
  std::string expected = "[0](){";
  for (int i = 0; i < 100; ++i) expected += "<1st>";
  EXPECT_EQ(write(), "<1st>" + expected + "}");
}

TEST_F(GrowingGroupTest, MemberAddsMembers_TheirNodesFollow) {
  set(list_, "TESKJTAttributeName", "list");
  list_.fetchOptionByIndex(0)->setOptionProperty(std::string("TESKCommand"), std::string("value"));
  group_.addFeatureToGroup(&member_);
  const std::string ticket = write(2);
  int nodes = 0;
  for (std::size_t at = ticket.find("\"list\""); at != ticket.npos;
       at = ticket.find("\"list\"", at + 1)) {
    ++nodes;
  }
  // The first is of the feature itself, which was in no group by then.
  EXPECT_EQ(nodes, 1 + 100);
}

// What a routine adds while it writes in the place of its owner.
TEST_F(GrowingGroupTest, RoutineAddsGroups_TheirTextsFollow) {
  set(group_, "PSCommand", "");
  set(group_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  script.routine = [this](std::string& text) {
    EXPECT_EQ(text, "");
    text = "routine";
    for (int i = 0; i < 100; ++i) model_.group("added", {{"PSCommand", "."}});
  };
  EXPECT_EQ(write(), "<1st>[0]()routine" + std::string(100, '.'));
}

}  // namespace
}  // namespace driver_feature::testing
