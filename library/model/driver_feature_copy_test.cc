// Copies of features, as records of dynamic groups hold them.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/feature_operations.h"
#include "support/property_facts.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class Value>
Value read(DriverFeature& feature, const std::string& name) {
  Value value{};
  EXPECT_TRUE(Operation<Value>::get(feature, name, value)) << name;
  return value;
}

// The text properties of an option but for its name.
const std::vector<std::string> kOtherOptionTexts = [] {
  std::vector<std::string> names = namesOf(kOptionPropertyFacts, Kind::kText);
  std::erase(names, "Name");
  return names;
}();

class CopyTest : public ::testing::Test {
 protected:
  CopyTest() {
    host_.registerUpdateCallback();
    for (DriverFeatureOption* option : {&a_, &b_, &c_}) source_.addOptionToFeature(option);
  }

  template <class Value>
  bool set(const std::string& name, const Value& value) {
    return source_.setFeaturePropertyWithConstraintControl(name, value, true);
  }

  const std::string cannotGet_ =
      logLine(4, "DriverFeature(DriverFeature*) - Cannot get MultiSelect feature option name");

  RecordingHost host_;
  DriverFeatureOption a_{std::string("A")};
  DriverFeatureOption b_{std::string("B")};
  DriverFeatureOption c_{std::string("C")};
  DriverFeature source_{std::string("Tray")};
};

