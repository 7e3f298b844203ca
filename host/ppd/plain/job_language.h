// What libcups makes of a PPD's texts in job-control language.
#ifndef HOST_PPD_PLAIN_JOB_LANGUAGE_H_
#define HOST_PPD_PLAIN_JOB_LANGUAGE_H_

#include <string>
#include <string_view>

namespace driver_feature::ppd {

// A value of a PPD with its bytes in hexadecimal digits (<1B>) decoded.
std::string decodedValue(std::string_view value);

// How a job begins, up to the options' commands. Where the text `begin` is PJL,
// the job gets a name and a user in it; both must be plain ASCII without
// quotation marks.
std::string jobBeginOf(std::string_view begin, int job, const std::string& user,
                       const std::string& title);

// How it ends.
std::string jobEndOf(std::string_view end);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_JOB_LANGUAGE_H_
