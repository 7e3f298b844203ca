#include <bit>
#include <cstdint>
#include <limits>

#include "fuzz/operations/names.h"
#include "fuzz/operations/program.h"

namespace driver_feature::operations {

namespace {

constexpr std::size_t kLongestMain = 64;
constexpr std::size_t kLongestScript = 3;

// Bytes one after the other; zeros when they are used up.
class ByteReader {
 public:
  ByteReader(const unsigned char* data, std::size_t size) : data_(data), size_(size) {}

  bool atEnd() const { return position_ == size_; }
  unsigned byte() { return atEnd() ? 0U : data_[position_++]; }
  bool flag() { return byte() % 2 == 1; }
  std::uint32_t word() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | byte();
    return value;
  }
  template <class Array>
  auto pick(const Array& choices) {
    return choices[byte() % choices.size()];
  }

 private:
  const unsigned char* data_;
  std::size_t size_;
  std::size_t position_ = 0;
};

// Up to seven bytes as they are: too short to name a harmful routine of the
// process.
std::string rawText(ByteReader& bytes) {
  std::string text;
  for (unsigned left = bytes.byte() % 8; left > 0; --left) {
    text += static_cast<char>(bytes.byte());
  }
  return text;
}

std::string text(ByteReader& bytes) {
  const unsigned choice = bytes.byte();
  if (choice >= 240) return rawText(bytes);
  return kTexts[choice % kTexts.size()];
}

std::string propertyName(ByteReader& bytes) {
  const unsigned choice = bytes.byte();
  if (choice >= 250) return rawText(bytes);
  if (choice >= 110) return kLivelyPropertyNames[choice % kLivelyPropertyNames.size()];
  return kPropertyNames[choice % kPropertyNames.size()];
}

// The value of a text property. A routine's name is looked up in the process
// and its address called: only routines of the right kind may be named.
std::string textValue(ByteReader& bytes, const std::string& name) {
  const unsigned choice = bytes.byte();
  if (name == "AddCallbackRoutine") {
    return choice % 4 == 3 ? "NoSuchRoutine" : kChangeRoutineNames[choice % 2];
  }
  if (name == "SortFunctionName") {
    if (choice % 7 >= kSortRoutineNames.size()) return choice % 7 == 5 ? "" : "NoSuchRoutine";
    return kSortRoutineNames[choice % 7];
  }
  if (name == "AddPSCallbackRoutine" || name == "AddPJLCallbackRoutine") {
    if (choice % 4 == 3) return kTextRoutineName;
  }
  if (name.ends_with("CallbackRoutine")) return choice % 2 == 0 ? "" : "NoSuchRoutine";
  if (name == "PSCommand" || name == "PJLCommand") {
    return choice % 8 == 7 ? "" : kTemplates[choice % kTemplates.size()];
  }
  if (choice >= 240) return rawText(bytes);
  return kTexts[choice % kTexts.size()];
}

int number(ByteReader& bytes) {
  const unsigned choice = bytes.byte();
  if (choice >= 240) return static_cast<int>(bytes.word());
  return kNumbers[choice % kNumbers.size()];
}

float real(ByteReader& bytes) {
  const unsigned choice = bytes.byte();
  if (choice >= 250) return std::bit_cast<float>(bytes.word());
  if (choice >= 240) return std::numeric_limits<float>::quiet_NaN();
  return kReals[choice % kReals.size()];
}

Entries entries(ByteReader& bytes) {
  Entries made;
  for (unsigned left = bytes.byte() % 6; left > 0; --left) {
    std::string name = text(bytes);
    made.emplace_back(std::move(name), text(bytes));
  }
  return made;
}

// Kinds that make deep states come up more often than the rest.
constexpr std::array kLivelyKinds = {
    Kind::kSetText,         Kind::kSetInt,       Kind::kSetFloat,
    Kind::kSetBool,         Kind::kAddRecord,    Kind::kAddRecordWithSort,
    Kind::kLoadRecord,      Kind::kRemoveRecord, Kind::kFeatureControlText,
    Kind::kAddOption,       Kind::kAddMember,    Kind::kApplyConstraint,
    Kind::kFunctionSetText, Kind::kSortList,     Kind::kDetectDuplicate,
    Kind::kRestore,
};

Operation operation(ByteReader& bytes) {
  Operation made;
  const unsigned kind = bytes.byte();
  made.kind = kind < 2 * kKindCount ? static_cast<Kind>(kind % kKindCount)
                                    : kLivelyKinds[kind % kLivelyKinds.size()];
  made.object = bytes.byte();
  made.other = bytes.byte();
  const unsigned flags = bytes.byte();
  made.flag = (flags & 1U) != 0;
  made.secondFlag = (flags & 2U) != 0;
  made.fit = (flags & 12U) != 0;
  made.name = propertyName(bytes);
  made.text = textValue(bytes, made.name);
  made.number = number(bytes);
  if (made.kind >= Kind::kFunctionGetInt && made.kind <= Kind::kFunctionSetText) {
    made.target = text(bytes);
  }
  switch (made.kind) {
    case Kind::kSetFloat:
    case Kind::kFeatureControlFloat:
    case Kind::kGroupControlFloat:
    case Kind::kFunctionSetFloat:
      made.real = real(bytes);
      break;
    case Kind::kAddRecord:
    case Kind::kAddRecordWithSort:
    case Kind::kDetectDuplicate:
    case Kind::kSave:
    case Kind::kRestore:
      made.entries = entries(bytes);
      break;
    default:
      break;
  }
  return made;
}

Script script(ByteReader& bytes) {
  Script made;
  for (std::size_t left = bytes.byte() % (kLongestScript + 1); left > 0; --left) {
    made.push_back(operation(bytes));
  }
  return made;
}

}  // namespace

Program decodeProgram(const unsigned char* data, std::size_t size) {
  ByteReader bytes(data, size);
  Program program;
  const unsigned start = bytes.byte();
  program.creationComplete = (start & 1U) != 0;
  program.changeRoutines = (start & 2U) != 0;
  program.sortRoutine = (start >> 2U) % (kSortRoutineNames.size() + 1);
  for (Script& made : program.scripts) made = script(bytes);
  while (!bytes.atEnd() && program.main.size() < kLongestMain) {
    program.main.push_back(operation(bytes));
  }
  return program;
}

}  // namespace driver_feature::operations
