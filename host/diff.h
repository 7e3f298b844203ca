// Comparing two settings files by what they change.
#ifndef HOST_DIFF_H_
#define HOST_DIFF_H_

#include <string>

#include "host/session.h"

namespace driver_feature {

struct DiffRequest {
  std::string first;  // Settings files.
  std::string second;
  bool json = false;
  bool allowControlCharacters = false;
};

inline constexpr int kSame = 0;
inline constexpr int kDifferent = 1;

// Loads the description with the one settings file and with the other, each in
// a process of its own, and prints how the values, the records and the three
// outputs differ. Answers the program's exit status: kSame, kDifferent, or
// kUnusable when the comparison could not be made or printed.
int diff(const SessionRequest& sessionRequest, const DiffRequest& request);

}  // namespace driver_feature

#endif  // HOST_DIFF_H_
