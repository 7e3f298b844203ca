// Routines of the host that call the library again, and that change what the
// library is working on.

#include <gmock/gmock.h>

#include "fault/faulty_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;

class RoutineReentryTest : public ::testing::Test {
 protected:
  RoutineReentryTest() { host_.loadAndComplete(); }

  void setUpdateCallback(bool (*callback)()) {
    host_.function<void(bool (*)())>("_Z30setDriverFeatureUpdateCallbackPFbvE")(callback);
  }

  void change(const std::string& name, int value) {
    host_.object(name).setFeatureProperty(std::string("CurrentIntValue"), value);
  }

  // Runs `action` at the first call of a routine only.
  template <class Action>
  static std::function<void()> once(Action action) {
    return [action, done = false]() mutable {
      if (std::exchange(done, true)) return;
      action();
    };
  }

  FaultyHost host_;
};

int otherUpdates = 0;

bool countOtherUpdate() {
  ++otherUpdates;
  return true;
}

TEST_F(RoutineReentryTest, UpdateCallback_RegistersAnother_WhichIsCalledFromThenOn) {
  otherUpdates = 0;
  int updates = 0;
  host_.routines.update = [&] {
    ++updates;
    setUpdateCallback(countOtherUpdate);
  };
  change(kCopies, 2);
  EXPECT_EQ(updates, 1);
  EXPECT_EQ(otherUpdates, 0);
  change(kCopies, 3);
  EXPECT_EQ(updates, 1);
  EXPECT_EQ(otherUpdates, 1);
}

TEST_F(RoutineReentryTest, UpdateCallback_RegistersNull_IsCalledNoMore) {
  int updates = 0;
  host_.routines.update = [&] {
    ++updates;
    setUpdateCallback(nullptr);
  };
  host_.set().restoreDefaultFeatureValues();
  change(kCopies, 2);
  EXPECT_EQ(updates, 1);
}

TEST_F(RoutineReentryTest, UpdateCallback_Serializes_SeesTheNewValue) {
  std::vector<std::string> seen;
  host_.routines.update = [&] { seen.push_back(host_.output(0)); };
  change(kCopies, 2);
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_THAT(seen[0], ::testing::HasSubstr("@PJL SET COPIES=2\n"));
  EXPECT_EQ(seen[0], host_.output(0));
}

TEST_F(RoutineReentryTest, UpdateCallback_ChangesItsFeature_LastValueIsKept) {
  host_.routines.update = once([&] { change(kCopies, 7); });
  change(kCopies, 2);
  int value = 0;
  host_.object(kCopies).getFeatureProperty("CurrentIntValue", &value);
  EXPECT_EQ(value, 7);
}

TEST_F(RoutineReentryTest, ChangeRoutine_ReplacesItself_IsNotCalledAgain) {
  int changes = 0;
  host_.routines.change = [&] {
    ++changes;
    host_.object(kMedia).setFeatureProperty(std::string("AddCallbackRoutine"),
                                            std::string("NoRoutineOfThisProgram"));
  };
  change(kMedia, 0);
  change(kMedia, 1);
  EXPECT_EQ(changes, 1);
}

TEST_F(RoutineReentryTest, Restore_ChangeRoutineRestoresAndShrinksTheMap_Ends) {
  AttributeMap names;
  for (const std::string& name : {kMedia, kCopies, kTitle}) names[name];
  auto* save = host_.function<void(AttributeMap&)>("SaveCurrentFeatureValues");
  auto* restore = host_.function<void(AttributeMap&)>("RestoreOriginalFeatureValues");
  save(names);
  change(kMedia, 0);
  change(kCopies, 5);
  host_.routines.change = once([&] {
    restore(names);
    names.clear();
  });
  restore(names);
  EXPECT_EQ(host_.text(kMedia, "ValueString"), "LetterOfNorthAmerica");
  EXPECT_EQ(host_.text(kCopies, "ValueString"), "1");
}

TEST_F(RoutineReentryTest, LoadRoutine_CallsAHandler_TheFlagIsDownAfterwards) {
  std::vector<int> modes;
  host_.routines.load = [&](int mode) {
    modes.push_back(mode);
    if (modes.size() == 1) host_.function<int(void*)>("InstOptVORNTagHandler")(nullptr);
    return 0;
  };
  EXPECT_EQ(host_.function<int(void*)>("JobTicketVORNTagHandler")(nullptr), 1);
  EXPECT_THAT(modes, ElementsAre(0, 1));
  int updates = 0;
  host_.routines.update = [&] { ++updates; };
  change(kCopies, 2);
  EXPECT_EQ(updates, 1);
}

TEST_F(RoutineReentryTest, Load_UpdateCallbackLoads_BothDescriptionsAreThere) {
  FaultyHost host;
  int loads = 0;
  host.routines.update = [&] {
    if (++loads > 1) return;
    EXPECT_EQ(host.load(), 1);
  };
  EXPECT_EQ(host.load(), 1);
  EXPECT_GE(loads, 2);
  host.complete();
  // Features take the place of those of their name; groups do not.
  EXPECT_EQ(host.set().fetchNumberOfFeatures(), host_.set().fetchNumberOfFeatures());
}

