// Copies of features, as records of dynamic groups hold them.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/feature_operations.h"
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

// Gives every property of the source a value of its own, and the copy must
// hold six of them.
TEST_F(CopyTest, Copy_TakesSixValuesAndNoMore) {
  set("FeatureType", 8);
  for (const FeaturePropertyRow& row : kFeaturePropertyRows) {
    if (row.needed != kAnyType) set("FeatureValueType", row.needed);
    const std::string name = row.name;
    if (name == "FeatureType" || name == "FeatureValueType") continue;
    if (row.kind == Kind::kText) set(name, "of " + name);
    if (row.kind == Kind::kInt) set(name, 7);
    if (row.kind == Kind::kFloat) set(name, 2.5F);
    if (row.kind == Kind::kBool) set(name, name == "Encrypted" || name == "FeatureInGroup");
  }
  set("FeatureValueType", 3);
  source_.addConstraint(3);
  host_.takeEvents();
  DriverFeature copy(&source_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());

  for (const FeaturePropertyRow& row : kFeaturePropertyRows) {
    const std::string name = row.name;
    SCOPED_TRACE(name);
    if (!row.readable || name == "FeatureType" || name == "FeatureValueType") continue;
    const bool copied = name.starts_with("Current") || name == "Name";
    if (name == "AddPSCallbackRoutine") {
      std::string text;
      EXPECT_FALSE(copy.getFeatureProperty(name, text));
    } else if (row.kind == Kind::kText) {
      EXPECT_EQ(read<std::string>(copy, name), copied ? "of " + name : "");
    } else if (row.kind == Kind::kInt) {
      EXPECT_EQ(read<int>(copy, name), copied ? 7 : 0);
    } else if (row.kind == Kind::kFloat) {
      EXPECT_EQ(read<float>(copy, name), copied ? 2.5F : 0.0F);
    } else {
      EXPECT_EQ(read<bool>(copy, name), name == "Sensitivity" || name == "Visibility");
    }
  }
  EXPECT_EQ(copy.getFeatureType(), 8);
  EXPECT_EQ(read<int>(copy, "FeatureValueType"), 3);
  EXPECT_TRUE(copy.isConstraintSetEmpty());
}

TEST_F(CopyTest, Copy_ChangeRoutine_StaysBehind) {
  set("AddCallbackRoutine", std::string("RecordChange"));
  notification().creationComplete = true;
  DriverFeature copy(&source_);
  copy.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(CopyTest, Copy_OfAList_HasNewOptionsOfTheSameNames) {
  set("CurrentIntValue", 1);
  for (const char* name : {"CLOKey", "DisplayText", "PJLCommand", "PSCommand", "SNMPValue",
                           "TESKCommand", "TESKTicketCommand"}) {
    b_.setOptionProperty(std::string(name), std::string("text"));
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
    for (const char* name : {"CLOKey", "DisplayText", "PJLCommand", "PSCommand", "SNMPValue",
                             "TESKCommand", "TESKTicketCommand"}) {
      EXPECT_TRUE(option->getOptionProperty(std::string(name), text));
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

// Answers through its operations what its fields do not hold.
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
