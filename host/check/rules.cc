#include "host/check/rules.h"

#include "AttributeMap.h"
#include "Log.h"

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/log.h"

namespace driver_feature::check {

namespace {

using Rule = void (*)(const host::Element& description, Findings& findings);

// checkLoad() comes first: its findings keep the order of the load.
constexpr Rule kRules[] = {
    &checkLoad,  &checkStructure,   &checkAttributes,     &checkValues,       &checkDefaults,
    &checkTexts, &checkCharacters,  &checkNames,          &checkTemplates,    &checkPostScript,
    &checkPjl,   &checkPjlLines,    &checkOptionCommands, &checkRoutines,     &checkMembers,
    &checkReach, &checkTicketReach, &checkTicketNames,    &checkRoutineKinds,
};

// Keeps the last log line while it lives.
class LogCatcher {
 public:
  explicit LogCatcher(std::string* line) {
    SetLogHandler(
        [](int, const char*, const char* text, std::size_t length, void* context) {
          auto* target = static_cast<std::string*>(context);
          if (target != nullptr) target->assign(text, length);
        },
        line);
  }
  ~LogCatcher() { host::LogPrinter::takeOver(); }
  LogCatcher(const LogCatcher&) = delete;
  LogCatcher& operator=(const LogCatcher&) = delete;
};

template <class Value>
std::optional<Value> convert(const host::Element& element, const std::string& attribute,
                             std::string* log) {
  const host::Attribute* found = element.find(attribute);
  if (found == nullptr) return std::nullopt;
  AttributeMap map;
  map[attribute] = found->value;
  Value value{};
  const LogCatcher catcher(log);
  if (!map.loadMapVariable(attribute, value, nullptr)) return std::nullopt;
  return value;
}

}  // namespace

Findings applyRules(const host::Element& description) {
  Findings findings;
  for (const Rule rule : kRules) rule(description, findings);
  for (Finding& finding : findings) {
    finding.sentence = host::spellOutInvisible(finding.sentence);
    finding.remedy = host::spellOutInvisible(finding.remedy);
  }
  return findings;
}

std::optional<bool> boolOf(const host::Element& element, const std::string& attribute,
                           std::string* log) {
  return convert<bool>(element, attribute, log);
}

std::optional<int> intOf(const host::Element& element, const std::string& attribute,
                         std::string* log) {
  return convert<int>(element, attribute, log);
}

std::optional<double> doubleOf(const host::Element& element, const std::string& attribute,
                               std::string* log) {
  return convert<double>(element, attribute, log);
}

std::string didYouMean(const std::string& wanted, const std::vector<std::string>& names,
                       const std::string& otherwise) {
  const auto nearest = host::nearestName(wanted, names);
  return nearest ? "did you mean \"" + *nearest + "\"?" : otherwise;
}

}  // namespace driver_feature::check
