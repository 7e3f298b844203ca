// Which texts a set that is written again copies from the output before. A
// value that is changed behind the library's back shows it: the old text comes
// out where it is copied.

#include "output/kept_text_test.h"
#include "support/private_member.h"

namespace driver_feature::testing {

struct CurrentInt {
  using Type = int DriverFeature::*;
  friend Type openMember(CurrentInt);
};
template struct PrivateMember<CurrentInt, &DriverFeature::currentInt_>;

struct CurrentText {
  using Type = std::string DriverFeature::*;
  friend Type openMember(CurrentText);
};
template struct PrivateMember<CurrentText, &DriverFeature::currentText_>;

struct CurrentFloat {
  using Type = float DriverFeature::*;
  friend Type openMember(CurrentFloat);
};
template struct PrivateMember<CurrentFloat, &DriverFeature::currentFloat_>;

struct Command {
  using Type = std::string DriverFeature::*;
  friend Type openMember(Command);
};
template struct PrivateMember<Command, &DriverFeature::psCommand_>;

namespace {

class KeptTextCopyTest : public KeptTextTest {
 protected:
  // Changes all values behind the library's back.
  void changeInSecret() {
    list_.*openMember(CurrentInt{}) = 1;
    number_.*openMember(CurrentInt{}) = 7;
    text_.*openMember(CurrentText{}) = "new";
    fraction_.*openMember(CurrentFloat{}) = 1.5F;
  }

  DriverFeature& fraction_ =
      model_.feature("d", 4, {{"PSCommand", "{%.1f}"}, {"PJLCommand", "F=%.1f;"}});
};

TEST_F(KeptTextCopyTest, NothingChanged_AllIsCopied) {
  write();
  write(kPJLText);
  changeInSecret();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(write(), "<1st>[0](){0.0}");
    EXPECT_EQ(write(kPJLText), "L=ONE;N=0;T=;F=0.0;");
  }
}

TEST_F(KeptTextCopyTest, OneChanged_TheOthersAreCopied) {
  write();
  changeInSecret();
  set(number_, "CurrentIntValue", 8);
  EXPECT_EQ(write(), "<1st>[8](){0.0}");
  set(text_, "CurrentTextValue", "x");
  EXPECT_EQ(write(), "<1st>[8](x){0.0}");
}

TEST_F(KeptTextCopyTest, OptionsTextStored_NothingIsCopiedOnce) {
  write();
  changeInSecret();
  list_.fetchOptionByIndex(0)->setOptionProperty(std::string("CLOKey"), std::string("key"));
  EXPECT_EQ(write(), "<2nd>[7](new){1.5}");
  list_.*openMember(CurrentInt{}) = 0;
  EXPECT_EQ(write(), "<2nd>[7](new){1.5}");
}

TEST_F(KeptTextCopyTest, OptionsFlagStored_AllIsCopied) {
  write();
  changeInSecret();
  list_.fetchOptionByIndex(0)->setOptionProperty(std::string("Sensitivity"), false);
  EXPECT_EQ(write(), "<1st>[0](){0.0}");
}

TEST_F(KeptTextCopyTest, FeatureAdded_NothingIsCopiedOnce) {
  write();
  changeInSecret();
  model_.feature("e", 2);
  EXPECT_EQ(write(), "<2nd>[7](new){1.5}");
  list_.*openMember(CurrentInt{}) = 0;
  EXPECT_EQ(write(), "<2nd>[7](new){1.5}");
}

TEST_F(KeptTextCopyTest, FeatureWithoutText_IsCopiedAsNothing) {
  DriverFeature& silent = model_.feature("bb", 2);
  DriverFeature& member = model_.feature("bc", 2, {{"PSCommand", "of its group"}});
  member.setFeatureProperty(std::string("FeatureInGroup"), true);
  EXPECT_EQ(write(), "<1st>[0](){0.0}");
  silent.*openMember(Command{}) = "not seen";
  EXPECT_EQ(write(), "<1st>[0](){0.0}");
}

TEST_F(KeptTextCopyTest, NoRoutineRunsAnyMore_AllIsCopiedAgain) {
  DriverFeature& feature = model_.feature("e", 2);
  set(feature, "AddPSCallbackRoutine", "RecordChange");
  write();
  set(feature, "AddPSCallbackRoutine", "");
  write();
  changeInSecret();
  EXPECT_EQ(write(), "<1st>[0](){0.0}");
}

// All features and options of the library's own are read without their names
// being resolved again: seven names for all, whether texts are copied or made.
TEST_F(KeptTextCopyTest, AnyOutput_ResolvesEachNameOnce) {
  write();
  write(kPJLText);
  for (const int type : {kPostScriptText, kPJLText}) {
    platformLookUps = 0;
    write(type);
    EXPECT_EQ(platformLookUps, 7) << type;
    list_.fetchOptionByIndex(0)->setOptionProperty(std::string("CLOKey"), std::string("key"));
    platformLookUps = 0;
    write(type);
    EXPECT_EQ(platformLookUps, 7) << type;
  }
}

}  // namespace
}  // namespace driver_feature::testing
