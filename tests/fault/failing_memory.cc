#include "fault/failing_memory.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

namespace {

using driver_feature::testing::Allocations;
using driver_feature::testing::FailurePlan;
using driver_feature::testing::Persistence;

FailurePlan plan;
bool active = false;
bool failed = false;
int count = 0;

// Counts an allocation of a kind; whether it fails.
bool failsNow(Allocations kind) {
  if (!active) return false;
  if (plan.allocations != Allocations::kAll && plan.allocations != kind) return false;
  const int number = count++;
  const bool fails =
      plan.persistence == Persistence::kOnce ? number == plan.first : number >= plan.first;
  failed = failed || fails;
  return fails;
}

void* allocateOrNull(std::size_t size, Allocations kind) {
  return failsNow(kind) ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* allocateOrThrow(std::size_t size) {
  void* memory = allocateOrNull(size, Allocations::kThatThrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* allocateXml(std::size_t size) {
  return allocateOrNull(size, Allocations::kThatThrow);
}
void* reallocateXml(void* memory, std::size_t size) {
  return failsNow(Allocations::kThatThrow) ? nullptr : std::realloc(memory, size);
}
char* duplicateXml(const char* text) {
  return failsNow(Allocations::kThatThrow) ? nullptr : strdup(text);
}

void ignoreError(void* /*context*/, const xmlError* /*error*/) {}

// From the program's first line on, so that libxml2 gives back what it got.
[[maybe_unused]] const bool kXmlMemoryIsOurs = [] {
  xmlMemSetup(std::free, allocateXml, reallocateXml, duplicateXml);
  xmlInitParser();
  xmlSetStructuredErrorFunc(nullptr, reinterpret_cast<xmlStructuredErrorFunc>(ignoreError));
  return true;
}();

}  // namespace

// Inlined into callers, the pairs would look mismatched to GCC.
#define NOINLINE __attribute__((noinline))

NOINLINE void* operator new(std::size_t size) {
  return allocateOrThrow(size);
}
NOINLINE void* operator new[](std::size_t size) {
  return allocateOrThrow(size);
}
NOINLINE void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocateOrNull(size, Allocations::kThatReturn);
}
NOINLINE void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocateOrNull(size, Allocations::kThatReturn);
}
NOINLINE void operator delete(void* memory) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}

namespace driver_feature::testing {

FailingMemory::FailingMemory(const FailurePlan& next) {
  plan = next;
  failed = false;
  count = 0;
  active = true;
}

FailingMemory::~FailingMemory() {
  active = false;
}

bool memoryHasFailed() {
  return failed;
}

MemoryPause::MemoryPause() : active_(active) {
  active = false;
}

MemoryPause::~MemoryPause() {
  active = active_;
}

}  // namespace driver_feature::testing
