// What all rules on additions share, and what the reading of them has found.

#include "host/check/addition_rules.h"

#include <cstring>

#include "host/base/text.h"
#include "host/description/addition_reader.h"

namespace driver_feature::check {

namespace {

struct CauseRow {
  const char* cause;
  Code code;
};

constexpr CauseRow kCauses[] = {
    {host::kUnknownElementCause, Code::kAdditionElement},
    {host::kUnknownAttributeCause, Code::kAdditionAttribute},
    {host::kMissingAttributeCause, Code::kIncompleteAddition},
    {host::kNoNumberCause, Code::kNoNumber},
    {host::kUnreadableCause, Code::kUnreadableBeside},
    {host::kConditionFormCause, Code::kConditionForm},
    {host::kNoConditionCause, Code::kNoCondition},
    {host::kTextEntryCause, Code::kTextForNothing},
    {host::kSecondMediaCause, Code::kUnknownMedia},
};

Code codeOf(const std::string& cause) {
  for (const CauseRow& row : kCauses) {
    if (cause == row.cause) return row.code;
  }
  return Code::kUnreadableBeside;
}

using AdditionRule = void (*)(const AdditionSubject& subject, Findings& findings);

constexpr AdditionRule kAdditionRules[] = {&checkReading,      &checkRules,   &checkHardware,
                                           &checkTranslations, &checkPresets, &checkPanels,
                                           &checkMedia};

}  // namespace

Finding findingAt(const AdditionSubject& subject, Code code, const host::SourcePlace& place,
                  std::string sentence, std::string remedy) {
  Finding finding{code, place.position, std::move(sentence), std::move(remedy), {}};
  if (place.file != subject.document.path()) finding.file = place.file;
  return finding;
}

void checkReading(const AdditionSubject& subject, Findings& findings) {
  for (const host::Problem& problem : subject.additions.problems) {
    // What is missing in the machine is not a fault of the description; the text
    // ends with what to do.
    std::string text = problem.text;
    std::string remedy = problem.remedy;
    const std::size_t end = text.rfind("; ");
    if (remedy.empty() && end != std::string::npos) {
      remedy = text.substr(end + 2);
      text.resize(end);
    }
    findings.push_back(
        findingAt(subject, codeOf(problem.cause), {problem.file, problem.position}, text, remedy));
  }
}

Findings applyAdditionRules(const AdditionSubject& subject) {
  Findings findings;
  for (const AdditionRule rule : kAdditionRules) rule(subject, findings);
  for (Finding& finding : findings) {
    finding.sentence = host::spellOutInvisible(finding.sentence);
    finding.remedy = host::spellOutInvisible(finding.remedy);
  }
  return findings;
}

}  // namespace driver_feature::check
