// A set that is written again and again, as a user interface does.

#include <string>

#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

extern "C" void WriteTheSetInBetween(DriverFeatureSet* set, std::string& text) {
  static bool isInside = false;
  if (isInside) return;
  isInside = true;
  std::string inner = "old";
  set->serialize(inner, 1, false, nullptr, nullptr);
  text += "{" + inner + "}";
  isInside = false;
}

extern "C" void ThrowInBetween(DriverFeatureSet* /*set*/, std::string& text) {
  text += "half";
  throw 1;
}

namespace driver_feature::testing {
namespace {

class RepeatedSerializationTest : public ::testing::Test {
 protected:
  static void write(std::string& output) {
    masterSet().serialize(output, 1, false, nullptr, nullptr);
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(RepeatedSerializationTest, SameText_HoldsTheCurrentValuesOnly) {
  DriverFeature& feature = model_.feature("a", 3, {{"PSCommand", "a text of some length: %s;"}});
  std::string output;
  for (const std::string value : {"first", "second, a longer one", "", "third"}) {
    feature.setFeatureProperty(std::string("CurrentTextValue"), value);
    write(output);
    EXPECT_EQ(output, "a text of some length: " + value + ";");
  }
}

TEST_F(RepeatedSerializationTest, TemplateChanges_TheNextTextIsOfTheNewOne) {
  DriverFeature& feature = model_.feature("a", 1, {{"PSCommand", "first %s;"}});
  DriverFeatureOption& option = model_.option(feature, "A", {{"PSCommand", "a4"}});
  struct {
    const char* commandTemplate;
    const char* written;
  } const rows[] = {{"first %s;", "first a4;"},
                    {"2nd %%%s %%;", "2nd %a4 %;"},
                    {"no value", "no value"},
                    {"%4s|", "  a4|"},
                    {"%d", ""},
                    {"%s", "a4"},
                    {"", ""},
                    {"last %s", "last a4"}};
  std::string output;
  for (const auto& row : rows) {
    feature.setFeatureProperty(std::string("PSCommand"), std::string(row.commandTemplate));
    write(output);
    EXPECT_EQ(output, row.written) << row.commandTemplate;
  }
  option.setOptionProperty(std::string("PSCommand"), std::string("a3"));
  write(output);
  EXPECT_EQ(output, "last a3");
}

TEST_F(RepeatedSerializationTest, PlainTemplate_RoutineIsNotRun) {
  DriverFeature& feature =
      model_.feature("a", 1, {{"PSCommand", "%s;"}, {"AddPSCallbackRoutine", "ThrowInBetween"}});
  model_.option(feature, "A", {{"PSCommand", "a4"}});
  std::string output;
  EXPECT_NO_THROW(write(output));
  EXPECT_EQ(output, "a4;");
}

TEST_F(RepeatedSerializationTest, TemplatesOfBothLanguages_DoNotMix) {
  DriverFeature& feature =
      model_.feature("a", 1, {{"PSCommand", "ps %s;"}, {"PJLCommand", "pjl %s;"}});
  model_.option(feature, "A", {{"PSCommand", "a4"}, {"PJLCommand", "A4"}});
  feature.setFeatureProperty(std::string("PJLCommand"), std::string("other %s;"));
  std::string output;
  write(output);
  EXPECT_EQ(output, "ps a4;");
  masterSet().serialize(output, 0, false, nullptr, nullptr);
  EXPECT_EQ(output, "other A4;");
}

TEST_F(RepeatedSerializationTest, OtherTexts_KeepWhatWasWrittenIntoThem) {
  DriverFeature& feature = model_.feature("a", 2, {{"PSCommand", "a number: %020d;"}});
  std::string first;
  std::string second;
  write(first);
  feature.setFeatureProperty(std::string("CurrentIntValue"), 7);
  write(second);
  write(second);
  EXPECT_EQ(first, "a number: 00000000000000000000;");
  EXPECT_EQ(second, "a number: 00000000000000000007;");
}

TEST_F(RepeatedSerializationTest, RoutineWritesTheSet_BothTextsAreWhole) {
  model_.feature("a", 2, {{"PSCommand", "before;"}});
  model_.feature("b", 2, {{"AddPSCallbackRoutine", "WriteTheSetInBetween"}});
  model_.feature("c", 2, {{"PSCommand", "after;"}});
  std::string output;
  for (int i = 0; i < 3; ++i) {
    write(output);
    EXPECT_EQ(output, "before;{before;after;}after;");
  }
}

TEST_F(RepeatedSerializationTest, RoutineThrows_TextIsEmptyAndTheNextIsWhole) {
  DriverFeature& feature = model_.feature("b", 2, {{"PSCommand", "whole;"}});
  std::string output;
  write(output);
  feature.setFeatureProperty(std::string("PSCommand"), std::string());
  feature.setFeatureProperty(std::string("AddPSCallbackRoutine"), std::string("ThrowInBetween"));
  EXPECT_THROW(write(output), int);
  EXPECT_EQ(output, "");
  feature.setFeatureProperty(std::string("PSCommand"), std::string("again;"));
  write(output);
  EXPECT_EQ(output, "again;");
}

}  // namespace
}  // namespace driver_feature::testing
