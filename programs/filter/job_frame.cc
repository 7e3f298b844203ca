#include "programs/filter/job_frame.h"

#include "programs/filter/feature_key.h"

namespace driver_feature::filter {

namespace {

constexpr const char* kUniversalExit = "\x1b%-12345X";

// The PPD's own end of a job; empty without one.
std::string ownEndOf(const ppd::QueuePpd* ppd) {
  return ppd != nullptr ? ppd->jclEnd() : "";
}

}  // namespace

JobFrame frameOf(const host::Model& model, const ppd::QueuePpd* ppd,
                 const FilterArguments& arguments, const std::string& pjl) {
  const auto end = pjlOfTrue(model, "JCLEnd");
  const auto begin = pjlOfTrue(model, "JCLBegin");
  // As libcups does: without both of them the options' commands would come bare before the
  // job.
  const bool isImported = model.index.groupNamed("Section.JCL") == host::GroupKind::kStatic;
  if (isImported && (!begin || !pjlOfTrue(model, "JCLToPSInterpreter"))) {
    return {"", ppd != nullptr ? ppd->jobEnd() : end.value_or("")};
  }
  if (pjl.empty() && end.value_or("") == ownEndOf(ppd)) {
    return {"", ppd != nullptr && ppd->jclBegin().empty() ? ppd->jobEnd() : ""};
  }
  JobFrame frame{pjl, end.value_or(pjl.empty() ? "" : kUniversalExit)};
  if (ppd == nullptr || !begin || begin->empty() || *begin != ppd->jclBegin()) return frame;
  const std::string ownBegin =
      ppd->jobBegin(arguments.job, harmless(arguments.user), harmless(arguments.title));
  if (ownBegin.empty() || !pjl.starts_with(*begin)) return frame;
  frame.header = ownBegin + pjl.substr(begin->size());
  frame.trailer = ppd->jobEnd();
  return frame;
}

LibcupsFrame libcupsFrameOf(const ppd::QueuePpd& ppd, const FilterArguments& arguments,
                            const JobFrame& frame) {
  LibcupsFrame around;
  around.exitServer = ppd.exitServer();
  around.end = ppd.jobEnd();
  around.replacesEnd = around.end == frame.trailer;
  if (ppd.jobBegin(arguments.job, "", "").empty()) return around;
  // Of a beginning in PJL libcups leaves a line out and puts others after its
  // first command.
  const std::string begin = ppd.jclBegin();
  const std::string pjl = std::string(kUniversalExit) + "@PJL";
  around.begin = begin.starts_with(pjl) ? pjl : begin;
  around.toPostScript = ppd.jclToPostScript();
  around.hasHeaderLike = ppd.hasHeaderLike();
  return around;
}

std::string copiesText(int copies) {
  if (copies <= 1) return "";
  const std::string count = std::to_string(copies);
  return "/languagelevel where { pop languagelevel } { 1 } ifelse 2 ge\n"
         "{ 1 dict dup /NumCopies " +
         count + " put setpagedevice }\n{ userdict /#copies " + count + " put } ifelse\n";
}

}  // namespace driver_feature::filter
