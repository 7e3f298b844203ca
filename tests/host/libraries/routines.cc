// Routines that the descriptions of the tests name.

#include <dlfcn.h>
#include <unistd.h>

#include <csignal>
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

// Change routine: from now on one choice of duplex printing is not shown.
EXPORTED void hideLongEdge() {
  features()
      ->FindFeatureInFeatureList(std::string("Duplex"))
      ->fetchOptionByName(std::string("LongEdge"))
      ->setOptionProperty(std::string("Visibility"), false);
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

// Change routine: sets the feature "B" through what the library exports to C, which
// lets no exception out.
EXPORTED void setOther() {
  void* library = dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
  auto* set = reinterpret_cast<int (*)(std::string&, const char*, int)>(
      dlsym(library, "SetFeatureIntValue"));
  std::string target = "B";
  set(target, "CurrentIntValue", 7);
}

// Output routine that does the same.
EXPORTED void setOtherInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  setOther();
}

// Change routine that throws once the values are restored.
EXPORTED void throwWhenRestored() {
  static int calls = 0;
  if (++calls > 1) throw std::runtime_error("no paper");
}

// Change routines that do not return.
EXPORTED void crash() {
  std::raise(SIGSEGV);
}

EXPORTED void abortProcess() {
  std::abort();
}

// Update callback that prints.
EXPORTED bool printAndAgree() {
  printSomething();
  return true;
}

// Ticket routine: adds nothing.
EXPORTED void writeNodes(DriverFeatureSet* /*set*/, void* /*writer*/, void* /*node*/) {}

// PostScript output routine: bytes that no text function could carry.
EXPORTED void writeBytes(DriverFeatureSet* /*set*/, std::string& output) {
  output += std::string("\0\x80\xFF\r\n\x1A", 6);
}

// Output routine that throws away what others have written.
EXPORTED void replaceOutput(DriverFeatureSet* /*set*/, std::string& output) {
  output = "replaced";
}

// Output routines that do what none should do.
EXPORTED void crashInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  std::raise(SIGSEGV);
}

EXPORTED void exitInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  std::exit(0);
}

EXPORTED void hangInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  while (true) ::pause();
}

EXPORTED void leaveInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  ::_exit(0);
}

EXPORTED void throwInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  throw std::runtime_error("no paper");
}

EXPORTED void throwNumberInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  throw 7;
}

// A variable, not a routine.
EXPORTED int routineCounter = 0;

}  // extern "C"

// An output routine without extern "C": nobody finds it by its name.
EXPORTED void writeOwner(DriverFeatureSet* /*set*/, std::string& output);
void writeOwner(DriverFeatureSet* /*set*/, std::string& output) {
  output += "owner";
}
