#include "filter/job_frame.h"

#include "filter/feature_key.h"

namespace driver_feature {

namespace {

constexpr const char* kUniversalExit = "\x1b%-12345X";

// The beginning of the PPD's job-control language with what libcups adds to
// it for this job; empty when it writes none.
std::string beginOf(const QueuePpd& ppd, const FilterArguments& arguments) {
  const std::string whole =
      ppd.jobBegin(arguments.job, harmless(arguments.user), harmless(arguments.title));
  const std::string rest = ppd.jclOptions() + ppd.jclToPostScript();
  if (!whole.ends_with(rest)) return "";
  return whole.substr(0, whole.size() - rest.size());
}

}  // namespace

JobFrame frameOf(const Model& model, const QueuePpd* ppd, const FilterArguments& arguments,
                 const std::string& pjl) {
  const auto end = pjlOfTrue(model, "JCLEnd");
  JobFrame frame{pjl, end.value_or(pjl.empty() ? "" : kUniversalExit)};
  const auto begin = pjlOfTrue(model, "JCLBegin");
  if (ppd == nullptr || !begin || begin->empty() || *begin != ppd->jclBegin()) return frame;
  const std::string ownBegin = beginOf(*ppd, arguments);
  if (ownBegin.empty() || !pjl.starts_with(*begin)) return frame;
  frame.header = ownBegin + pjl.substr(begin->size());
  frame.trailer = ppd->jobEnd();
  return frame;
}

std::string copiesText(int copies) {
  if (copies <= 1) return "";
  const std::string count = std::to_string(copies);
  return "/languagelevel where { pop languagelevel } { 1 } ifelse 2 ge\n"
         "{ 1 dict dup /NumCopies " +
         count + " put setpagedevice }\n{ userdict /#copies " + count + " put } ifelse\n";
}

}  // namespace driver_feature
