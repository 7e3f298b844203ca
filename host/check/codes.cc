// The table of all codes.

#include <algorithm>
#include <cctype>

#include "host/check/findings.h"

namespace driver_feature {

namespace {

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;

constexpr CodeRow kCodes[] = {
    // The file.
    {Code::kUnreadable, "DF001", kError, "The file cannot be opened or read."},
    {Code::kNotXml, "DF002", kError,
     "The file is no XML document, or one with declarations that are not accepted: entities and "
     "default values of attributes."},
    {Code::kNoDescription, "DF003", kError,
     "Neither the root element nor one of its children is named FeatureDescription."},

    // Structure.
    {Code::kInvalidElement, "DF101", kError,
     "An element stands where the library does not expect one of its name. The library ends the "
     "process."},
    {Code::kEmptyStaticGroup, "DF102", kError,
     "A static group has no members. The library ends the process."},
    {Code::kDynamicGroupChildren, "DF103", kError,
     "A dynamic group has no template or more than one child. The library ends the process."},
    {Code::kNoOptions, "DF104", kError,
     "A feature of type MultiSelect has no options. The library ends the process."},
    {Code::kIgnoredElement, "DF105", kError,
     "The library passes over this element: its parent takes no children."},
    {Code::kOptionTag, "DF106", kWarning,
     "Every child of a MultiSelect feature is read as an option, whatever its name. A name other "
     "than Option may be a mistake."},
    {Code::kNoBaseInfo, "DF107", kWarning,
     "The description registers no update callback, so that the host does not hear of changes "
     "unless it registers one itself."},
    {Code::kLateBaseInfo, "DF108", kWarning,
     "A feature reports Sensitivity, Visibility or Encrypted to the update callback before "
     "BaseFeatureInfo registers it. A host that registers none itself may end there."},
    {Code::kRepeatedBaseInfo, "DF109", kWarning,
     "A second BaseFeatureInfo replaces the callbacks of the first."},
    {Code::kSecondDescription, "DF110", kWarning,
     "Only the first FeatureDescription of a document is read."},
    {Code::kStrayText, "DF111", kError,
     "Text stands between elements. The library reads elements and attributes only."},
    {Code::kSchema, "DF199", kError,
     "The schema of feature descriptions does not allow this, and no other rule has reported the "
     "place."},

    // Attributes.
    {Code::kMissingAttribute, "DF201", kError,
     "A required attribute is absent. The library ends the process."},
    {Code::kUnknownType, "DF202", kError,
     "FeatureType holds none of the six types. The library ends the process."},
    {Code::kUnknownAttribute, "DF203", kError,
     "No element of a description has this attribute. The library passes over it without a word. "
     "Attributes with a prefix are left to other programs and not reported."},
    {Code::kMisplacedAttribute, "DF204", kError,
     "The attribute belongs to another element or to another type of feature. The library does "
     "not use it here."},

    // Values.
    {Code::kNotConvertible, "DF301", kError,
     "The text is no value of the attribute's type: true, false, 1 or 0; a decimal 32-bit number; "
     "a decimal number with a point. The library leaves the setting as it is without the "
     "attribute."},
    {Code::kUnknownDefault, "DF302", kError,
     "DefaultValue names no option of the feature. The library takes the first option."},
    {Code::kNoDefault, "DF303", kWarning,
     "A MultiSelect feature has no DefaultValue. The library takes the first option."},
    {Code::kDefaultOutOfRange, "DF304", kError,
     "DefaultValue lies below the minimum or above the maximum. The library does not notice."},
    {Code::kDefaultTooLong, "DF305", kError,
     "DefaultValue has more characters than MaxTextLength allows. The library does not notice."},
    {Code::kDefaultCharacters, "DF306", kError,
     "DefaultValue holds a character that is not in TextValidationCharSet. The library does not "
     "notice."},
    {Code::kCrossedLimits, "DF307", kError,
     "The minimum is above the maximum, so that no value is valid."},
    {Code::kNoLengthLimit, "DF308", kWarning,
     "A MaxTextLength of 0 or less is no limit, as if the attribute were absent."},
    {Code::kNoCharacterSet, "DF309", kWarning,
     "A text that may hold any character is written to PJL or PostScript. Control characters and "
     "delimiters in it can change the command or add others."},
    {Code::kHarmfulCharacterSet, "DF310", kWarning,
     "TextValidationCharSet allows characters that can end the PJL line, the PJL string or the "
     "PostScript string that the value is written into."},
    {Code::kFloatTooLarge, "DF311", kError,
     "The number is beyond the range of single-precision numbers, in which the library keeps it."},

    // Names.
    {Code::kRepeatedFeature, "DF401", kError,
     "Two features have one name. The later replaces the earlier."},
    {Code::kRepeatedGroup, "DF402", kError,
     "A group's name already belongs to a feature or to another group, which is found in its "
     "place."},
    {Code::kRepeatedOption, "DF403", kError,
     "Two options of a feature have one name. The later cannot be selected by its name."},
    {Code::kEmptyName, "DF404", kError,
     "The name is empty. The library does not file such a feature, and nobody finds such a group "
     "or option."},

    // Commands.
    {Code::kBadTemplate, "DF501", kError,
     "The command template can never be formatted: it holds a lone per cent sign, a second "
     "conversion, a conversion that does not exist, or a width or precision above 4096. The "
     "library writes nothing."},
    {Code::kWrongConversion, "DF502", kError,
     "The conversion does not fit the value: texts and options take s; integers d, i, u, x, X, o "
     "and c; floats f, F, e, E, g, G, a and A. The library writes nothing."},
    {Code::kNoConversion, "DF503", kWarning,
     "The command template has no conversion, so that the value or the members' text is not "
     "written."},
    {Code::kNoLineEnd, "DF504", kWarning,
     "A PJL command does not end its line, so that the next command continues it. The library "
     "adds no line ends."},
    {Code::kNotPjl, "DF505", kError,
     "PJL lines hold the ASCII characters from blank to tilde, tabs and line ends only."},
    {Code::kUnusedOptionCommand, "DF506", kWarning,
     "Options have commands that nothing writes: their feature has neither a command or ticket "
     "name to put them into nor a routine."},
    {Code::kMissingOptionCommand, "DF507", kWarning,
     "An option has no command for its feature's template, which is then written with nothing in "
     "the value's place."},
    {Code::kCommandWithoutValue, "DF508", kError,
     "A feature without a value (UIOnly, MVCList) has a command. The library cannot format it and "
     "writes nothing."},

    // Reach of the output.
    {Code::kTemplateOutput, "DF601", kWarning,
     "The template of a dynamic group and its members are never written; only a host's routine "
     "could read the attribute."},
    {Code::kIgnoredMemberRoutine, "DF602", kError,
     "In PJL, a group with a command never calls a member's own routine."},
    {Code::kDroppedGroupRoutine, "DF603", kWarning,
     "A group with a PJL command calls its own routine for every member without a command, and "
     "drops what the routine writes."},
    {Code::kUnreachableMember, "DF604", kError,
     "The member can never be written: its group has neither a command or ticket name nor a "
     "routine for this output."},
    {Code::kSilentGroup, "DF605", kWarning,
     "A static group writes nothing to any output, and its members are not written at top level "
     "either."},
    {Code::kShadowedRoutine, "DF606", kWarning,
     "The routine is never called, because the command or ticket name beside it comes first."},
    {Code::kMemberWithoutTicketName, "DF607", kWarning,
     "The group is written to the ticket, but this member has no ticket name of the kind that the "
     "group goes by and no routine."},
    {Code::kUnusedTicketName, "DF608", kWarning,
     "The ticket name is never used: another name comes first, or the member's group goes by the "
     "other kind."},
    {Code::kDynamicGroupOutput, "DF609", kWarning,
     "Dynamic groups are not written; only a host's routine could read the attribute."},

    // Tickets.
    {Code::kNoTicketCommand, "DF701", kWarning,
     "The feature has a ticket name and the option no TESKCommand: the feature is left out of the "
     "ticket while this option is selected."},
    {Code::kNoSyntax, "DF702", kWarning,
     "A ticket name stands without TESKAttributeSyntax: the node is written with an empty syntax."},
    {Code::kTicketNameCharacters, "DF703", kWarning,
     "A ticket name begins or ends with a blank or holds control characters, which readers of the "
     "ticket may drop or refuse."},
    {Code::kTicketWithoutValue, "DF704", kError,
     "A feature without a value (UIOnly, MVCList) has a ticket name. The library leaves it out of "
     "the ticket."},

    // Routines.
    {Code::kNoUpdateRoutine, "DF801", kError,
     "DefaultCallbackHandler names no routine of the program or of a library given with "
     "--callbacks. The library ends the process."},
    {Code::kNoLoadRoutine, "DF802", kError,
     "LoadVORNCallbackHandler names no routine. Ticket and queue data are not loaded."},
    {Code::kNoChangeRoutine, "DF803", kError,
     "AddCallbackRoutine names no routine. Nothing is called when the feature changes."},
    {Code::kNoOutputRoutine, "DF804", kError,
     "The name of an output routine belongs to no routine. Nothing is written in its place."},
    {Code::kNoSortRoutine, "DF805", kError,
     "SortFunctionName names no routine. The records keep the order in which they are added."},
    {Code::kNeverSorted, "DF806", kWarning,
     "A dynamic group has no sort routine. The records keep the order in which they are added."},

    // The library's own verdict.
    {Code::kLoadRefused, "DF901", kError,
     "The rules see no reason to refuse the description, and the library did not load it. A "
     "routine may have ended the process."},
    {Code::kLoadAccepted, "DF902", kError,
     "The rules see a reason to refuse the description, and the library loaded it."},
    {Code::kOtherReason, "DF903", kError,
     "The library refused the description for another reason than the rules give."},
};

consteval bool isComplete() {
  for (std::size_t i = 0; i < std::size(kCodes); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return std::size(kCodes) == static_cast<std::size_t>(Code::kOtherReason) + 1;
}
static_assert(isComplete());

}  // namespace

std::span<const CodeRow> allCodes() {
  return kCodes;
}

const CodeRow& rowOf(Code code) {
  return kCodes[static_cast<std::size_t>(code)];
}

const CodeRow* findCode(const std::string& name) {
  std::string wanted = name;
  std::transform(wanted.begin(), wanted.end(), wanted.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  const auto* found = std::find_if(std::begin(kCodes), std::end(kCodes),
                                   [&wanted](const CodeRow& row) { return wanted == row.name; });
  return found != std::end(kCodes) ? found : nullptr;
}

}  // namespace driver_feature
