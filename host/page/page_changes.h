// Changes that a page asks for: made as a whole, or not at all.
#ifndef HOST_PAGE_PAGE_CHANGES_H_
#define HOST_PAGE_PAGE_CHANGES_H_

#include <functional>
#include <string>
#include <vector>

#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/setting.h"

namespace driver_feature::page {

struct Outcome {
  bool isMade = true;
  std::string problem;            // Why nothing has changed.
  std::string feature;            // At which the problem is, when it is one.
  std::vector<std::string> also;  // What rules have changed as well, a line for each.
  std::vector<std::string> lost;  // What could not be made and was left out.

  static Outcome refusal(const host::Problem& problem, const std::string& feature = "");
};

class PageChanges {
 public:
  // The parts must outlive this object. `mayCrash` says that the description names
  // routines of libraries; then `use`, what is done with the model after each
  // change, is tried with it. The features `lasting` keep their values when the
  // defaults are set.
  PageChanges(host::Session& session, const Catalog& catalog, host::RuleKeeper& keeper,
              bool mayCrash, std::function<void()> use, std::vector<std::string> lasting);

  // Sets the features in this order, as `emit` does.
  Outcome set(const std::vector<host::Setting>& settings, host::RuleConduct conduct);

  // Sets the defaults first. With `isLenient`, what is refused is left out.
  Outcome open(const PresentSettings& present, host::RuleConduct conduct, bool isLenient);

  // The lines of a settings file.
  Outcome openText(const std::string& text);

  // Those of a preset, whose settings become the newest ones.
  Outcome preset(const std::string& name, const std::vector<host::Setting>& settings,
                 host::RuleConduct conduct);

  // The default values, and no records.
  Outcome reset();

  // Makes all that `work` does, or none of it.
  using Work = std::function<Outcome()>;
  Outcome make(const Work& work);

 private:
  Outcome tried(const Work& work);
  Outcome setAll(const std::vector<host::Setting>& settings, bool isLenient);
  Outcome addRecords(const std::vector<PageRecord>& records, bool isLenient);
  Outcome judge(host::RuleConduct conduct, Outcome outcome);
  void mendOrLeaveOut(const std::vector<host::Setting>& settings, Outcome& outcome);
  void restoreDefaults();
  void noteChangedByRoutines();
  void putBack(const std::vector<std::string>& values, const std::vector<std::string>& set);
  std::vector<std::string> values() const;

  host::Session& session_;
  const Catalog& catalog_;
  host::RuleKeeper& keeper_;
  bool mayCrash_;
  std::function<void()> use_;
  std::vector<std::string> lasting_;
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PAGE_CHANGES_H_
