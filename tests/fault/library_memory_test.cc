// Memory that runs out while a host works with a loaded description.

#include <gmock/gmock.h>

#include <algorithm>

#include "fault/failing_memory.h"
#include "fault/faulty_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::AnyOf;
using ::testing::Eq;

const std::string kLongText = "another text, one that does not fit into a text itself";

class LibraryMemoryTest : public MemoryFaultTest {
 protected:
  LibraryMemoryTest() { host_.loadAndComplete(); }

  // Puts a text value back to what the description says.
  void resetTitle() {
    host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"),
                                            std::string("a title of some length"));
  }

  // A text that must be the same as `before`.
  void expectUnchanged(const std::string& before) { EXPECT_EQ(host_.model(), before); }

  FaultyHost host_;
};
INSTANTIATE_MEMORY_FAULTS(LibraryMemoryTest);

// Calls one of the value functions with failing memory. Whatever fails inside
// it, it only returns its result.
#define EXPECT_RESULT(plan, call, done)                          \
  do {                                                           \
    int result = -1;                                             \
    EXPECT_TRUE(endsWithoutThrow(plan, [&] { result = call; })); \
    EXPECT_EQ(result, memoryHasFailed() ? 0 : 1);                \
    EXPECT_EQ(done, !memoryHasFailed());                         \
    EXPECT_EQ(call, 1);                                          \
    EXPECT_TRUE(done);                                           \
  } while (false)

TEST_P(LibraryMemoryTest, ValueGetters_NoMemory_ReturnZeroAndLeaveTheValue) {
  auto* getInt = host_.function<int(std::string&, const char*, int*)>("GetFeatureIntValue");
  auto* getFloat = host_.function<int(std::string&, const char*, float*)>("GetFeatureFloatValue");
  auto* getBool = host_.function<int(std::string&, const char*, bool*)>("GetFeatureBoolValue");
  auto* getText =
      host_.function<int(std::string&, const char*, std::string&)>("GetFeatureTextValue");
  std::string copies = kCopies;
  std::string scale = kScale;
  std::string title = kTitle;
  sweep(0, [&](const FailurePlan& plan) {
    int value = -5;
    EXPECT_RESULT(plan, getInt(copies, "CurrentIntValue", &value), value == 1);
  });
  sweep(1, [&](const FailurePlan& plan) {
    float value = -5;
    EXPECT_RESULT(plan, getFloat(scale, "CurrentFloatValue", &value), value == 1.5F);
  });
  sweep(0, [&](const FailurePlan& plan) {
    bool value = false;
    EXPECT_RESULT(plan, getBool(copies, "Visibility", &value), value);
  });
  sweep(2, [&](const FailurePlan& plan) {
    std::string value = "before";
    EXPECT_RESULT(plan, getText(title, "CurrentTextValue", value),
                  value == "a title of some length");
    EXPECT_THAT(value, AnyOf("before", "a title of some length"));
  });
}

TEST_P(LibraryMemoryTest, ValueSetters_NoMemory_ReturnZeroAndLeaveTheValue) {
  auto* setInt = host_.function<int(std::string&, const char*, int)>("SetFeatureIntValue");
  auto* setFloat = host_.function<int(std::string&, const char*, float)>("SetFeatureFloatValue");
  auto* setText =
      host_.function<int(std::string&, const char*, const std::string&)>("SetFeatureTextValue");
  std::string copies = kCopies;
  std::string scale = kScale;
  std::string title = kTitle;
  sweep(1, [&](const FailurePlan& plan) {
    int value = 1;
    host_.object(kCopies).setFeatureProperty(std::string("DeferredIntValue"), 1);
    EXPECT_RESULT(
        plan, setInt(copies, "DeferredIntValue", 5),
        host_.object(kCopies).getFeatureProperty(std::string("DeferredIntValue"), &value) &&
            value == 5);
  });
  sweep(1, [&](const FailurePlan& plan) {
    host_.object(kScale).setFeatureProperty(std::string("CurrentFloatValue"), 1.5F);
    EXPECT_RESULT(plan, setFloat(scale, "CurrentFloatValue", 2.5F),
                  host_.text(kScale, "ValueString") == "2.500000");
  });
  sweep(1, [&](const FailurePlan& plan) {
    resetTitle();
    EXPECT_RESULT(plan, setText(title, "CurrentTextValue", kLongText),
                  host_.text(kTitle, "CurrentTextValue") == kLongText);
  });
}

TEST_P(LibraryMemoryTest, ValueFunctions_UnknownNameAndNoMemory_ReturnZero) {
  auto* getInt = host_.function<int(std::string&, const char*, int*)>("GetFeatureIntValue");
  std::string unknown = "a feature that is in no description";
  const std::string before = host_.model();
  sweep(2, [&](const FailurePlan& plan) {
    int value = 5;
    int result = -1;
    EXPECT_TRUE(
        endsWithoutThrow(plan, [&] { result = getInt(unknown, "CurrentIntValue", &value); }));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(value, 5);
  });
  expectUnchanged(before);
}

