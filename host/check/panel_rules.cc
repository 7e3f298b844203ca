// Panels: the features that people see together.

#include <set>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

void checkPanelMembers(const AdditionSubject& subject, const host::Panel& panel,
                       std::set<std::string>& known, Findings& findings) {
  for (const host::PanelMember& member : panel.members) {
    const std::string name = host::inQuotes(member.feature);
    if (subject.features.find(member.feature) == nullptr) {
      findings.push_back(findingAt(
          subject, Code::kUnknownMember, member.place,
          "panel " + host::inQuotes(panel.name) + " names a feature " + name +
              " that does not exist",
          didYouMean(member.feature, subject.features.names(), "give the name of a feature")));
    } else if (!known.insert(member.feature).second) {
      findings.push_back(findingAt(subject, Code::kRepeatedMember, member.place,
                                   "feature " + name + " is in a panel already",
                                   "remove it from one of the two places"));
    }
  }
}

}  // namespace

void checkPanels(const AdditionSubject& subject, Findings& findings) {
  std::set<std::string> names;
  std::set<std::string> members;
  for (const host::Panel& panel : subject.additions.panels) {
    if (!names.insert(panel.name).second) {
      findings.push_back(findingAt(subject, Code::kRepeatedPanel, panel.place,
                                   "there is a panel " + host::inQuotes(panel.name) + " already",
                                   "give each panel a name of its own"));
    }
    checkPanelMembers(subject, panel, members, findings);
  }
}

}  // namespace driver_feature::check
