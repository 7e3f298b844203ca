// Routines that the descriptions of the tests name.

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include "model/core_feature_set.h"

class DriverFeatureSet;

#define EXPORTED __attribute__((visibility("default")))

namespace {

// The library is loaded already, but not globally.
CoreFeatureSet* features() {
  void* library = dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
  if (library == nullptr) return nullptr;
  auto* getFeatures = reinterpret_cast<void* (*)()>(dlsym(library, "GetMasterFeatureList"));
  return static_cast<CoreFeatureSet*>(getFeatures());
}

}  // namespace

extern "C" {

EXPORTED bool testUpdate() {
  return true;
}

EXPORTED bool endProcess() {
  std::exit(7);
  return true;
}

// Change routine: from now on there is no duplex printing.
EXPORTED void forbidDuplex() {
  features()
      ->FindFeatureInFeatureList(std::string("Duplex"))
      ->setFeatureProperty(std::string("Sensitivity"), false);
}

// Change routine: whatever happens, the scale is 0 afterwards.
EXPORTED void resetScale() {
  features()
      ->FindFeatureInFeatureList(std::string("Scale"))
      ->setFeatureProperty(std::string("CurrentIntValue"), 0);
}

// Change routine: prints, as a careless routine does.
EXPORTED void printSomething() {
  std::puts("printed by puts");
  std::cout << "printed by a stream" << '\n';
}

// Change routine: throws what is not derived from std::exception.
EXPORTED void throwNumber() {
  throw 7;
}

// Change routine: throws a std::exception.
EXPORTED void throwException() {
  throw std::runtime_error("no paper");
}

// Update callback that prints.
EXPORTED bool printAndAgree() {
  printSomething();
  return true;
}

// PostScript output routine: bytes that no text function could carry.
EXPORTED void writeBytes(DriverFeatureSet* /*set*/, std::string& output) {
  output += std::string("\0\x80\xFF\r\n\x1A", 6);
}

}  // extern "C"
