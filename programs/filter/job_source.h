// Where the bytes of a job come from.
#ifndef PROGRAMS_FILTER_JOB_SOURCE_H_
#define PROGRAMS_FILTER_JOB_SOURCE_H_

#include <array>
#include <string>
#include <string_view>

#include "host/base/result.h"

namespace driver_feature::filter {

class JobSource {
 public:
  // Reads the file, or standard input when the name is empty.
  explicit JobSource(const std::string& file);
  ~JobSource();
  JobSource(const JobSource&) = delete;
  JobSource& operator=(const JobSource&) = delete;

  // The next bytes; none at the end, after a failure and when the job is
  // cancelled. A failure is stored in `result`, which stays as it is otherwise.
  std::string_view read(host::Result<>& result);

 private:
  std::string name_;
  int descriptor_;
  int error_;  // The error number of a failure.
  std::array<char, 65536> buffer_;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_JOB_SOURCE_H_
