// A host that knows the library by exported names and slot numbers alone.
#ifndef TESTS_ABI_RAW_SLOTS_RAW_HOST_H_
#define TESTS_ABI_RAW_SLOTS_RAW_HOST_H_

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "element_tree.h"
#include "raw_call.h"

namespace raw_slots {

// Library, description and master set, made anew for each test. Features:
//
//   Media      "MultiSelect": A4, Letter (current), Legal (not available)
//   Copies     "IntEntry", 1        JobName    "TextEntry", Untitled
//   Zoom       "FloatEntry", 1.5    Separator  "UIOnly"
//   Quality    static group of Resolution ("IntEntry") and Toner ("TextEntry")
//   Exceptions dynamic group, sorted by Page; its template Exception has the
//              members Page ("IntEntry") and Tray ("TextEntry")
class RawHostTest : public ::testing::Test {
 protected:
  RawHostTest();
  ~RawHostTest() override;
  void SetUp() override;

  // An exported function of the library or of the platform.
  template <class Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(address(name));
  }
  void* address(const char* name) const;

  // Slot 3 of the set.
  void* find(const std::string& name) const;
  // Slot 14 of the feature "Media".
  void* option(int position) const;

  // Values through the exported functions. A value that cannot be read fails
  // the test.
  std::string text(std::string target, const char* property) const;
  int integer(std::string target, const char* property) const;
  float number(std::string target, const char* property) const;
  bool flag(std::string target, const char* property) const;

  // Log lines ("3 TEXT") and calls of host routines since the last call:
  // "update", "change", "sort".
  std::vector<std::string> takeEvents();

  void* set_ = nullptr;

 private:
  Element description_;
};

// An attribute map that the platform builds in raw memory, while a test runs.
class RawMap {
 public:
  using Entries = std::initializer_list<std::pair<const char*, const char*>>;

  explicit RawMap(Entries entries);
  ~RawMap();
  RawMap(const RawMap&) = delete;
  RawMap& operator=(const RawMap&) = delete;

  void* get() { return memory_; }

 private:
  alignas(std::max_align_t) unsigned char memory_[256] = {};
};

}  // namespace raw_slots

#endif  // TESTS_ABI_RAW_SLOTS_RAW_HOST_H_