TEST_F(CopyTest, Copy_NameTypesAndCurrentValues_AreTaken) {
  set("FeatureType", 8);
  set("FeatureValueType", kIntType);
  set("CurrentIntValue", 7);
  set("FeatureValueType", kTextType);
  set("CurrentTextValue", std::string("text"));
  set("FeatureValueType", kFloatType);
  set("CurrentFloatValue", 2.5F);
  DriverFeature copy(&source_);
  EXPECT_EQ(read<std::string>(copy, "Name"), "Tray");
  EXPECT_EQ(read<int>(copy, "FeatureType"), 8);
  EXPECT_EQ(read<int>(copy, "FeatureValueType"), 3);
  EXPECT_EQ(read<int>(copy, "CurrentIntValue"), 7);
  EXPECT_EQ(read<std::string>(copy, "CurrentTextValue"), "text");
  EXPECT_EQ(read<float>(copy, "CurrentFloatValue"), 2.5F);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(CopyTest, Copy_AllElse_IsAsInANewFeature) {
  const auto texts = factsBut({"Name", "CurrentTextValue", "ValueString", "AddPSCallbackRoutine"},
                              factsToRead(&PropertyFacts::feature, Kind::kText));
  const auto ints = factsBut({"FeatureType", "FeatureValueType", "CurrentIntValue"},
                             factsToRead(&PropertyFacts::feature, Kind::kInt));
  const auto floats =
      factsBut({"CurrentFloatValue"}, factsToRead(&PropertyFacts::feature, Kind::kFloat));
  set("FeatureType", 8);
  set("AddPSCallbackRoutine", std::string("routine"));
  for (const PropertyFacts& facts : texts) {
    set("FeatureValueType", kTextType);
    set(facts.name, std::string("text"));
  }
  for (const PropertyFacts& facts : ints) {
    set("FeatureValueType", facts.needed);
    set(facts.name, 7);
  }
  for (const PropertyFacts& facts : floats) {
    set("FeatureValueType", kFloatType);
    set(facts.name, 2.5F);
  }
  set("FeatureValueType", kTextType);
  set("Encrypted", true);
  set("FeatureInGroup", true);
  set("Sensitivity", false);
  set("Visibility", false);
  source_.addConstraint(3);
  host_.takeEvents();

  DriverFeature copy(&source_);
  for (const PropertyFacts& facts : texts) EXPECT_EQ(read<std::string>(copy, facts.name), "");
  for (const PropertyFacts& facts : ints) EXPECT_EQ(read<int>(copy, facts.name), 0);
  for (const PropertyFacts& facts : floats) EXPECT_EQ(read<float>(copy, facts.name), 0.0F);
  EXPECT_FALSE(read<bool>(copy, "Encrypted"));
  EXPECT_FALSE(read<bool>(copy, "FeatureInGroup"));
  EXPECT_TRUE(read<bool>(copy, "Sensitivity"));
  EXPECT_TRUE(read<bool>(copy, "Visibility"));
  std::string routine;
  EXPECT_FALSE(copy.getFeatureProperty(std::string("AddPSCallbackRoutine"), routine));
  EXPECT_TRUE(copy.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(CopyTest, Copy_ChangeRoutine_IsNotCopied) {
  set("AddCallbackRoutine", std::string("RecordChange"));
  notification().creationComplete = true;
  DriverFeature copy(&source_);
  copy.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(CopyTest, Copy_OfAList_HasNewOptionsOfTheSameNames) {
  set("CurrentIntValue", 1);
  for (const std::string& name : kOtherOptionTexts) {
    b_.setOptionProperty(name, std::string("text"));
  }
  b_.setOptionProperty(std::string("Sensitivity"), false);
  b_.setOptionProperty(std::string("Visibility"), false);
  b_.addConstraint(5);
  DriverFeature copy(&source_);
  ASSERT_EQ(copy.getFeatureOptionCount(), 3);
  const std::string names[] = {"A", "B", "C"};
  DriverFeatureOption* const originals[] = {&a_, &b_, &c_};
  for (int i = 0; i < 3; ++i) {
    auto* option = dynamic_cast<DriverFeatureOption*>(copy.fetchOptionByIndex(i));
    ASSERT_NE(option, nullptr);
    EXPECT_NE(option, originals[i]);
    std::string text;
    EXPECT_TRUE(option->getOptionProperty(std::string("Name"), text));
    EXPECT_EQ(text, names[i]);
    for (const std::string& name : kOtherOptionTexts) {
      EXPECT_TRUE(option->getOptionProperty(name, text));
      EXPECT_EQ(text, "") << name;
    }
    for (const char* name : {"Sensitivity", "Visibility"}) {
      bool flag = false;
      EXPECT_TRUE(option->getOptionProperty(std::string(name), &flag));
      EXPECT_TRUE(flag) << name;
    }
    EXPECT_TRUE(option->isConstraintSetEmpty());
  }
  EXPECT_EQ(copy.fetchCurrentOption(), copy.fetchOptionByIndex(1));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(CopyTest, Copy_OfATypeWithoutOptions_AsksForNone) {
  set("FeatureType", 5);
  DriverFeature copy(&source_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  copy.setFeatureProperty(std::string("FeatureType"), 1);
  EXPECT_EQ(copy.getFeatureOptionCount(), 0);
}

TEST_F(CopyTest, Copy_UnreadableOption_StopsAtIt) {
  UnreadableOption unreadable;
  DriverFeature source(std::string("Source"));
  source.addOptionToFeature(&a_);
  source.addOptionToFeature(&unreadable);
  source.addOptionToFeature(&c_);
  LogMessageBuffer = "untouched";
  DriverFeature copy(&source);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(cannotGet_));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  EXPECT_EQ(copy.getFeatureOptionCount(), 1);
}

// Returns through its operations what its fields do not hold.
class Impostor : public DriverFeature {
 public:
  Impostor() { DriverFeature::setFeatureProperty(std::string("FeatureType"), 3); }

  bool readable = true;
  int options = 2;
  int missing = -1;

  using DriverFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    if (readable) value = "impostor " + name;
    return readable;
  }
  bool getFeatureProperty(const std::string& name, int* value) override {
    if (readable) *value = name == "CurrentIntValue" ? 77 : 1;
    return readable;
  }
  bool getFeatureProperty(const std::string& /*name*/, float* value) override {
    if (readable) *value = 7.5F;
    return readable;
  }
  int getFeatureOptionCount() override { return options; }
  CoreOption* fetchOptionByIndex(int index) override {
    return index == missing ? nullptr : &option_;
  }

 private:
  DriverFeatureOption option_{std::string("impostor")};
};

TEST_F(CopyTest, Copy_ReadsThroughTheSourcesOperations) {
  Impostor source;
  DriverFeature copy(&source);
  EXPECT_EQ(read<std::string>(copy, "Name"), "impostor Name");
  EXPECT_EQ(read<std::string>(copy, "CurrentTextValue"), "impostor CurrentTextValue");
  EXPECT_EQ(read<int>(copy, "FeatureType"), 1);
  EXPECT_EQ(read<int>(copy, "FeatureValueType"), 1);
  EXPECT_EQ(read<int>(copy, "CurrentIntValue"), 77);
  EXPECT_EQ(read<float>(copy, "CurrentFloatValue"), 7.5F);
  EXPECT_EQ(copy.getFeatureOptionCount(), 2);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(CopyTest, Copy_MissingOption_StopsAtIt) {
  Impostor source;
  source.options = 3;
  source.missing = 1;
  DriverFeature copy(&source);
  EXPECT_EQ(copy.getFeatureOptionCount(), 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(cannotGet_));
}

TEST_F(CopyTest, Copy_UnreadableSource_IsANewFeature) {
  Impostor source;
  source.readable = false;
  source.options = -1;
  DriverFeature copy(&source);
  EXPECT_EQ(read<std::string>(copy, "Name"), "");
  EXPECT_EQ(read<int>(copy, "FeatureType"), 1);
  EXPECT_EQ(read<int>(copy, "FeatureValueType"), 1);
  EXPECT_EQ(read<int>(copy, "CurrentIntValue"), 0);
  EXPECT_EQ(copy.getFeatureOptionCount(), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing
