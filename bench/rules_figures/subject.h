// The rules of a PPD, in the engine and in libcups.
#ifndef BENCH_RULES_FIGURES_SUBJECT_H_
#define BENCH_RULES_FIGURES_SUBJECT_H_

#include <memory>
#include <string>
#include <vector>

#include "host/ppd/ppd_file.h"
#include "host/rules/resolver.h"

namespace driver_feature::figures {

// A choice of an option, as both sides name it.
struct PpdChoice {
  std::string option;
  std::string choice;
  int feature = 0;
  int value = 0;
  bool isHardware = false;
  // The choice Custom, and those of PageRegion and of options that take several:
  // nobody makes these by themselves in a dialog of today.
  bool isSpecial = false;
};

class Subject {
 public:
  explicit Subject(ppd::PpdPointer ppd);

  ppd_file_t& ppd() { return *ppd_; }
  const host::Rules& rules() const { return rules_; }
  const rules::Domains& domains() const { return domains_; }
  const rules::Tables& tables() const { return *tables_; }
  rules::State& state() { return *state_; }
  rules::Resolver& resolver() { return *resolver_; }
  const std::vector<PpdChoice>& choices() const { return choices_; }
  float tableMicroseconds() const { return tableMicroseconds_; }

  // Marks the defaults on both sides.
  void markDefaults();

  // Takes what is marked in libcups.
  void takeMarks();

  // Whether libcups finds a conflict of the choice, and whether the engine does.
  bool peerFinds(const PpdChoice& choice);
  bool engineFinds(const PpdChoice& choice);

 private:
  void addDomains();
  void addOption(ppd_option_t& option);
  void addChoices();

  ppd::PpdPointer ppd_;
  host::Rules rules_;
  rules::Domains domains_;
  std::unique_ptr<rules::Tables> tables_;
  std::unique_ptr<rules::State> state_;
  std::unique_ptr<rules::Resolver> resolver_;
  std::vector<PpdChoice> choices_;
  float tableMicroseconds_ = 0;
};

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_SUBJECT_H_
