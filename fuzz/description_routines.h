// The routines that descriptions of the fuzzer may name. No others are found:
// a name of the C library's would be called with arguments that it does not
// take.
//
//   FuzzUpdate FuzzLoad FuzzChange FuzzText FuzzTicket FuzzSort
//
// A description may name one where another kind belongs. So a routine looks at
// its arguments only while the library writes what they belong to.
#ifndef FUZZ_DESCRIPTION_ROUTINES_H_
#define FUZZ_DESCRIPTION_ROUTINES_H_

namespace driver_feature::fuzz {

enum class Writing { kNothing, kText, kTicket };

// What the library is about to write.
void setWriting(Writing writing);

// The address of the routine of that name, or null.
void* findRoutine(const char* name);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_DESCRIPTION_ROUTINES_H_
