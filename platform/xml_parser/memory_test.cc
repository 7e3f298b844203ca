// Memory that runs out, at each of libxml2's allocations in turn.

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

#include "ticket_test.h"

namespace {

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
    _xmlNode* first = command("copies", "integer", "1", true);
    _xmlNode* parent = group("media", "collection", false);
    _xmlNode* inner = parent != nullptr ? childGroup(parent, "size", "collection") : nullptr;
    _xmlNode* last = inner != nullptr ? childCommand(inner, "x", "integer", "5") : nullptr;
    writer_.serializeTicket(output);
    return first != nullptr && last != nullptr;
  }
};

TEST_F(TicketMemoryTest, Write_OneAllocationFails_IsLoggedAndTheTicketWholeOrEmpty) {
  failing = 0;
  allocations = 0;
  std::string whole;
  ASSERT_TRUE(writeTicket(whole));
  const int count = allocations;
  ASSERT_GT(count, 20);
  ASSERT_NE(whole, "");
  log_.take();
  for (int i = 1; i <= count; ++i) {
    failing = i;
    allocations = 0;
    std::string output = "before";
    const bool isComplete = writeTicket(output);
    failing = 0;
    const auto lines = log_.take();
    if (isComplete && output == whole) continue;
    EXPECT_FALSE(lines.empty()) << "allocation " << i;
    if (output.empty()) continue;
    EXPECT_NE(readBack(output), nullptr) << "allocation " << i << '\n' << output;
    EXPECT_EQ(output.find("value=\"\""), std::string::npos) << "allocation " << i;
  }
  failing = 0;
  std::string again;
  EXPECT_TRUE(writeTicket(again));
  EXPECT_EQ(again, whole);
}

}  // namespace
