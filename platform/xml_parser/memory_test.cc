// Memory that runs out, at each allocation in turn: of the writer, and of libxml2.

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

#include "support/failing_memory.h"
#include "ticket_test.h"

namespace {

using driver_feature::testing::failingMemory;
using driver_feature::testing::TicketTest;

// The allocation that fails; the ones before it succeed, and those after it
// too. 0: none.
int failing = 0;
int allocations = 0;

bool failsNow() {
  return ++allocations == failing;
}

void* allocate(std::size_t size) {
  return failsNow() ? nullptr : std::malloc(size);
}
void* reallocate(void* memory, std::size_t size) {
  return failsNow() ? nullptr : std::realloc(memory, size);
}
char* duplicate(const char* text) {
  return failsNow() ? nullptr : strdup(text);
}

void ignoreError(void* /*context*/, const xmlError* /*error*/) {}

class TicketMemoryTest : public TicketTest {
 protected:
  TicketMemoryTest() {
    xmlInitParser();
    xmlSetStructuredErrorFunc(nullptr, reinterpret_cast<xmlStructuredErrorFunc>(ignoreError));
    xmlMemSetup(std::free, allocate, reallocate, duplicate);
  }
  ~TicketMemoryTest() override {
    xmlMemSetup(std::free, std::malloc, std::realloc, strdup);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    xmlResetLastError();
  }

  // A ticket of each kind of node. True when every node could be made.
  bool writeTicket(std::string& output) {
    start();
    _xmlNode* first = command("copies", "integer", "<1>", true);
    _xmlNode* parent = group("media", "collection", false);
    _xmlNode* inner = parent != nullptr ? childGroup(parent, "size", "collection") : nullptr;
    _xmlNode* last = inner != nullptr ? childCommand(inner, "x", "integer", "5") : nullptr;
    writer_.serializeTicket(output);
    return first != nullptr && last != nullptr;
  }

  // What was written when one allocation failed.
  void expectWholeOrReported(bool isComplete, const std::string& output, const std::string& whole) {
    const auto lines = log_.take();
    if (isComplete && output == whole) return;
    EXPECT_FALSE(lines.empty());
    if (output.empty()) return;
    EXPECT_NE(readBack(output), nullptr) << output;
    EXPECT_EQ(output.find("value=\"\""), std::string::npos) << output;
  }
};

TEST_F(TicketMemoryTest, Write_OneAllocationFails_IsLoggedAndTheTicketWholeOrEmpty) {
  std::string whole;
  ASSERT_TRUE(writeTicket(whole));
  ASSERT_NE(whole, "");
  log_.take();
  long failures = 0;
  for (bool hasFailed = true; hasFailed; ++failures) {
    SCOPED_TRACE(failures);
    std::string output = "before";
    failingMemory.failAfter(failures);
    const bool isComplete = writeTicket(output);
    hasFailed = failingMemory.hasFailed();
    failingMemory.stop();
    EXPECT_NE(isComplete && output == whole, hasFailed);
    expectWholeOrReported(isComplete, output, whole);
  }
  EXPECT_GT(failures, 10);
}

TEST_F(TicketMemoryTest, Write_OneAllocationOfLibxml2Fails_IsLoggedAndTheTicketWholeOrEmpty) {
  failing = 0;
  allocations = 0;
  std::string whole;
  ASSERT_TRUE(writeTicket(whole));
  const int count = allocations;
  ASSERT_GT(count, 0);
  ASSERT_NE(whole, "");
  log_.take();
  for (int i = 1; i <= count; ++i) {
    SCOPED_TRACE(i);
    failing = i;
    allocations = 0;
    std::string output = "before";
    const bool isComplete = writeTicket(output);
    failing = 0;
    EXPECT_FALSE(isComplete);
    expectWholeOrReported(isComplete, output, whole);
  }
  failing = 0;
  std::string again;
  EXPECT_TRUE(writeTicket(again));
  EXPECT_EQ(again, whole);
}

}  // namespace
