// What the host's routines, log handler and look-ups do while the set is written.

#include "output/host_in_output_test.h"

#include <dlfcn.h>

#include "support/platform_look_up.h"

// Stands in front of the platform's.
extern "C" __attribute__((visibility("default"))) int ParseAttributeList_LowLevel(
    const char* const* names, int highestIndex, const char* name) {
  ++driver_feature::testing::script.platformLookUps;
  if (driver_feature::testing::script.refusedName == name) return -1;
  return driver_feature::testing::askPlatform(names, highestIndex, name);
}

// Stands in front of the platform's.
extern "C" __attribute__((visibility("default"))) void* FetchSymbol(const char* name) {
  if (driver_feature::testing::script.beforeLookUp) driver_feature::testing::script.beforeLookUp();
  return dlsym(RTLD_DEFAULT, name);
}

extern "C" void ChangeTheTextSoFar(DriverFeatureSet* /*set*/, std::string& text) {
  driver_feature::testing::script.routine(text);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(HostInOutputTest, RoutineChangesTheTextBefore_EachOutputStartsFromTheFeatures) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  int calls = 0;
  script.routine = [&calls](std::string& text) {
    text.erase(1, 2);
    text += std::to_string(++calls);
  };
  EXPECT_EQ(write(), "<t>1()");
  EXPECT_EQ(write(), "<t>2()");
  set(text_, "CurrentTextValue", "x");
  EXPECT_EQ(write(), "<t>3(x)");
}

TEST_F(HostInOutputTest, RoutineNamedAfterAnOutput_IsRun) {
  write();
  script.routine = [](std::string& text) { text = "all of it;"; };
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  EXPECT_EQ(write(), "<1st>[0]()");
  set(number_, "PSCommand", "");
  EXPECT_EQ(write(), "all of it;()");
  set(number_, "PSCommand", "[%d]");
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(HostInOutputTest, RoutineChangesAFeatureThatIsWritten_TheNextOutputHasIt) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  script.routine = [this](std::string&) { set(list_, "CurrentIntValue", 1); };
  EXPECT_EQ(write(), "<1st>()");
  EXPECT_EQ(write(), "<2nd>()");
}

TEST_F(HostInOutputTest, RoutineAddsAFeatureAfter_IsWrittenInTheSameOutput) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  script.routine = [this](std::string& text) {
    text += "[added]";
    model_.feature("d", 2, {{"PSCommand", "new %d;"}});
  };
  EXPECT_EQ(write(), "<1st>[added]()new 0;");
  script.routine = [](std::string&) {};
  EXPECT_EQ(write(), "<1st>()new 0;");
  set(*masterSet().fetchFeatureByIndex(3), "CurrentIntValue", 1);
  EXPECT_EQ(write(), "<1st>()new 1;");
}

// Features are counted by their positions in the order of their names: one that
// is added in front moves the feature at hand to the next position.
TEST_F(HostInOutputTest, RoutineAddsAFeatureInFront_IsRunOnceMore) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  script.routine = [this](std::string& text) {
    text += "[run]";
    if (masterSet().fetchNumberOfFeatures() == 3) model_.feature("aa", 2, {{"PSCommand", "new;"}});
  };
  EXPECT_EQ(write(), "<1st>[run][run]()");
  EXPECT_EQ(write(), "<1st>new;[run]()");
}

TEST_F(HostInOutputTest, LogHandlerChangesAFeatureThatIsWritten_TheNextOutputHasIt) {
  set(number_, "PSCommand", "%s");
  SetLogHandler(
      [](int, const char*, const char*, std::size_t, void* context) {
        set(*static_cast<DriverFeature*>(context), "CurrentIntValue", 1);
      },
      &list_);
  EXPECT_EQ(write(), "<1st>()");
  EXPECT_EQ(write(), "<2nd>()");
}

TEST_F(HostInOutputTest, PlatformForgetsAName_IsSeenAtOnceAndAtEachOutput) {
  write();
  script.refusedName = "CurrentIntValue";
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
  script.refusedName.clear();
  EXPECT_EQ(write(), "<1st>[0]()");
}

TEST_F(HostInOutputTest, PlatformForgetsAnyName_TheOtherPropertiesAreReadByTheirs) {
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
    script.refusedName.clear();
    fraction.setFeatureProperty(std::string("CurrentFloatValue"), 2.5F);
    set(text_, "CurrentTextValue", "x");
    EXPECT_EQ(write(), "<1st>[0](x){2.5}") << row.name;
    script.refusedName = row.name;
    EXPECT_EQ(write(), row.first) << row.name;
    script.refusedName.clear();
    fraction.setFeatureProperty(std::string("CurrentFloatValue"), 3.5F);
    set(text_, "CurrentTextValue", "y");
    script.refusedName = row.name;
    EXPECT_EQ(write(), row.second) << row.name;
  }
}

