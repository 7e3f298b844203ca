// Whether settings that are made on a description just loaded lead to the same state.
#ifndef HOST_PAGE_TRIAL_H_
#define HOST_PAGE_TRIAL_H_

#include <string>
#include <vector>

#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/page/journal.h"
#include "host/page/notices.h"
#include "host/page/outputs.h"
#include "host/page/pristine_copy.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"

namespace driver_feature::page {

// What is equal for equal states: the outputs; the values and what can be set.
struct Digest {
  std::string outputs;
  std::string settings;

  bool operator==(const Digest&) const = default;
};

Digest digestOf(const Catalog& catalog, const std::vector<Output>& outputs);

// Asks a pristine copy, whose work is reach().
Journal::Match tryIn(PristineCopy& pristine, const PresentSettings& present, const Digest& wanted);

// Makes the settings of a question as `emit` does. Returns what state they lead to;
// an empty text when `emit` refuses them.
std::string reach(host::Session& session, const Catalog& catalog, host::RuleKeeper& keeper,
                  Notices& notices, const std::string& question);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_TRIAL_H_
