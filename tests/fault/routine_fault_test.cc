// Routines of the host that throw.

#include <gmock/gmock.h>

#include <stdexcept>

#include "fault/faulty_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;

struct Throw {
  const char* name;
  void (*run)();
};

constexpr Throw kThrows[] = {{"Exception", [] { throw std::runtime_error("of the host"); }},
                             {"Number", [] { throw 42; }}};

class RoutineFaultTest : public ::testing::TestWithParam<Throw> {
 protected:
  RoutineFaultTest() { host_.loadAndComplete(); }

  // Throws from within a routine.
  static void fail() { GetParam().run(); }

  // Whether the routine's own exception comes out of an action.
  template <class Action>
  static bool lets(const Action& action) {
    try {
      action();
    } catch (const std::runtime_error& error) {
      return error.what() == std::string("of the host") && GetParam().name[0] == 'E';
    } catch (int number) {
      return number == 42 && GetParam().name[0] == 'N';
    }
    return false;
  }

  int current(const std::string& name) {
    int value = -1;
    EXPECT_TRUE(host_.object(name).getFeatureProperty("CurrentIntValue", &value));
    return value;
  }

  // Whether a setter notifies the host: not while a ticket is loaded.
  bool notifiesHost() {
    int updates = 0;
    host_.routines.update = [&] { ++updates; };
    host_.object(kCopies).setFeatureProperty(std::string("Visibility"), true);
    return updates == 1;
  }

