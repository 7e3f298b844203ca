#include "host/ppd/queue/job_end_lines.h"

namespace driver_feature::ppd {

std::vector<std::string> jobEndLines(ppd_file_t& ppd) {
  constexpr const char* kKeyword = "DriverFeatureEndOfFile";
  const bool endsSo = ppd.jcl_end == nullptr && ppd.num_filters == 0;
  if (!endsSo && ppdFindAttr(&ppd, kKeyword, nullptr) == nullptr) return {};
  return {std::string("*") + kKeyword + ": \"true\""};
}

}  // namespace driver_feature::ppd
