// Carries out sequences of operations on the library and on a reference model
// written for this purpose, and ends the process at the first operation after
// which their hosts have not seen the same: results, values, log lines, calls
// of routines.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/operations/executor.h"
#include "fuzz/operations/memory_window.h"
#include "model/vocabulary.h"

namespace {

using namespace driver_feature::operations;

void print(const char* who, const std::vector<std::string>& events, std::size_t from) {
  std::fprintf(stderr, "%s:\n", who);
  for (std::size_t i = from; i < events.size() && i < from + 6; ++i) {
    std::fprintf(stderr, "  %s\n", events[i].c_str());
  }
}

// The first events that differ, with the three before them.
void explain(const Operation& operation, const std::vector<std::string>& library,
             const std::vector<std::string>& reference) {
  std::size_t first = 0;
  while (first < library.size() && first < reference.size() && library[first] == reference[first]) {
    ++first;
  }
  std::fprintf(stderr, "operation %d on %u and %u, \"%s\", \"%s\", %d: event %d differs\n",
               static_cast<int>(operation.kind), operation.object, operation.other,
               operation.name.c_str(), operation.text.c_str(), operation.number,
               static_cast<int>(first));
  const std::size_t from = first < 3 ? 0 : first - 3;
  print("library", library, from);
  print("reference model", reference, from);
}

// Gives back what both hosts have seen.
std::vector<std::string> carryOut(const Operation& operation, Side& library, Side& reference) {
  library.execute(operation);
  reference.execute(operation);
  const std::vector<std::string> events = library.takeEvents();
  const std::vector<std::string> expected = reference.takeEvents();
  if (events == expected) return events;
  explain(operation, events, expected);
  std::abort();
}

void carryOut(const Program& program) {
  Executor<LibraryModel> library(program);
  Executor<ReferenceModel> reference(program);
  for (const Operation& operation : program.main) carryOut(operation, library, reference);
  carryOut(Operation{.kind = Kind::kReadAll}, library, reference);
  for (const int pdlType : {0, 1}) {
    carryOut({.kind = Kind::kSerialize, .number = pdlType}, library, reference);
  }
  // What the records hold shows when they are loaded into the template.
  for (unsigned group = 0; group < 3; ++group) {
    for (int record = 0; record < 8; ++record) {
      const Operation load = {.kind = Kind::kLoadRecord, .object = group, .number = record};
      if (carryOut(load, library, reference).back() == "null") break;
      for (unsigned member = 0; member < 12; ++member) {
        carryOut({.kind = Kind::kGetText, .object = member, .name = "ValueString"}, library,
                 reference);
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The library keeps the texts of these names, which outlive the window.
  driver_feature::nameText(driver_feature::Property::kName);
  const MemoryWindow window;
  carryOut(decodeProgram(data, size));
  return 0;
}