TEST_F(HostInOutputTest, Routine_GetsTheOutputItself) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  std::string output = "of an earlier job";
  script.routine = [&output](std::string& text) {
    EXPECT_EQ(&text, &output);
    EXPECT_EQ(output, "<1st>");
    text += "routine";
  };
  masterSet().serialize(output, kPostScriptText, false, nullptr, nullptr);
  EXPECT_EQ(output, "<1st>routine()");
}

// An option's command that is changed in the middle of an output is in it.
TEST_F(HostInOutputTest, RoutineChangesALaterOption_IsInTheSameOutput) {
  DriverFeature& later = model_.feature("d", 1, {{"PSCommand", "{%s}"}});
  DriverFeatureOption& option = model_.option(later, "option", {{"PSCommand", "before"}});
  EXPECT_EQ(write(), "<1st>[0](){before}");
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "ChangeTheTextSoFar");
  script.routine = [&option](std::string&) {
    option.setOptionProperty(std::string("PSCommand"), std::string("after"));
  };
  EXPECT_EQ(write(), "<1st>(){after}");
}

TEST_F(HostInOutputTest, LogHandlerChangesALaterOption_IsInTheSameOutput) {
  DriverFeature& later = model_.feature("d", 1, {{"PSCommand", "{%s}"}});
  DriverFeatureOption& option = model_.option(later, "option", {{"PSCommand", "before"}});
  set(number_, "PSCommand", "%s");
  EXPECT_EQ(write(), "<1st>(){before}");
  atTheNextLine(
      [&option] { option.setOptionProperty(std::string("PSCommand"), std::string("after")); });
  EXPECT_EQ(write(), "<1st>(){after}");
}

TEST_F(HostInOutputTest, LookUpChangesALaterOption_IsInTheSameOutput) {
  DriverFeature& later = model_.feature("d", 1, {{"PSCommand", "{%s}"}});
  DriverFeatureOption& option = model_.option(later, "option", {{"PSCommand", "before"}});
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "NoSuchRoutine");
  EXPECT_EQ(write(), "<1st>(){before}");
  script.beforeLookUp = [&option] {
    option.setOptionProperty(std::string("PSCommand"), std::string("after"));
  };
  EXPECT_EQ(write(), "<1st>(){after}");
}

// The line names the routine that was looked up, whatever the feature names by
// the time that it is written.
TEST_F(HostInOutputTest, LookUpChangesTheRoutinesName_LineNamesTheOneLookedUp) {
  set(number_, "PSCommand", "");
  set(number_, "AddPSCallbackRoutine", "NoSuchRoutine");
  DriverFeature& member = model_.feature("d", 2);
  model_.group("group", {{"PSCommand", "{%s}"}}, {&member});
  set(member, "AddPSCallbackRoutine", "NoRoutineOfTheMember");
  host_.takeEvents();
  script.beforeLookUp = [this, &member] {
    for (DriverFeature* feature : {&number_, &member}) {
      set(*feature, "AddPSCallbackRoutine", "");
    }
  };
  // Storing a routine's name looks nothing up, so that this does not go on.
  EXPECT_EQ(write(), "<1st>(){}");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(2, "serialize() - Cannot load PS Command callback: NoSuchRoutine"),
                  logLine(4,
                          "processPSStaticGroup() - Cannot get PS command for feature 0 - will "
                          "look for callback")));
  set(member, "AddPSCallbackRoutine", "NoRoutineOfTheMember");
  write();
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4,
                                  "processPSStaticGroup() - Cannot get PS command for feature 0 - "
                                  "will look for callback"),
                          logLine(2,
                                  "processPSStaticGroup() - Cannot load PS Command callback: "
                                  "NoRoutineOfTheMember")));
}

// All features and options of the library's own are read without their names
// being resolved for each: seven names for all.
TEST_F(HostInOutputTest, AnyOutput_ResolvesEachNameOnce) {
  for (const int type : {kPostScriptText, kPJLText}) {
    script.platformLookUps = 0;
    write(type);
    EXPECT_EQ(script.platformLookUps, 7) << type;
  }
}

}  // namespace
}  // namespace driver_feature::testing
