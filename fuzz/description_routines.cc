#include "fuzz/description_routines.h"

#include <cstring>
#include <string>

#include "Symbols.h"
#include "VORNWriter.h"

class DriverFeatureSet;

namespace driver_feature::fuzz {

namespace {

Writing current = Writing::kNothing;

bool update() {
  return true;
}

int load(void* /*element*/, int mode) {
  return mode;
}

void change() {}

void writeText(DriverFeatureSet* /*set*/, std::string& text) {
  if (current == Writing::kText) text += "routine";
}

void writeTicket(DriverFeatureSet* /*set*/, VORNWriter* writer, _xmlNode* parent) {
  if (current != Writing::kTicket) return;
  std::string name = "routine";
  std::string syntax = "text";
  _xmlNode* group = parent != nullptr ? writer->createChildGroupCommandNode(parent, name, syntax)
                                      : writer->createGroupCommandNode(name, syntax, true);
  writer->createChildCommandNode(group, name, syntax, name);
}

int sort() {
  return 0;
}

struct Routine {
  const char* name;
  void* address;
};

template <class Function>
void* addressOf(Function* function) {
  return reinterpret_cast<void*>(function);
}

}  // namespace

void setWriting(Writing writing) {
  current = writing;
}

void* findRoutine(const char* name) {
  static const Routine kRoutines[] = {
      {"FuzzUpdate", addressOf(&update)},      {"FuzzLoad", addressOf(&load)},
      {"FuzzChange", addressOf(&change)},      {"FuzzText", addressOf(&writeText)},
      {"FuzzTicket", addressOf(&writeTicket)}, {"FuzzSort", addressOf(&sort)},
  };
  for (const Routine& routine : kRoutines) {
    if (std::strcmp(routine.name, name) == 0) return routine.address;
  }
  return nullptr;
}

}  // namespace driver_feature::fuzz

// Takes the platform's place in this program.
extern "C" __attribute__((visibility("default"))) void* FetchSymbol(const char* name) {
  return driver_feature::fuzz::findRoutine(name);
}
