#include "fuzz/operations/memory_window.h"

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <unordered_set>

#include "AttributeMap.h"
#include "Log.h"

namespace {

// The register of allocations must not make any with new itself.
template <class Value>
struct MallocAllocator {
  using value_type = Value;

  MallocAllocator() = default;
  template <class Other>
  explicit MallocAllocator(const MallocAllocator<Other>& /*other*/) {}

  Value* allocate(std::size_t count) {
    auto* place = static_cast<Value*>(std::malloc(count * sizeof(Value)));
    if (place == nullptr) throw std::bad_alloc();
    return place;
  }
  void deallocate(Value* place, std::size_t /*count*/) { std::free(place); }

  bool operator==(const MallocAllocator& /*other*/) const { return true; }
};

using Register =
    std::unordered_set<void*, std::hash<void*>, std::equal_to<>, MallocAllocator<void*>>;

Register made;
bool open = false;

void* allocate(std::size_t size) {
  void* place = std::malloc(size == 0 ? 1 : size);
  if (open && place != nullptr) made.insert(place);
  return place;
}

void* allocateOrThrow(std::size_t size) {
  void* place = allocate(size);
  if (place == nullptr) throw std::bad_alloc();
  return place;
}

void release(void* place) {
  if (open) made.erase(place);
  std::free(place);
}

}  // namespace

// Every form, so that none meets one of the run-time system's.
// clang-format off
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* place) noexcept { release(place); }
void operator delete[](void* place) noexcept { release(place); }
void operator delete(void* place, std::size_t) noexcept { release(place); }
void operator delete[](void* place, std::size_t) noexcept { release(place); }
void operator delete(void* place, const std::nothrow_t&) noexcept { release(place); }
void operator delete[](void* place, const std::nothrow_t&) noexcept { release(place); }
// clang-format on

namespace driver_feature::operations {

MemoryWindow::MemoryWindow() {
  // The platform keeps this text's memory from line to line.
  LogMessageBuffer = std::string(65536, ' ');
  open = true;
}

MemoryWindow::~MemoryWindow() {
  // The platform keeps what the map held that was cleared last.
  AttributeMap().clear();
  open = false;
  for (void* place : made) std::free(place);
  made.clear();
}

}  // namespace driver_feature::operations
