// Memory that runs out inside the operations of single objects: an operation
// lets std::bad_alloc out and has done all of its work or nothing of it.

#include <functional>

#include <gmock/gmock.h>

#include "fault/failing_memory.h"
#include "fault/faulty_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::AnyOf;

const std::string kText = "TextInsideOfTheGroup";
const std::string kNewText = "another text, one that does not fit into a text itself";

struct Operation {
  std::string name;
  std::function<bool()> run;
};

class ObjectMemoryTest : public MemoryFaultTest {
 protected:
  ObjectMemoryTest() { host_.loadAndComplete(); }

  // Sets a text with failing memory; it must then be the old or the new one.
  template <class Set, class Get>
  void expectOldOrNew(const std::string& before, const Set& set, const Get& get) {
    sweep(1, [&](const FailurePlan& plan) {
      set(before);
      ASSERT_EQ(get(), before);
      const bool done = endsWithoutThrow(plan, [&] { set(kNewText); });
      EXPECT_EQ(done, !memoryHasFailed());
      EXPECT_EQ(get(), done ? kNewText : before);
    });
    set(before);
  }

  // The records of the dynamic group as texts.
  std::vector<std::string> records() {
    std::vector<std::string> texts;
    const int count = host_.exceptions().fetchNumberOfDynamicEntries();
    for (int i = 0; i < count; ++i) {
      auto* record = host_.exceptions().getDynamicEntryByIndex(static_cast<unsigned>(i));
      std::string text;
      for (unsigned member = 0; member < 2; ++member) {
        std::string value;
        record->fetchFeatureInGroupByIndex(member)->getFeatureProperty(std::string("ValueString"),
                                                                       value);
        text += value + ' ';
      }
      texts.push_back(text);
    }
    return texts;
  }

  void addRecords() {
    host_.exceptions().removeAllDynamicEntries();
    for (const auto& [page, paper] :
         {std::pair("7", "PlainPaperOfTheOffice"), std::pair("3", "GlossyPaperForPhotos")}) {
      AttributeMap values = FaultyHost::record(page, paper);
      ASSERT_TRUE(host_.exceptions().addStaticGroupToDynamicGroup(values));
    }
  }

  FaultyHost host_;
};
INSTANTIATE_MEMORY_FAULTS(ObjectMemoryTest);

TEST_P(ObjectMemoryTest, TextSetters_NoMemory_KeepTheOldText) {
  struct Row {
    const std::string& object;
    std::string property;
    std::string before;
  };
  const Row rows[] = {
      {kTitle, "CurrentTextValue", "a title of some length"},
      {kText, "ValueString", "the text of the group"},
      {kScale, "CLOKey", ""},
      {kExceptions, "TESKOAAttributeName", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.object + ' ' + row.property);
    expectOldOrNew(
        row.before,
        [&](const std::string& value) {
          host_.object(row.object).setFeatureProperty(row.property, value);
        },
        [&] { return host_.text(row.object, row.property); });
  }
  // The name by itself: the object must still be found by the set.
  CoreFeature& group = host_.object(kOutputGroup);
  expectOldOrNew(
      kOutputGroup, [&](const std::string& value) { group.setFeatureProperty("Name", value); },
      [&] {
        std::string name;
        group.getFeatureProperty("Name", name);
        return name;
      });
}

TEST_P(ObjectMemoryTest, OptionText_NoMemory_KeepsTheOldText) {
  CoreOption& option = *host_.object(kMedia).fetchOptionByIndex(0);
  expectOldOrNew(
      "/PageSize (iso-a4)",
      [&](const std::string& value) { option.setOptionProperty("PSCommand", value); },
      [&] {
        std::string value;
        option.getOptionProperty("PSCommand", value);
        return value;
      });
}

TEST_P(ObjectMemoryTest, UnknownProperty_NoMemoryForItsLine_ChangesNothing) {
  const std::string before = host_.model();
  for (const std::string& name : {kTitle, kOutputGroup, kExceptions}) {
    SCOPED_TRACE(name);
    CoreFeature& object = host_.object(name);
    sweep(1, [&](const FailurePlan& plan) {
      bool result = true;
      const bool done = endsWithoutThrow(
          plan, [&] { result = object.setFeatureProperty("NoPropertyOfAnyFeature", 1.5F); });
      EXPECT_EQ(done, !memoryHasFailed());
      EXPECT_EQ(result, !done);  // Unchanged where the call did not return.
    });
  }
  EXPECT_EQ(host_.model(), before);
}

