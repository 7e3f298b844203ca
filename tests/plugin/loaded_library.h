// The library as a host has it: loaded by its path, reached through names and
// virtual tables alone. The end of its life unloads it, so that every test
// starts with a library that has just been loaded.
#ifndef TESTS_PLUGIN_LOADED_LIBRARY_H_
#define TESTS_PLUGIN_LOADED_LIBRARY_H_

#include <dlfcn.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "model/core_feature_set.h"
#include "support/address_checks.h"

#include "XMLDocument.h"

#if defined(ADDRESSES_ARE_CHECKED)
#include <sanitizer/lsan_interface.h>
#endif

namespace driver_feature::testing {

// While it lives, the check for leaks ignores what is allocated. For objects of
// an unloaded library the check can name no place, so that it could not
// distinguish those that are never freed by design from leaks.
// The tests that link the library's objects, and the program, are checked.
class LeakCheckPause {
 public:
#if defined(ADDRESSES_ARE_CHECKED)
  LeakCheckPause() {
    __lsan_disable();
  }
  ~LeakCheckPause() {
    __lsan_enable();
  }
#else
  LeakCheckPause() = default;
#endif
  LeakCheckPause(const LeakCheckPause&) = delete;
  LeakCheckPause& operator=(const LeakCheckPause&) = delete;
};

class LoadedLibrary {
 public:
  LoadedLibrary() : handle_(dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) problem_ = dlerror();
  }
  ~LoadedLibrary() {
    if (handle_ != nullptr) dlclose(handle_);
  }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // Empty when the library has been loaded.
  const std::string& problem() const { return problem_; }

  // The address of an exported name, or null.
  void* find(const std::string& name) const { return dlsym(handle_, name.c_str()); }

  // An exported function; the test fails when there is none.
  template <class Function>
  Function* function(const std::string& name) const {
    void* address = find(name);
    EXPECT_NE(address, nullptr) << name;
    return reinterpret_cast<Function*>(address);
  }

  // The text of a record of the plug-in.
  std::string record(const std::string& name) const {
    auto* pointer = static_cast<const char* const*>(find(name));
    return pointer != nullptr && *pointer != nullptr ? *pointer : "(no record)";
  }

  // The handler, by the name that the record holds.
  int load(const std::string& xml) {
    XMLProblem problem;
    document_ = XMLDocument::parseText(xml, "test", problem);
    EXPECT_NE(document_, nullptr) << problem.text;
    if (!document_) return -1;
    return function<int(void*)>(record("_KirvoNDTagHandlerFunction"))(document_->root());
  }

  CoreFeatureSet& set() const {
    return *static_cast<CoreFeatureSet*>(function<void*()>("GetMasterFeatureList")());
  }

 private:
  [[maybe_unused]] LeakCheckPause pause_;
  void* handle_;
  std::string problem_;
  std::unique_ptr<XMLDocument> document_;
};

// A fixture whose tests have a library that has just been loaded.
class LoadedLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(library_.problem(), ""); }

  LoadedLibrary library_;
};

}  // namespace driver_feature::testing

#endif  // TESTS_PLUGIN_LOADED_LIBRARY_H_
