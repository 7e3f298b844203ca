// A set that is written again: what a host has its hands in is written anew at
// each output.

#include "output/kept_text_test.h"

#include <functional>

#include "support/address_checks.h"
#include "support/platform_look_up.h"
#include "support/untyped_feature.h"

#include "Log.h"

namespace {

// The platform's look-up knows no property of this name.
std::string refusedName;

// What the routine of the host does with the text so far.
std::function<void(std::string&)> routine;

}  // namespace

// Stands in front of the platform's.
extern "C" __attribute__((visibility("default"))) int ParseAttributeList_LowLevel(
    const char* const* names, int highestIndex, const char* name) {
  ++driver_feature::testing::platformLookUps;
  if (refusedName == name) return -1;
  return driver_feature::testing::askPlatform(names, highestIndex, name);
}

extern "C" void ChangeTheTextSoFar(DriverFeatureSet* /*set*/, std::string& text) {
  routine(text);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeptTextHostTest : public KeptTextTest {
 protected:
  ~KeptTextHostTest() override {
    refusedName.clear();
    routine = nullptr;
    SetLogHandler(nullptr, nullptr);
  }
};

TEST_F(KeptTextHostTest, RoutineChangesTheTextBefore_EachOutputStartsFromTheFeatures) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  int calls = 0;
  routine = [&calls](std::string& text) {
    text.erase(1, 2);
    text += std::to_string(++calls);
  };
  EXPECT_EQ(write(), "<t>1()");
  EXPECT_EQ(write(), "<t>2()");
  set(text_, "CurrentTextValue", "x");
  EXPECT_EQ(write(), "<t>3(x)");
}

TEST_F(KeptTextHostTest, RoutineNamedAfterAnOutput_IsRun) {
  write();
  routine = [](std::string& text) { text = "all of it;"; };
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  EXPECT_EQ(write(), "<1st>[0]()");
  set(number_, "PSCommand", "");
  EXPECT_EQ(write(), "all of it;()");
  set(number_, "PSCommand", "[%d]");
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(KeptTextHostTest, RoutineChangesAFeatureThatIsWritten_TheNextOutputHasIt) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  routine = [this](std::string&) { set(list_, "CurrentIntValue", 1); };
  EXPECT_EQ(write(), "<1st>()");
  EXPECT_EQ(write(), "<2nd>()");
}

TEST_F(KeptTextHostTest, RoutineAddsAFeatureBehind_IsWrittenInTheSameOutput) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  routine = [this](std::string& text) {
    text += "[added]";
    model_.feature("d", 2, {{"PSCommand", "new %d;"}});
  };
  EXPECT_EQ(write(), "<1st>[added]()new 0;");
  routine = [](std::string&) {};
  EXPECT_EQ(write(), "<1st>()new 0;");
  set(*masterSet().fetchFeatureByIndex(3), "CurrentIntValue", 1);
  EXPECT_EQ(write(), "<1st>()new 1;");
}

// Features are counted by their positions in the order of their names: one that
// is added in front moves the feature at hand to the next position.
TEST_F(KeptTextHostTest, RoutineAddsAFeatureInFront_IsRunOnceMore) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  routine = [this](std::string& text) {
    text += "[run]";
    if (masterSet().fetchNumberOfFeatures() == 3) model_.feature("aa", 2, {{"PSCommand", "new;"}});
  };
  EXPECT_EQ(write(), "<1st>[run][run]()");
  EXPECT_EQ(write(), "<1st>new;[run]()");
}

TEST_F(KeptTextHostTest, LogHandlerChangesAFeatureThatIsWritten_TheNextOutputHasIt) {
  set(number_, "PSCommand", "%s");
  SetLogHandler(
      [](int, const char*, const char*, std::size_t, void* context) {
        set(*static_cast<DriverFeature*>(context), "CurrentIntValue", 1);
      },
      &list_);
  EXPECT_EQ(write(), "<1st>()");
  EXPECT_EQ(write(), "<2nd>()");
}

TEST_F(KeptTextHostTest, PlatformForgetsAName_IsSeenAtOnceAndAtEachOutput) {
  write();
  refusedName = "CurrentIntValue";
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(write(), "<1st>()");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeature::getFeatureProperty(int*) - Unrecognized "
                                    "feature property:  \"CurrentIntValue\" for feature \"b."),
                            logLine(2,
                                    "createTicketPDLAttributes() - Cannot get feature int "
                                    "value")));
  }
  refusedName.clear();
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(KeptTextHostTest, PlatformForgetsAnyName_TheOtherPropertiesAreReadByTheirs) {
  struct Row {
    const char* name;
    const char* first;
    const char* second;
  };
  constexpr Row kRows[] = {
      {"AddPSCallbackRoutine", "<1st>[0](x){2.5}", "<1st>[0](y){3.5}"},
      {"FeatureInGroup", "<1st>[0](x){2.5}", "<1st>[0](y){3.5}"},
      {"CurrentIntValue", "<1st>(x){2.5}", "<1st>(y){3.5}"},
      {"CurrentTextValue", "<1st>[0]{2.5}", "<1st>[0]{3.5}"},
      {"CurrentFloatValue", "<1st>[0](x)", "<1st>[0](y)"},
      {"PSCommand", "", ""},
  };
  DriverFeature& fraction = model_.feature("d", 4, {{"PSCommand", "{%.1f}"}});
  for (const Row& row : kRows) {
    refusedName.clear();
    fraction.setFeatureProperty(std::string("CurrentFloatValue"), 2.5F);
    set(text_, "CurrentTextValue", "x");
    EXPECT_EQ(write(), "<1st>[0](x){2.5}") << row.name;
    refusedName = row.name;
    EXPECT_EQ(write(), row.first) << row.name;
    refusedName.clear();
    fraction.setFeatureProperty(std::string("CurrentFloatValue"), 3.5F);
    set(text_, "CurrentTextValue", "y");
    refusedName = row.name;
    EXPECT_EQ(write(), row.second) << row.name;
  }
}

// Objects of a host's own answer as they like, so that they are asked for each
// output.

class CountingOption : public DriverFeatureOption {
 public:
  bool getOptionProperty(const std::string& /*name*/, std::string& value) override {
    value = std::to_string(++reads);
    return true;
  }
  int reads = 0;
};

TEST_F(KeptTextHostTest, OptionOfAHost_IsAskedForEachOutput) {
  CountingOption option;
  DriverFeature& list = model_.feature("d", 1, {{"PSCommand", "option %s;"}});
  list.addOptionToFeature(&option);
  const int before = option.reads;
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(write(), "<1st>[0]()option " + std::to_string(before + i) + ";");
  }
}

TEST_F(KeptTextHostTest, MemberAndOptionWithoutTypeInformation_AreWritten) {
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

TEST_F(KeptTextHostTest, OptionOfAHostGivesNoText_NoOtherTextIsWrittenForIt) {
  CountingOption counting;
  WordlessOption wordless;
  DriverFeature& before = model_.feature("d", 1, {{"PSCommand", "before %s;"}});
  DriverFeature& after = model_.feature("e", 1, {{"PSCommand", "after %s;"}});
  before.addOptionToFeature(&counting);
  after.addOptionToFeature(&wordless);
  EXPECT_EQ(write(), "<1st>[0]()before 1;after ;");
}

// Answers no flag, and another command at each read; none at the first.
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

TEST_F(KeptTextHostTest, FeatureOfAHost_IsAskedForEachOutput) {
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

}  // namespace
}  // namespace driver_feature::testing
