// A set that is written again: what has changed since is written anew, and
// what is logged is so at each output.

#include "output/kept_text_test.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(KeptTextTest, NothingChanged_IsTheSameAgainAndAgain) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(write(), "<1st>[0]()");
    EXPECT_EQ(write(kPJLText), "L=ONE;N=0;T=;");
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(KeptTextTest, EachValueChanged_InEachPlace_IsWritten) {
  write();
  set(list_, "ValueString", "second");
  EXPECT_EQ(write(), "<2nd>[0]()");
  set(number_, "CurrentIntValue", 12345);
  EXPECT_EQ(write(), "<2nd>[12345]()");
  set(text_, "CurrentTextValue", "some text");
  EXPECT_EQ(write(), "<2nd>[12345](some text)");
  set(list_, "CurrentIntValue", 0);
  set(text_, "ValueString", "");
  EXPECT_EQ(write(), "<1st>[12345]()");
  EXPECT_EQ(write(kPJLText), "L=ONE;N=12345;T=;");
  set(number_, "CurrentIntValue", 7);
  EXPECT_EQ(write(kPJLText), "L=ONE;N=7;T=;");
  EXPECT_EQ(write(), "<1st>[7]()");
}

TEST_F(KeptTextTest, AllChangedAtOnce_AllAreWritten) {
  write();
  set(list_, "CurrentIntValue", 1);
  set(number_, "CurrentIntValue", -1);
  set(text_, "CurrentTextValue", "x");
  EXPECT_EQ(write(), "<2nd>[-1](x)");
}

TEST_F(KeptTextTest, FractionChanged_IsWritten) {
  DriverFeature& fraction = model_.feature("d", 4, {{"PSCommand", "{%.2f}"}});
  EXPECT_EQ(write(), "<1st>[0](){0.00}");
  fraction.setFeatureProperty(std::string("CurrentFloatValue"), 1.5F);
  EXPECT_EQ(write(), "<1st>[0](){1.50}");
}

TEST_F(KeptTextTest, ChangedInSilenceOrByDefaults_IsWritten) {
  write();
  number_.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), 3, true);
  EXPECT_EQ(write(), "<1st>[3]()");
  masterSet().restoreDefaultFeatureValues();
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(KeptTextTest, CommandChanged_IsWritten) {
  write();
  set(number_, "PSCommand", "%d %%");
  EXPECT_EQ(write(), "<1st>0 %()");
  set(number_, "PSCommand", "");
  EXPECT_EQ(write(), "<1st>()");
  set(number_, "PSCommand", "%i");
  EXPECT_EQ(write(), "<1st>0()");
}

TEST_F(KeptTextTest, TypeChanged_IsWritten) {
  set(number_, "CurrentIntValue", 1);
  write();
  set(number_, "PSCommand", "%s");
  set(number_, "FeatureType", 3);
  EXPECT_EQ(write(), "<1st>()");
  set(number_, "PSCommand", "%d");
  set(number_, "FeatureType", 2);
  EXPECT_EQ(write(), "<1st>1()");
}

TEST_F(KeptTextTest, FeatureGoesIntoAGroupAndComesBack_IsWritten) {
  write();
  number_.setFeatureProperty(std::string("FeatureInGroup"), true);
  EXPECT_EQ(write(), "<1st>()");
  EXPECT_EQ(write(), "<1st>()");
  number_.setFeatureProperty(std::string("FeatureInGroup"), false);
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(KeptTextTest, OptionsTextChanged_IsWritten) {
  write();
  list_.fetchOptionByIndex(0)->setOptionProperty(std::string("PSCommand"), std::string("changed"));
  EXPECT_EQ(write(), "<changed>[0]()");
  list_.fetchOptionByIndex(0)->setOptionProperty(std::string("PSCommand"), std::string());
  EXPECT_EQ(write(), "<>[0]()");
}

TEST_F(KeptTextTest, OptionAddedAtTheCurrentPosition_IsWritten) {
  set(list_, "CurrentIntValue", 2);
  EXPECT_EQ(write(), "[0]()");
  model_.option(list_, "third", {{"PSCommand", "3rd"}});
  EXPECT_EQ(write(), "<3rd>[0]()");
}

TEST_F(KeptTextTest, FeatureAddedOrReplaced_IsWrittenAtItsPlace) {
  write();
  model_.feature("aa", 2, {{"PSCommand", "added"}});
  EXPECT_EQ(write(), "<1st>added[0]()");
  model_.feature("b", 2, {{"PSCommand", "in its place"}});
  EXPECT_EQ(write(), "<1st>addedin its place()");
}

TEST_F(KeptTextTest, LoadTakenBack_IsWrittenWithoutIt) {
  DriverFeatureSet::Contents before = masterSet().copyContents();
  model_.feature("b", 2, {{"PSCommand", "of the load"}});
  EXPECT_EQ(write(), "<1st>of the load()");
  masterSet().swapContents(before);
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(KeptTextTest, GroupChanged_IsWrittenBehindTheFeatures) {
  DriverFeature& member = model_.feature("bb", 2, {{"PSCommand", "%d"}});
  model_.group("group", {{"PSCommand", "{%s}"}}, {&member});
  EXPECT_EQ(write(), "<1st>[0](){0}");
  set(member, "CurrentIntValue", 5);
  EXPECT_EQ(write(), "<1st>[0](){5}");
  set(text_, "CurrentTextValue", "x");
  EXPECT_EQ(write(), "<1st>[0](x){5}");
  EXPECT_EQ(write(), "<1st>[0](x){5}");
}

TEST_F(KeptTextTest, RefusedTemplate_IsLoggedAtEachOutput) {
  set(number_, "PSCommand", "%s");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(write(), "<1st>()");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "createTicketPDLAttributes() - Cannot format value with "
                                    "command template \"%s\"")));
  }
}

TEST_F(KeptTextTest, NoValueToWrite_IsLoggedAtEachOutput) {
  set(list_, "CurrentIntValue", 2);
  set(number_, "FeatureType", 0);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(write(), "()");
    EXPECT_THAT(
        host_.takeEvents(),
        ElementsAre(logLine(2,
                            "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature "
                            "option with index out of range for feature \"a\"."),
                    logLine(2, "createTicketPDLAttributes() - Cannot get current feature option"),
                    logLine(2,
                            "createTicketPDLAttributes() - Feature has an invalid feature "
                            "type")));
  }
}

TEST_F(KeptTextTest, FeatureInGroup_IsLoggedAtEachPJL) {
  number_.setFeatureProperty(std::string("FeatureInGroup"), true);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(write(kPJLText), "L=ONE;T=;");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(4, "serialize() - Feature 1 is in a group")));
  }
}

TEST_F(KeptTextTest, MissingRoutine_IsLoggedAtEachOutput) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "NoSuchRoutine");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(write(), "<1st>()");
    EXPECT_THAT(
        host_.takeEvents(),
        ElementsAre(logLine(2, "serialize() - Cannot load PS Command callback: NoSuchRoutine")));
  }
}

}  // namespace
}  // namespace driver_feature::testing