  FaultyHost host_;
};
INSTANTIATE_TEST_SUITE_P(Routines, RoutineFaultTest, ::testing::ValuesIn(kThrows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(RoutineFaultTest, UpdateCallback_Throws_SetterHasStoredTheValue) {
  host_.routines.update = fail;
  std::string copies = kCopies;
  auto* set = host_.function<int(std::string&, const char*, int)>("SetFeatureIntValue");
  EXPECT_EQ(set(copies, "CurrentIntValue", 4), 0);
  EXPECT_EQ(current(kCopies), 4);
  EXPECT_TRUE(
      lets([&] { host_.object(kCopies).setFeatureProperty(std::string("CurrentIntValue"), 5); }));
  EXPECT_EQ(current(kCopies), 5);
}

TEST_P(RoutineFaultTest, UpdateCallback_ThrowsInEachValueFunction_ReturnsZero) {
  host_.routines.update = fail;
  std::string copies = kCopies;
  std::string scale = kScale;
  std::string title = kTitle;
  EXPECT_EQ(host_.function<int(std::string&, const char*, float)>("SetFeatureFloatValue")(
                scale, "CurrentFloatValue", 4),
            0);
  EXPECT_EQ(host_.function<int(std::string&, const char*, bool)>("SetFeatureBoolValue")(
                copies, "Sensitivity", false),
            0);
  EXPECT_EQ(host_.function<int(std::string&, const char*, const std::string&)>(
                "SetFeatureTextValue")(title, "CurrentTextValue", "x"),
            0);
  EXPECT_EQ(host_.text(kScale, "ValueString"), "4.000000");
  EXPECT_EQ(host_.text(kTitle, "ValueString"), "x");
}

TEST_P(RoutineFaultTest, ChangeRoutine_Throws_ValueIsStoredAndUpdateIsNotCalled) {
  bool updated = false;
  host_.routines.update = [&] { updated = true; };
  host_.routines.change = fail;
  std::string media = kMedia;
  auto* set = host_.function<int(std::string&, const char*, int)>("SetFeatureIntValue");
  EXPECT_EQ(set(media, "CurrentIntValue", 0), 0);
  EXPECT_EQ(current(kMedia), 0);
  EXPECT_FALSE(updated);
  EXPECT_TRUE(
      lets([&] { host_.object(kMedia).setFeatureProperty(std::string("CurrentIntValue"), 1); }));
}

TEST_P(RoutineFaultTest, Load_UpdateCallbackThrows_LeavesTheSetAndTheCallbacks) {
  FaultyHost& host = host_;
  bool asked = false;
  host.function<void(bool (*)())>("_Z30setDriverFeatureUpdateCallbackPFbvE")(nullptr);
  const std::string before = host.model();
  host.routines.update = [&] {
    asked = true;
    fail();
  };
  EXPECT_EQ(host.load(), 0);
  EXPECT_TRUE(asked);
  EXPECT_EQ(host.model(), before);
  // Null is the callback again.
  asked = false;
  host.object(kCopies).setFeatureProperty(std::string("Visibility"), true);
  EXPECT_FALSE(asked);
}

TEST_P(RoutineFaultTest, Restore_ChangeRoutineThrows_ReturnsAndLeavesTheRest) {
  AttributeMap names;
  for (const std::string& name : {kMedia, kCopies}) names[name];
  host_.function<void(AttributeMap&)>("SaveCurrentFeatureValues")(names);
  host_.object(kMedia).setFeatureProperty(std::string("CurrentIntValue"), 0);
  host_.object(kCopies).setFeatureProperty(std::string("CurrentIntValue"), 9);
  host_.routines.change = fail;
  auto* restore = host_.function<void(AttributeMap&)>("RestoreOriginalFeatureValues");
  restore(names);  // "Media..." is the first name.
  EXPECT_EQ(current(kMedia), 1);
  EXPECT_EQ(current(kCopies), 9);
  host_.routines.change = nullptr;
  restore(names);
  EXPECT_EQ(current(kCopies), 1);
}

TEST_P(RoutineFaultTest, RestoreDefaults_ChangeRoutineThrows_CanBeRepeated) {
  const std::string defaults = host_.model();
  host_.object(kMedia).setFeatureProperty(std::string("CurrentIntValue"), 0);
  host_.object(kScale).setFeatureProperty(std::string("CurrentFloatValue"), 9.0F);
  host_.routines.change = fail;
  EXPECT_TRUE(lets([&] { host_.set().restoreDefaultFeatureValues(); }));
  host_.routines.change = nullptr;
  host_.set().restoreDefaultFeatureValues();
  EXPECT_EQ(host_.model(), defaults);
}

TEST_P(RoutineFaultTest, LoadRoutine_Throws_ReturnsZeroAndTheFlagIsDown) {
  bool updated = false;
  host_.routines.update = [&] { updated = true; };
  host_.routines.load = [](int /*mode*/) {
    fail();
    return 0;
  };
  for (const char* name : {"InstOptVORNTagHandler", "JobTicketVORNTagHandler"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(host_.function<int(void*)>(name)(nullptr), 0);
    EXPECT_FALSE(updated);
    EXPECT_TRUE(notifiesHost());
    host_.routines.update = [&] { updated = true; };
  }
}

TEST_P(RoutineFaultTest, JobTicket_UpdateCallbackThrows_ReturnsZeroAndTheFlagIsDown) {
  host_.routines.update = fail;
  EXPECT_EQ(host_.function<int(void*)>("JobTicketVORNTagHandler")(nullptr), 0);
  EXPECT_TRUE(notifiesHost());
}

TEST_P(RoutineFaultTest, SortRoutine_Throws_RecordIsThereAndUnsorted) {
  AttributeMap first = FaultyHost::record("7", "PlainPaperOfTheOffice");
  AttributeMap second = FaultyHost::record("3", "PlainPaperOfTheOffice");
  ASSERT_TRUE(host_.exceptions().addStaticGroupToDynamicGroup(first));
  host_.routines.sort = [](AttributeMap&, AttributeMap&) {
    fail();
    return 0;
  };
  EXPECT_TRUE(lets([&] { host_.exceptions().addStaticGroupToDynamicGroup(second); }));
  EXPECT_EQ(host_.exceptions().fetchNumberOfDynamicEntries(), 2);
  EXPECT_TRUE(host_.exceptions().detectDuplicateRecord(second));
  EXPECT_TRUE(lets([&] { host_.exceptions().sortList(); }));
  host_.routines.sort = nullptr;
  EXPECT_TRUE(host_.exceptions().sortList());
  host_.exceptions().getDynamicEntryByIndex(0);
  EXPECT_EQ(host_.text(kPage, "ValueString"), "3");
}

TEST_P(RoutineFaultTest, RecordUpdate_Throws_RecordsAreAsReportedBefore) {
  host_.routines.update = fail;
  AttributeMap record = FaultyHost::record("7", "PlainPaperOfTheOffice");
  EXPECT_TRUE(lets([&] { host_.exceptions().addStaticGroupToDynamicGroup(record); }));
  EXPECT_EQ(host_.exceptions().fetchNumberOfDynamicEntries(), 1);
  EXPECT_TRUE(lets([&] { host_.exceptions().removeDynamicEntryByIndex(0); }));
  EXPECT_EQ(host_.exceptions().fetchNumberOfDynamicEntries(), 0);
}

TEST_P(RoutineFaultTest, OutputRoutine_Throws_LeavesNoHalfOfAnOutput) {
  const std::string whole[] = {host_.output(0), host_.output(1), host_.output(2)};
  host_.routines.text = [](std::string& text) {
    text += "half of it";
    fail();
  };
  host_.routines.ticket = [](VORNWriter*, _xmlNode*) { fail(); };
  for (const int type : {0, 1, 2}) {
    SCOPED_TRACE(type);
    std::string output = "before";
    EXPECT_TRUE(lets([&] { host_.set().serialize(output, type, true, "first", "second"); }));
    EXPECT_EQ(output, "");
  }
  host_.routines.text = nullptr;
  host_.routines.ticket = nullptr;
  for (const int type : {0, 1, 2}) {
    EXPECT_EQ(host_.output(type), whole[static_cast<std::size_t>(type)]);
  }
}

}  // namespace
}  // namespace driver_feature::testing