TEST_P(LibraryMemoryTest, SaveAndRestore_NoMemory_ReturnAndCanBeRepeated) {
  auto* save = host_.function<void(AttributeMap&)>("SaveCurrentFeatureValues");
  auto* restore = host_.function<void(AttributeMap&)>("RestoreOriginalFeatureValues");
  AttributeMap names;
  for (const std::string& name : {kMedia, kCopies, kTitle, kScale}) names[name];
  save(names);
  const std::string before = host_.model();
  sweep(6, [&](const FailurePlan& plan) {
    EXPECT_TRUE(endsWithoutThrow(plan, [&] { save(names); }));
    save(names);
    host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"), kLongText);
    host_.object(kScale).setFeatureProperty(std::string("CurrentFloatValue"), 3.0F);
    EXPECT_TRUE(endsWithoutThrow(plan, [&] { restore(names); }));
    const bool failed = memoryHasFailed();
    EXPECT_THAT(host_.text(kTitle, "CurrentTextValue"), AnyOf(kLongText, "a title of some length"));
    if (failed) restore(names);
    EXPECT_EQ(host_.model(), before);
  });
}

TEST_P(LibraryMemoryTest, TicketHandlers_NoMemoryInTheLoadRoutine_LowerTheFlag) {
  int updates = 0;
  host_.routines.update = [&] { ++updates; };
  host_.routines.load = [&](int /*mode*/) {
    // A copy, so that more than the value itself takes memory.
    const std::string text = kLongText;
    host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"), text);
    return 0;
  };
  for (const char* name : {"InstOptVORNTagHandler", "JobTicketVORNTagHandler"}) {
    SCOPED_TRACE(name);
    auto* handler = host_.function<int(void*)>(name);
    sweep(2, [&](const FailurePlan& plan) {
      resetTitle();
      int result = -1;
      updates = 0;
      EXPECT_TRUE(endsWithoutThrow(plan, [&] { result = handler(nullptr); }));
      EXPECT_EQ(result, memoryHasFailed() ? 0 : 1);
      const bool notifiesAfterwards = result == 1 && std::string(name) == "JobTicketVORNTagHandler";
      EXPECT_EQ(updates, notifiesAfterwards ? 1 : 0);
      // With the flag up, this one would notify nobody.
      updates = 0;
      host_.object(kCopies).setFeatureProperty(std::string("Visibility"), true);
      EXPECT_EQ(updates, 1);
    });
  }
}

TEST_P(LibraryMemoryTest, Serialize_NoMemory_WritesAllOfItOrNothing) {
  for (const int type : {0, 1}) {
    SCOPED_TRACE(type);
    const std::string whole = host_.output(type);
    sweep(14, [&](const FailurePlan& plan) {
      std::string output = "before";
      const bool done = endsWithoutThrow(
          plan, [&] { host_.set().serialize(output, type, true, "first", "second"); });
      EXPECT_EQ(output, done ? whole : "");
      EXPECT_EQ(done, !memoryHasFailed());
      EXPECT_EQ(host_.output(type), whole);
    });
  }
}

// What is not written for lack of memory is written by the next call.
TEST_P(LibraryMemoryTest, SerializeAfterChange_NoMemory_LosesNoChange) {
  resetTitle();
  const std::string before = host_.output(1);
  host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"), kLongText);
  const std::string after = host_.output(1);
  ASSERT_NE(before, after);
  sweep(10, [&](const FailurePlan& plan) {
    resetTitle();
    ASSERT_EQ(host_.output(1), before);
    host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"), kLongText);
    std::string output = "before";
    const bool done =
        endsWithoutThrow(plan, [&] { host_.set().serialize(output, 1, false, "", ""); });
    EXPECT_EQ(output, done ? after : "");
    EXPECT_EQ(host_.output(1), after);
  });
}

// The writer reports what it has no memory for in the log alone, and the
// ticket then lacks it.
TEST_P(LibraryMemoryTest, SerializeTicket_NoMemory_MakesAWellFormedTicketOrNone) {
  const std::string whole = host_.output(2);
  sweep(30, [&](const FailurePlan& plan) {
    std::string output = "before";
    endsWithoutThrow(plan, [&] { host_.set().serialize(output, 2, true, "first", "second"); });
    EXPECT_TRUE(memoryHasFailed() || output == whole) << output;
    if (output != whole && output != "before" && !output.empty()) {
      XMLProblem problem;
      EXPECT_NE(XMLDocument::parseText(output, "ticket", problem), nullptr) << problem.text << '\n'
                                                                            << output;
    }
    EXPECT_EQ(host_.output(2), whole);
  });
}

TEST_P(LibraryMemoryTest, Dump_NoMemory_PrintsAllOrNothing) {
  const std::string whole = host_.dump();
  sweep(20, [&](const FailurePlan& plan) {
    std::string printed;
    const bool done = endsWithoutThrow(plan, [&] {
      std::string text = host_.dump();
      const MemoryPause pause;
      printed = text;
    });
    EXPECT_EQ(done, !memoryHasFailed());
    EXPECT_EQ(printed, done ? whole : "");
    EXPECT_EQ(host_.dump(), whole);
  });
}

TEST_P(LibraryMemoryTest, RestoreDefaults_NoMemory_CanBeRepeated) {
  const std::string defaults = host_.model();
  sweep(1, [&](const FailurePlan& plan) {
    host_.object(kTitle).setFeatureProperty(std::string("CurrentTextValue"), kLongText);
    host_.object(kMedia).setFeatureProperty(std::string("CurrentIntValue"), 0);
    const bool done = endsWithoutThrow(plan, [&] { host_.set().restoreDefaultFeatureValues(); });
    EXPECT_EQ(done, !memoryHasFailed());
    if (!done) host_.set().restoreDefaultFeatureValues();
    EXPECT_EQ(host_.model(), defaults);
  });
}

}  // namespace
}  // namespace driver_feature::testing
