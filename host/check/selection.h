// Which codes a report is about.
#ifndef HOST_CHECK_SELECTION_H_
#define HOST_CHECK_SELECTION_H_

#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/check/findings.h"

namespace driver_feature::check {

class Selection {
 public:
  // Each text holds codes or beginnings of codes, separated by commas: "DF3"
  // means all of values. Without any to select, all are selected; those to
  // ignore are left out then. Refused when no code begins so.
  static host::Result<Selection> read(const std::vector<std::string>& select,
                                      const std::vector<std::string>& ignore);

  bool takes(Code code) const;

  // Drops the findings that are not selected.
  void apply(Findings& findings) const;

 private:
  std::vector<std::string> selected_;  // Beginnings, in small letters.
  std::vector<std::string> ignored_;
};

}  // namespace driver_feature::check

#endif  // HOST_CHECK_SELECTION_H_