TEST_P(ObjectMemoryTest, Constraints_NoMemory_AreAddedOrNot) {
  IntermediateCoreFeature& media = host_.feature(kMedia);
  sweep(1, [&](const FailurePlan& plan) {
    ASSERT_TRUE(media.isConstraintSetEmpty());
    const bool done = endsWithoutThrow(plan, [&] { media.addConstraint(5); });
    EXPECT_EQ(media.isConstraintSetEmpty(), !done);
    if (done) media.removeConstraint(5);
  });
  sweep(2, [&](const FailurePlan& plan) {
    bool sensitive = true;
    CoreOption& option = *media.fetchOptionByIndex(0);
    ASSERT_TRUE(option.setOptionProperty("Sensitivity", true));
    endsWithoutThrow(plan, [&] { media.applyOptionConstraint("A4OfTheRestOfTheWorld", 5, false); });
    // It can be repeated, wherever it failed.
    EXPECT_TRUE(media.applyOptionConstraint("A4OfTheRestOfTheWorld", 5, false));
    EXPECT_TRUE(option.getOptionProperty("Sensitivity", &sensitive));
    EXPECT_FALSE(sensitive);
  });
}

TEST_P(ObjectMemoryTest, AddRecord_NoMemory_AddsAWholeRecordOrNone) {
  AttributeMap values = FaultyHost::record("5", "GlossyPaperForPhotos");
  sweep(40, [&](const FailurePlan& plan) {
    addRecords();
    bool added = false;
    const bool done = endsWithoutThrow(
        plan, [&] { added = host_.exceptions().addStaticGroupToDynamicGroup(values); });
    if (done && added) {
      EXPECT_THAT(records(),
                  ::testing::ElementsAre("3 GlossyPaperForPhotos ", "5 GlossyPaperForPhotos ",
                                         "7 PlainPaperOfTheOffice "));
      return;
    }
    EXPECT_TRUE(memoryHasFailed());
    std::vector<std::string> left = records();
    // The record may be there without having been sorted in.
    if (left.size() == 3) {
      EXPECT_THAT(left, ::testing::UnorderedElementsAre("3 GlossyPaperForPhotos ",
                                                        "5 GlossyPaperForPhotos ",
                                                        "7 PlainPaperOfTheOffice "));
    } else {
      EXPECT_THAT(left,
                  ::testing::ElementsAre("3 GlossyPaperForPhotos ", "7 PlainPaperOfTheOffice "));
      EXPECT_TRUE(host_.exceptions().addStaticGroupToDynamicGroup(values));
    }
    EXPECT_TRUE(host_.exceptions().sortList());
    EXPECT_THAT(records(),
                ::testing::ElementsAre("3 GlossyPaperForPhotos ", "5 GlossyPaperForPhotos ",
                                       "7 PlainPaperOfTheOffice "));
  });
}

TEST_P(ObjectMemoryTest, RecordOperations_NoMemory_LeaveTheRecords) {
  addRecords();
  const std::vector<std::string> before = records();
  IntermediateDynamicFeatureGroup& group = host_.exceptions();
  AttributeMap values = FaultyHost::record("7", "PlainPaperOfTheOffice");
  const Operation operations[] = {
      {"detect", [&] { return group.detectDuplicateRecord(values); }},
      {"read", [&] { return group.getDynamicEntryByIndex(1) != nullptr; }},
      {"sort", [&] { return group.sortList(); }},
  };
  for (const Operation& operation : operations) {
    SCOPED_TRACE(operation.name);
    sweep(1, [&](const FailurePlan& plan) {
      bool result = false;
      const bool done = endsWithoutThrow(plan, [&] { result = operation.run(); });
      EXPECT_EQ(done, !memoryHasFailed());
      EXPECT_EQ(result, done);
      EXPECT_TRUE(operation.run());
      EXPECT_EQ(records(), before);
    });
  }
}

TEST_P(ObjectMemoryTest, LookUps_NoMemory_WorkAfterwards) {
  const Operation operations[] = {
      {"by attribute",
       [&] {
         return host_.set().FindFeatureInFeatureList("TESKAttributeSyntax",
                                                     "text-of-some-length") != nullptr;
       }},
  };
  for (const Operation& operation : operations) {
    SCOPED_TRACE(operation.name);
    sweep(1, [&](const FailurePlan& plan) {
      bool result = false;
      const bool done = endsWithoutThrow(plan, [&] { result = operation.run(); });
      EXPECT_EQ(done, !memoryHasFailed());
      EXPECT_EQ(result, done);
      EXPECT_TRUE(operation.run());
    });
  }
}

}  // namespace
}  // namespace driver_feature::testing
