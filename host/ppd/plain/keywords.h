// Names of options and choices, which libcups compares without regard to case.
#ifndef HOST_PPD_PLAIN_KEYWORDS_H_
#define HOST_PPD_PLAIN_KEYWORDS_H_

#include <string_view>

namespace driver_feature::ppd {

// Less than, equal to or greater than 0; ASCII letters in either case are the
// same.
int compareKeywords(std::string_view left, std::string_view right);

inline bool equalKeywords(std::string_view left, std::string_view right) {
  return left.size() == right.size() && compareKeywords(left, right) == 0;
}

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_KEYWORDS_H_
