// Calls of an operation by its number in an object's virtual table, as a host
// makes them that was compiled elsewhere. On x86 and x86-64 a member function
// takes its object as the first ordinary argument.
#ifndef TESTS_ABI_RAW_SLOTS_RAW_CALL_H_
#define TESTS_ABI_RAW_SLOTS_RAW_CALL_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

namespace raw_slots {

using Text = const std::string&;

// The object's first word: the address of the entry of slot 0.
inline void** tableOf(void* object) {
  return *static_cast<void***>(object);
}

// Calls the operation at `slot`. The types of the arguments are stated, never
// deduced: they are those of the operation's signature.
//
//   callSlot<bool, Text, int>(feature, 1, "CurrentIntValue", 3)
template <class Result, class... Arguments>
Result callSlot(void* object, std::size_t slot, std::type_identity_t<Arguments>... arguments) {
  using Function = Result (*)(void*, Arguments...);
  return reinterpret_cast<Function>(tableOf(object)[slot])(object,
                                                           static_cast<Arguments>(arguments)...);
}

// The flags "Sensitivity" and "Visibility", which follow the first word. Read
// as a byte, so that the test sees what is in memory.
inline int flagAt(const void* object, std::size_t offset) {
  unsigned char byte = 0;
  std::memcpy(&byte, static_cast<const unsigned char*>(object) + offset, 1);
  return byte;
}

inline int sensitiveFlag(const void* object) {
  return flagAt(object, sizeof(void*));
}

inline int visibleFlag(const void* object) {
  return flagAt(object, sizeof(void*) + 1);
}

}  // namespace raw_slots

#endif  // TESTS_ABI_RAW_SLOTS_RAW_CALL_H_
