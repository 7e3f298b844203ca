#include "host/session/routine_texts.h"

#include <algorithm>

#include "host/session/routine_calls.h"

namespace driver_feature::host {

namespace {

RoutineTexts* current = nullptr;

using TextRoutine = void (*)(void* set, void* text);

}  // namespace

RoutineTexts::RoutineTexts() {
  current = this;
  exchangeTextRoutines(&RoutineTexts::exchange);
}

RoutineTexts::~RoutineTexts() {
  exchangeTextRoutines(nullptr);
  current = nullptr;
}

// The library calls a routine right after it has looked it up.
void* RoutineTexts::exchange(const char* name, void* routine) {
  current->name_ = name;
  current->routine_ = routine;
  return reinterpret_cast<void*>(&RoutineTexts::call);
}

void RoutineTexts::call(void* set, void* text) {
  const auto routine = reinterpret_cast<TextRoutine>(current->routine_);
  const std::string& output = *static_cast<std::string*>(text);
  const std::size_t before = output.size();
  // Calls of other routines meanwhile come after it.
  const std::size_t number = current->calls_.size();
  current->calls_.push_back({current->name_, before, ""});
  routine(set, text);
  if (current == nullptr) return;
  current->calls_[number].added = output.substr(std::min(before, output.size()));
}

}  // namespace driver_feature::host
