#include "host/session/routine_calls.h"

#include <sys/mman.h>
#include <sys/wait.h>

#include <cstring>
#include <exception>
#include <map>
#include <new>
#include <set>
#include <utility>

#include "AttributeMap.h"
#include "Symbols.h"
#include "XMLDocument.h"

#include "host/base/text.h"
#include "host/description/xml_element.h"
#include "host/session/routine_look_up.h"

namespace driver_feature::host {

namespace {

RoutineRecord ownRecord;
RoutineRecord* currentRecord = &ownRecord;

template <std::size_t kSize>
void store(std::array<char, kSize>& target, const char* text) {
  std::strncpy(target.data(), text, kSize - 1);
  target[kSize - 1] = '\0';
}

// Notes a routine while it runs; routines may lead to calls of others. Nothing
// is put back when the process ends meanwhile.
class Running {
 public:
  explicit Running(const char* name) : outer_(currentRecord->running) {
    store(currentRecord->running, name);
  }
  ~Running() { currentRecord->running = outer_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  std::array<char, 256> outer_;
};

// The innermost routine has thrown; those around it only pass the exception on.
void noteThrow(const char* name, const char* text) {
  if (currentRecord->thrower.front() != '\0') return;
  store(currentRecord->thrower, name);
  store(currentRecord->thrown, text);
}

// The functions that the feature library gets in place of routines with this
// signature. A function does not know what it is called for, so each routine
// has one of its own. Routines beyond the last are called without a note.
template <class Result, class... Arguments>
class Callers {
 public:
  static void* callerOf(const char* name, void* address) {
    for (std::size_t i = 0; i < kCount; ++i) {
      if (slots[i].address == nullptr) slots[i] = {::strdup(name), address};
      if (slots[i].address != address || std::strcmp(slots[i].name, name) != 0) continue;
      return reinterpret_cast<void*>(kFunctions[i]);
    }
    return address;
  }

 private:
  using Function = Result (*)(Arguments...);
  static constexpr std::size_t kCount = 64;

  struct Slot {
    const char* name = nullptr;  // Never freed: the feature library keeps the function.
    void* address = nullptr;
  };
  static inline std::array<Slot, kCount> slots;

  template <std::size_t kIndex>
  static Result call(Arguments... arguments) {
    const Slot& slot = slots[kIndex];
    const Running running(slot.name);
    try {
      return reinterpret_cast<Function>(slot.address)(arguments...);
    } catch (const std::exception& error) {
      noteThrow(slot.name, error.what());
      throw;
    } catch (...) {
      noteThrow(slot.name, "");
      throw;
    }
  }

