// Loads descriptions one after the other in one process.
#ifndef FUZZ_LOADING_H_
#define FUZZ_LOADING_H_

#include <string>

namespace driver_feature::fuzz {

enum class LoadResult {
  kLoaded,
  kEnded,  // The library would have ended the process.
};

// Passes the element to the library. `written` is what it wrote to standard
// error before it ended the process; it does so with status 1 only, anything
// else aborts. A program that uses this is linked with --wrap=exit.
LoadResult loadDescription(void* element, std::string& written);

// Does not return while a description is loaded.
void endLoading(int status);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_LOADING_H_