TEST_F(RoutineReentryTest, SortRoutine_RemovesTheRecords_Ends) {
  for (const char* page : {"9", "7", "3"}) {
    AttributeMap record = FaultyHost::record(page, "PlainPaperOfTheOffice");
    host_.exceptions().addStaticGroupToDynamicGroupWithSort(record, false);
  }
  AttributeMap record = FaultyHost::record("1", "PlainPaperOfTheOffice");
  host_.exceptions().setFeatureProperty(std::string("SortFunctionName"),
                                        std::string("FaultSortRoutine"));
  host_.routines.sort = [&](AttributeMap&, AttributeMap&) {
    host_.exceptions().removeAllDynamicEntries();
    return 1;
  };
  EXPECT_TRUE(host_.exceptions().addStaticGroupToDynamicGroup(record));
  EXPECT_EQ(host_.exceptions().fetchNumberOfDynamicEntries(), 0);
}

TEST_F(RoutineReentryTest, SortRoutine_AddsARecordAndSorts_KeepsEveryRecord) {
  AttributeMap first = FaultyHost::record("9", "PlainPaperOfTheOffice");
  AttributeMap second = FaultyHost::record("5", "PlainPaperOfTheOffice");
  AttributeMap third = FaultyHost::record("1", "PlainPaperOfTheOffice");
  host_.exceptions().addStaticGroupToDynamicGroup(first);
  host_.routines.sort = [&](AttributeMap& left, AttributeMap& right) {
    const int order = left[kPage].compare(right[kPage]);
    host_.routines.sort = nullptr;
    host_.exceptions().addStaticGroupToDynamicGroup(third);
    return order;
  };
  EXPECT_TRUE(host_.exceptions().addStaticGroupToDynamicGroup(second));
  EXPECT_EQ(host_.exceptions().fetchNumberOfDynamicEntries(), 3);
  for (AttributeMap* record : {&first, &second, &third}) {
    EXPECT_TRUE(host_.exceptions().detectDuplicateRecord(*record));
  }
  EXPECT_TRUE(host_.exceptions().sortList());
  host_.exceptions().getDynamicEntryByIndex(0);
  EXPECT_EQ(host_.text(kPage, "ValueString"), "1");
}

// A change routine of the shape runs while a record is loaded into it.
TEST_F(RoutineReentryTest, ReadRecord_ChangeRoutineRemovesIt_StillReturnsTheShape) {
  AttributeMap record = FaultyHost::record("9", "GlossyPaperForPhotos");
  host_.exceptions().addStaticGroupToDynamicGroup(record);
  host_.object(kPage).setFeatureProperty(std::string("AddCallbackRoutine"),
                                         std::string("FaultChangeRoutine"));
  host_.routines.change = [&] { host_.exceptions().removeAllDynamicEntries(); };
  EXPECT_NE(host_.exceptions().getDynamicEntryByIndex(0), nullptr);
  EXPECT_EQ(host_.text(kPage, "ValueString"), "9");
  EXPECT_EQ(host_.text(kPaper, "ValueString"), "GlossyPaperForPhotos");
  EXPECT_EQ(host_.exceptions().getDynamicEntryByIndex(0), nullptr);
}

TEST_F(RoutineReentryTest, OutputRoutine_SerializesAndDumps_BothAreWhole) {
  const std::string whole = host_.output(1);
  std::string inner;
  host_.routines.text = [&](std::string&) {
    host_.routines.text = nullptr;
    inner = host_.output(1) + host_.dump();
  };
  EXPECT_EQ(host_.output(1), whole);
  EXPECT_EQ(inner, whole + host_.dump());
}

// A second description adds features and options and takes the place of
// features, and adds its groups after those that are being written.
TEST_F(RoutineReentryTest, OutputRoutine_LoadsAnotherDescription_OutputIsWhole) {
  for (const int type : {0, 1, 2}) {
    SCOPED_TRACE(type);
    FaultyHost host;
    host.loadAndComplete();
    const std::string before = host.output(type);
    const auto loadOnce = once([&] { EXPECT_EQ(host.load(), 1); });
    host.routines.text = [load = loadOnce](std::string&) mutable { load(); };
    host.routines.ticket = [load = loadOnce](VORNWriter*, _xmlNode*) mutable { load(); };
    const std::string during = host.output(type);
    EXPECT_EQ(during, host.output(type));
    EXPECT_GT(during.size(), before.size());
  }
}

TEST_F(RoutineReentryTest, OutputRoutine_ChangesTypesAndTexts_OutputEnds) {
  host_.routines.text = [&](std::string& text) {
    text.clear();
    for (const std::string& name : {kTitle, kScale, kMedia}) {
      host_.object(name).setFeatureProperty(std::string("FeatureType"), 6);
      host_.object(name).setFeatureProperty(std::string("PSCommand"), std::string());
    }
    host_.object(kOutputGroup).setFeatureProperty(std::string("FeatureType"), 1);
  };
  // The features before the routine's owner are gone; what follows is not a feature.
  EXPECT_EQ(host_.output(1), "");
  host_.output(0);
  host_.output(2);
  host_.dump();
}

}  // namespace
}  // namespace driver_feature::testing