  template <std::size_t... kIndices>
  static constexpr std::array<Function, kCount> functions(std::index_sequence<kIndices...>) {
    return {&call<kIndices>...};
  }
  static constexpr std::array<Function, kCount> kFunctions =
      functions(std::make_index_sequence<kCount>());
};

using FindCaller = void* (*)(const char* name, void* address);

// What an attribute names, by its signature. The pointers are passed on as they
// are.
struct RoutineAttribute {
  std::string name;
  FindCaller findCaller;
};

constexpr FindCaller kTextCaller = &Callers<void, void*, void*>::callerOf;

const std::array<RoutineAttribute, 7>& routineAttributes() {
  static const auto* const kAttributes = new std::array<RoutineAttribute, 7>{{
      {"DefaultCallbackHandler", &Callers<bool>::callerOf},
      {"LoadVORNCallbackHandler", &Callers<int, void*, int>::callerOf},
      {"AddCallbackRoutine", &Callers<void>::callerOf},
      {"AddPJLCallbackRoutine", kTextCaller},
      {"AddPSCallbackRoutine", kTextCaller},
      {"AddVORNCallbackRoutine", &Callers<void, void*, void*, void*>::callerOf},
      {"SortFunctionName", &Callers<int, void*, void*>::callerOf},
  }};
  return *kAttributes;
}

using RoutineUses = std::map<std::string, FindCaller, std::less<>>;

// By name. A name that is used with two signatures has none.
RoutineUses& routineUses() {
  static auto* const kUses = new RoutineUses;  // Outlives exit handlers.
  return *kUses;
}

// The names of all routines that write texts, those of the program included.
std::set<std::string, std::less<>>& textRoutines() {
  static auto* const kNames = new std::set<std::string, std::less<>>;
  return *kNames;
}

TextRoutineExchange exchangeText = nullptr;

// Reads the attributes of one element after another into `attributes`.
template <class Visit>
void forEachNamed(void* element, AttributeMap& attributes, const Visit& visit) {
  attributes.clear();
  pParserInstance->attributes(element, attributes);
  for (const RoutineAttribute& attribute : routineAttributes()) {
    std::string name;
    if (!attributes.loadMapVariable(attribute.name, name, nullptr) || name.empty()) continue;
    visit(element, attribute, name);
  }
  if (tagOf(element) == "Feature") return;  // Options name no routines.
  forEachChild(element, [&](void* child) { forEachNamed(child, attributes, visit); });
}

void* notedRoutine(const char* name, void* address) {
  const auto use = routineUses().find(name);
  if (use == routineUses().end() || use->second == nullptr) return address;
  return use->second(name, address);
}

void* findCaller(const char* name, void* address) {
  void* const routine = notedRoutine(name, address);
  const bool isExchanged = exchangeText != nullptr && textRoutines().contains(name);
  return isExchanged ? exchangeText(name, routine) : routine;
}

std::string nameOf(void* element) {
  AttributeMap attributes;
  pParserInstance->attributes(element, attributes);
  std::string name;
  const bool isNamed = attributes.loadMapVariable("Name", name, nullptr);
  return isNamed ? inQuotes(name) : "<" + tagOf(element) + ">";
}

}  // namespace

SharedRoutineRecord::SharedRoutineRecord()
    : memory_(::mmap(nullptr, sizeof(RoutineRecord), PROT_READ | PROT_WRITE,
                     MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
  if (memory_ == MAP_FAILED) throw std::bad_alloc();
  record_ = new (memory_) RoutineRecord;
  currentRecord = record_;
}

SharedRoutineRecord::~SharedRoutineRecord() {
  currentRecord = &ownRecord;
  ::munmap(memory_, sizeof(RoutineRecord));
}

const RoutineRecord& routineRecord() {
  return *currentRecord;
}

void clearRoutineRecord() {
  *currentRecord = RoutineRecord();
}

Problems noteRoutineCalls(void* description, const std::string& file) {
  Problems problems;
  routineUses().clear();
  textRoutines().clear();
  AttributeMap attributes;
  forEachNamed(description, attributes,
               [&](void* element, const RoutineAttribute& attribute, const std::string& name) {
                 const RoutineLookUp found = lookUpRoutine(name);
                 const std::string objection = objectionTo(found);
                 if (!objection.empty()) {
                   problems.push_back({Problem::Kind::kNotLoaded,
                                       inQuotes(name) + ", the " + attribute.name + " of " +
                                           nameOf(element) + ", " + objection,
                                       "name a function of a library given with --callbacks",
                                       "",
                                       file,
                                       {XMLDocument::lineOf(element), 0}});
                 }
                 if (attribute.findCaller == kTextCaller) textRoutines().insert(name);
                 if (found.isOfProgram) return;
                 const auto [use, isNew] = routineUses().emplace(name, attribute.findCaller);
                 if (!isNew && use->second != attribute.findCaller) use->second = nullptr;
               });
  SetSymbolHandler(&findCaller);
  return problems;
}

void exchangeTextRoutines(TextRoutineExchange exchange) {
  exchangeText = exchange;
}

std::string describeRoutineEnd(const RoutineRecord& record, int status) {
  const std::string name = record.running.data();
  if (name.empty()) return "";
  const std::string routine = "the routine " + inQuotes(name) + " of the description ";
  if (WIFSIGNALED(status)) {
    return routine + "crashed (signal " + std::to_string(WTERMSIG(status)) + ", " +
           ::strsignal(WTERMSIG(status)) + "); correct it";
  }
  return routine + "ended the process with exit status " + std::to_string(WEXITSTATUS(status)) +
         "; let it return";
}

std::string describeThrow(const RoutineRecord& record) {
  const std::string name = record.thrower.data();
  if (name.empty()) return "";
  const std::string text = record.thrown.data();
  return "the routine " + inQuotes(name) + " of the description threw an exception" +
         (text.empty() ? " that is not derived from std::exception" : ": " + text) +
         "; catch it in the routine";
}

Result<> successOfRoutines() {
  const std::string thrown = describeThrow(routineRecord());
  if (thrown.empty()) return {};
  return fail(Problem::Kind::kNotWritten, thrown);
}

}  // namespace driver_feature::host
