// What one input of the fuzz target asks for: operations on a model, in
// order, and the operations that the host's routines do when they are called.
#ifndef FUZZ_OPERATIONS_PROGRAM_H_
#define FUZZ_OPERATIONS_PROGRAM_H_

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace driver_feature::operations {

// One call. The comment after each lists the fields of Operation that count.
enum class Kind : unsigned char {
  // New objects: name.
  kNewFeature,
  kCopyFeature,  // feature
  kNewOption,
  kNewStaticGroup,
  kNewDynamicGroup,
  // Operations of every object, slots 0 to 14: object, name, a value.
  kSetText,
  kSetInt,
  kSetFloat,
  kSetBool,
  kGetText,
  kGetInt,
  kGetBool,
  kGetFloat,
  kGetType,
  kNumberOfOptions,
  kOptionIndexByName,
  kCurrentOption,
  kOptionByAttribute,
  kOptionByName,
  kOptionByIndex,
  // Features: object.
  kOptionCount,
  kApplyConstraint,
  kFeatureControlText,
  kFeatureControlInt,
  kFeatureControlFloat,
  kFeatureControlBool,
  kFeatureConstraintEmpty,
  kFeatureAddConstraint,
  kFeatureRemoveConstraint,
  kFeatureConstraints,
  kOptionIndexByAttribute,
  kAddOption,  // object, other; no option when flag is set and number is even
  kNextAvailable,
  // Options: object.
  kOptionGetText,
  kOptionGetBool,
  kOptionSetText,
  kOptionSetBool,
  kOptionConstraintEmpty,
  kOptionAddConstraint,
  kOptionRemoveConstraint,
  // Static groups: object.
  kMemberCount,
  kMemberByIndex,
  kAddMember,  // object, other
  kMemberByName,
  // Dynamic groups: object.
  kSetTemplate,  // object, other
  kTemplate,
  kAddRecord,
  kAddRecordWithSort,
  kRecordCount,
  kLoadRecord,
  kRemoveRecord,
  kRemoveAllRecords,
  kDetectDuplicate,
  kSortList,
  kGroupControlText,
  kGroupControlInt,
  kGroupControlFloat,
  kGroupControlBool,
  kGroupSelectionEmpty,
  kGroupSelect,
  kGroupDeselect,
  kGroupSelected,
  // The set.
  kFileFeature,
  kFileStaticGroup,
  kFileDynamicGroup,
  kFeatureCount,
  kFeatureByIndex,
  kFind,
  kFindByAttribute,
  kCreateOption,
  kSerialize,
  kDump,
  kRestoreDefaults,
  kStaticGroupByIndex,
  // Exported functions: target, name, a value.
  kFunctionGetInt,
  kFunctionGetFloat,
  kFunctionGetBool,
  kFunctionGetText,
  kFunctionSetInt,
  kFunctionSetFloat,
  kFunctionSetBool,
  kFunctionSetText,
  kSave,
  kRestore,
  kInstOptHandler,
  kJobTicketHandler,
  kCreationComplete,
  kRegisterUpdate,  // flag: the routine, or null
  kRegisterLoad,    // flag: the routine, or null
  // Everything that can be read of every object.
  kReadAll,
};
inline constexpr int kKindCount = static_cast<int>(Kind::kReadAll) + 1;

using Entries = std::vector<std::pair<std::string, std::string>>;

struct Operation {
  Kind kind = Kind::kReadAll;
  unsigned object = 0;  // A position, taken modulo the number of objects there are.
  unsigned other = 0;
  std::string name{};
  std::string text{};
  std::string target{};
  int number = 0;
  float real = 0;
  bool flag = false;
  bool secondFlag = false;
  // Names and texts of a map. With `fit` the names are instead those of the
  // members of the dynamic group's template.
  Entries entries{};
  bool fit = false;
};

using Script = std::vector<Operation>;

// The host's routines, each with a script of its own.
enum class Routine : unsigned char { kUpdate, kChange0, kChange1, kSort, kLoad };
inline constexpr std::size_t kRoutineCount = 5;

struct Program {
  // How the model is found when the operations begin.
  bool creationComplete = false;
  bool changeRoutines = false;  // "Media" has routine 0 and "Title" routine 1.
  std::size_t sortRoutine = 0;  // The one of "Jobs"; beyond the list: none.
  std::array<Script, kRoutineCount> scripts;
  Script main;
};

// Any bytes make a program.
Program decodeProgram(const unsigned char* data, std::size_t size);

// The kind of output whose text and log lines are not compared, and the text
// that replaces it among the events.
inline constexpr int kTicket = 2;
inline constexpr const char* kTicketText = "a ticket";

// The names under which FetchSymbol finds the host's routines.
inline constexpr std::array<const char*, 2> kChangeRoutineNames = {"OperationsChange0",
                                                                   "OperationsChange1"};
inline constexpr const char* kTextRoutineName = "OperationsWriteText";
enum class SortRule : unsigned char { kByValue, kNeverSwap, kAlwaysSwap, kRandom, kMeddling };
inline constexpr std::array<const char*, 5> kSortRoutineNames = {
    "OperationsSortByValue", "OperationsSortNever", "OperationsSortAlways", "OperationsSortRandom",
    "OperationsSortMeddling"};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_PROGRAM_H_
