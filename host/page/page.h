// A loaded description as a live page sees it: requests in, replies out.
#ifndef HOST_PAGE_PAGE_H_
#define HOST_PAGE_PAGE_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/result.h"
#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/page/journal.h"
#include "host/page/layout.h"
#include "host/page/notices.h"
#include "host/page/outputs.h"
#include "host/page/page_changes.h"
#include "host/page/page_process.h"
#include "host/page/pristine_copy.h"
#include "host/page/state.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"

namespace driver_feature::page {

class Page {
 public:
  // Loads the description. One page per process, as a session. Problems: those of
  // Session::open().
  // `socket` is closed in the copies of the process that last; -1 for none.
  static host::Result<std::unique_ptr<Page>> open(const PageRequest& request, int socket);

  // The reply to a request, both JSON objects. For anything that is not a
  // request, it is {"error": "..."}.
  std::string reply(const std::string& request);

 private:
  bool isOfPrinter() const { return request_.mode == "printer"; }
  Page(std::unique_ptr<host::Session> session, PageRequest request);

  struct Row;  // A kind of request.
  static const Row* rowNamed(const std::string& name);

  Json answer(const Json& request);
  Json model(const Json& request);
  Json state(const Json& request);
  Json plan(const Json& request);
  Json settings(const Json& request);
  Json presetText(const Json& request);
  Json set(const Json& request);
  Json openPresent(const Json& request);
  Json openText(const Json& request);
  Json preset(const Json& request);
  Json reset(const Json& request);
  Json records(const Json& request);

  // The reply to a change: what is different now, or why nothing has changed.
  Json changed(const Outcome& outcome, const std::vector<host::Setting>& wishes);
  Json refused(const Outcome& outcome, const std::vector<host::Setting>& wishes);
  Json error(const host::Problem& problem) const;

  // Takes the present values as the state, and returns the state before.
  Json look(const std::vector<host::Setting>& wishes);
  Json lookAtSettings();
  void useLanguage(const Json& request);
  void noteInJournal(const std::vector<host::Setting>& wishes, const std::vector<Output>& outputs);
  std::vector<host::Setting> changedSettings() const;
  PresentSettings present(const std::vector<host::Setting>& settings) const;
  PresentSettings shownPresent(bool showsMasks) const;
  void addNotices(Json& reply, const host::SecretOutputs& secrets) const;
  Json head() const;
  Outcome carryOut(const PageChanges::Work& work);

  PageRequest request_;
  std::unique_ptr<host::Session> session_;
  Catalog catalog_;
  Layout layout_;
  host::RuleKeeper keeper_;
  Notices notices_;
  PageChanges changes_;
  RuledOut ruledOut_;
  std::string language_;
  Json state_;  // The parts of the last state of which replies hold differences.
  Json whole_;  // The others.
  std::vector<PageRecord> pageRecords_;
  Journal journal_;
  std::vector<std::string> valuesBefore_;  // By the place in the catalog.
  std::optional<PristineCopy> pristine_;   // Where routines may change values.
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PAGE_H_
