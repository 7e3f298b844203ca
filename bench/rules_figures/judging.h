// A sample of the resolutions, judged by z3.
#ifndef BENCH_RULES_FIGURES_JUDGING_H_
#define BENCH_RULES_FIGURES_JUDGING_H_

#include <string>
#include <vector>

#include "bench/rules_figures/subject.h"
#include "support/smt_judge.h"

namespace driver_feature::figures {

class Judging {
 public:
  Judging(std::string z3, std::string script) : z3_(std::move(z3)), script_(std::move(script)) {}

  void ask(Subject& subject, const std::string& file, const PpdChoice& choice,
           const rules::Resolution& resolution);
  void finish();

  long samples() const { return samples_; }
  long mended() const { return mended_; }
  long impossible() const { return impossible_; }
  long withHardware() const { return withHardware_; }
  const std::vector<std::string>& wrong() const { return wrong_; }

 private:
  void begin(Subject& subject, const PpdChoice& choice, bool fixesHardware);
  void forbidAll(Subject& subject, const PpdChoice& choice);
  void demand(Subject& subject, const std::vector<rules::Move>& moves);
  void askLeast(Subject& subject, const PpdChoice& choice, const rules::Resolution& resolution);
  void askReasons(Subject& subject, const PpdChoice& choice, const rules::Resolution& resolution);
  void askHardware(Subject& subject, const PpdChoice& choice, const rules::Resolution& resolution);

  std::string z3_;
  std::string script_;
  std::string about_;
  rules::SmtJudge judge_;
  std::vector<std::string> hardware_;
  long samples_ = 0;
  long mended_ = 0;
  long impossible_ = 0;
  long withHardware_ = 0;
  std::vector<std::string> wrong_;
};

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_JUDGING_H_
