// The rules of the check. Each reads the whole description and adds its
// findings, in any order; none relies on another.
#ifndef HOST_CHECK_RULES_H_
#define HOST_CHECK_RULES_H_

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/check/findings.h"
#include "host/description/element.h"

namespace driver_feature::check {

// Adds one finding for each reason for which the library refuses the
// description, in the order in which it would meet them, each with the exact
// lines that it logs; and for a load routine that does not exist.
void checkLoad(const host::Element& description, Findings& findings);

void checkStructure(const host::Element& description, Findings& findings);
void checkAttributes(const host::Element& description, Findings& findings);
void checkValues(const host::Element& description, Findings& findings);
void checkDefaults(const host::Element& description, Findings& findings);
void checkTexts(const host::Element& description, Findings& findings);
void checkCharacters(const host::Element& description, Findings& findings);
void checkNames(const host::Element& description, Findings& findings);
void checkTemplates(const host::Element& description, Findings& findings);
void checkPostScript(const host::Element& description, Findings& findings);
void checkPjlLines(const host::Element& description, Findings& findings);
void checkPjl(const host::Element& description, Findings& findings);
void checkOptionCommands(const host::Element& description, Findings& findings);
void checkRoutines(const host::Element& description, Findings& findings);
void checkMembers(const host::Element& description, Findings& findings);
void checkReach(const host::Element& description, Findings& findings);
void checkTicketReach(const host::Element& description, Findings& findings);
void checkTicketNames(const host::Element& description, Findings& findings);

// Reports names of routines that are variables, or functions of other libraries.
void checkRoutineKinds(const host::Element& description, Findings& findings);

// What to do about a routine that does not exist: the name that was most likely
// meant, or what is missing in its source.
std::string missingRoutineRemedy(const std::string& name);

// Calls `visit` for each attribute of the description that names a routine.
void forEachRoutineName(const host::Element& description,
                        const std::function<void(const host::Element& element,
                                                 const host::Attribute& attribute)>& visit);

// All of them. Routines are looked up in the process, with the log turned off.
Findings applyRules(const host::Element& description);

// An attribute's text as the library converts it. Nothing when it is absent
// or does not convert; `log` then gets the line that is logged.
std::optional<bool> boolOf(const host::Element& element, const std::string& attribute,
                           std::string* log = nullptr);
std::optional<int> intOf(const host::Element& element, const std::string& attribute,
                         std::string* log = nullptr);
std::optional<double> doubleOf(const host::Element& element, const std::string& attribute,
                               std::string* log = nullptr);

// The names of an element that would take it into a ticket.
inline constexpr const char* kTicketNameAttributes[] = {
    "TESKJTAttributeName", "TESKOAAttributeName", "InstOptAttributeName", "NonVORNAttributeName"};

// The name by which a static group and its members go into the ticket: that of
// the outermost group. Null when that group has none.
const char* ticketNameKindOf(const host::Element& group);

// The byte that a character from U+F701 to U+F7FF would mean with byte escapes.
std::optional<char> unreadByteEscape(std::string_view character);

// "give X", with the name that was most likely meant when there is one.
std::string didYouMean(const std::string& wanted, const std::vector<std::string>& names,
                       const std::string& otherwise);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_RULES_H_
