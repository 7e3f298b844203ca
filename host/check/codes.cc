// The table of all codes.

#include <algorithm>
#include <cctype>

#include "host/check/findings.h"

namespace driver_feature::check {

namespace {

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;

constexpr CodeRow kCodes[] = {
    // The file.
    {Code::kUnreadable, kError, "DF001", "The file cannot be opened or read."},
    {Code::kNotXml, kError, "DF002",
     "The file is not an XML document, or it has declarations that are not accepted: entities and "
     "default values of attributes."},
    {Code::kNoDescription, kError, "DF003",
     "Neither the root element nor one of its children is named FeatureDescription."},

    // Structure.
    {Code::kInvalidElement, kError, "DF101",
     "An element has a name that the library does not expect in this place. The library ends the "
     "process."},
    {Code::kEmptyStaticGroup, kError, "DF102",
     "A static group has no members. The library ends the process."},
    {Code::kDynamicGroupChildren, kError, "DF103",
     "A dynamic group has no template or more than one child. The library ends the process."},
    {Code::kNoOptions, kError, "DF104",
     "A feature of type MultiSelect has no options. The library ends the process."},
    {Code::kIgnoredElement, kError, "DF105",
     "The library ignores this element: its parent takes no children."},
    {Code::kOptionTag, kWarning, "DF106",
     "Every child of a MultiSelect feature is read as an option, whatever its name. A name other "
     "than Option may be a mistake."},
    {Code::kNoBaseInfo, kWarning, "DF107",
     "The description registers no update callback, so the host is not notified of changes "
     "unless it registers one itself."},
    {Code::kLateBaseInfo, kWarning, "DF108",
     "A feature reports Sensitivity, Visibility or Encrypted to the update callback before "
     "BaseFeatureInfo registers it. A host that registers none itself may end there."},
    {Code::kRepeatedBaseInfo, kWarning, "DF109",
     "A second BaseFeatureInfo replaces the callbacks of the first."},
    {Code::kSecondDescription, kWarning, "DF110",
     "Only the first FeatureDescription of a document is read."},
    {Code::kStrayText, kError, "DF111",
     "There is text between elements. The library reads elements and attributes only."},
    {Code::kNamespace, kWarning, "DF112",
     "An element of the description is in a namespace. The library looks at names without their "
     "prefixes only; editors with the schema, and hosts with parsers of their own, may not find "
     "the element."},
    // DF199 reported what only the schema objected to.

    // Attributes.
    {Code::kMissingAttribute, kError, "DF201",
     "A required attribute is missing. The library ends the process."},
    {Code::kUnknownType, kError, "DF202",
     "FeatureType is not one of the six types. The library ends the process."},
    {Code::kUnknownAttribute, kError, "DF203",
     "No element of a description has this attribute. The library silently ignores it. "
     "Attributes with a prefix are left to other programs and not reported."},
    {Code::kMisplacedAttribute, kError, "DF204",
     "The attribute belongs to another element or to another type of feature. The library does "
     "not use it here."},

    // Values.
    {Code::kNotConvertible, kError, "DF301",
     "The text is not a value of the attribute's type: true, false, 1 or 0; a decimal 32-bit "
     "number; a decimal number with a point; yes or no. The library treats the attribute as "
     "absent."},
    {Code::kUnknownDefault, kError, "DF302",
     "DefaultValue does not name an option of the feature. The library takes the first option."},
    {Code::kNoDefault, kWarning, "DF303",
     "A MultiSelect feature has no DefaultValue. The library takes the first option."},
    {Code::kDefaultOutOfRange, kError, "DF304",
     "DefaultValue, or 0 without one, is below the minimum or above the maximum. The library does "
     "not check this."},
    {Code::kDefaultTooLong, kError, "DF305",
     "DefaultValue has more characters than MaxTextLength allows. The library does not check "
     "this."},
    {Code::kDefaultCharacters, kError, "DF306",
     "DefaultValue holds a character that is not in TextValidationCharSet. The library does not "
     "check this."},
    {Code::kCrossedLimits, kError, "DF307",
     "The minimum is above the maximum, so no value is valid."},
    {Code::kNoLengthLimit, kWarning, "DF308",
     "A MaxTextLength of 0 or less sets no limit, as if the attribute were absent."},
    {Code::kNoCharacterSet, kWarning, "DF309",
     "A text that may hold any character is written to PJL or PostScript. Control characters and "
     "delimiters in it can change the command or add others."},
    {Code::kHarmfulCharacterSet, kWarning, "DF310",
     "TextValidationCharSet allows characters that can end the PJL line, the PJL string, or the "
     "PostScript string or token that the value is written into."},
    {Code::kFloatTooLarge, kError, "DF311",
     "The number is beyond the range of the single precision in which the library keeps it."},
    {Code::kUnavailableDefault, kWarning, "DF312",
     "The default is an option with Sensitivity=\"false\", which users cannot choose. It is "
     "written until they choose another."},
    {Code::kCharacterRange, kWarning, "DF313",
     "TextValidationCharSet lists the allowed characters one after the other. It has no ranges: "
     "0-9 allows the characters 0, - and 9."},
    {Code::kDoubledReference, kWarning, "DF314",
     "The value holds a character reference as text, because its & is written as a reference: "
     "&amp;lt; means the four characters &lt; and not <."},

    // Names.
    {Code::kRepeatedFeature, kError, "DF401",
     "Two features have the same name. The later one replaces the earlier one."},
    {Code::kRepeatedGroup, kError, "DF402",
     "A group's name already belongs to a feature or to another group, which is found in its "
     "place."},
    {Code::kRepeatedOption, kError, "DF403",
     "Two options of a feature have the same name. The later one cannot be selected by its name."},
    {Code::kEmptyName, kError, "DF404",
     "The name is empty. The library does not list such a feature, and such a group or option "
     "cannot be found by its name."},
    {Code::kBlankAroundName, kWarning, "DF405",
     "The name begins or ends with a blank, which belongs to it: A4 with a blank is not A4. Lists "
     "and settings files hide the difference."},
    {Code::kEqualsInName, kWarning, "DF406",
     "The feature's name or key holds an equals sign, at which settings on the command line and in "
     "files are split into name and value. They cannot set the feature."},
    {Code::kRepeatedKey, kWarning, "DF407",
     "Two features, or two options of a feature, have the same CLOKey, which finds only one of "
     "them."},

    // Commands.
    {Code::kBadTemplate, kError, "DF501",
     "The command template can never be formatted: it holds a lone per cent sign, a second "
     "conversion, a conversion that does not exist, or a width or precision above 4096. The "
     "library writes nothing."},
    {Code::kWrongConversion, kError, "DF502",
     "The conversion does not fit the value: texts and options take s; integers d, i, u, x, X, o "
     "and c; floats f, F, e, E, g, G, a and A. The library writes nothing."},
    {Code::kNoConversion, kWarning, "DF503",
     "The command template has no conversion, so the value or the members' text is not written."},
    {Code::kNoLineEnd, kWarning, "DF504",
     "A PJL command does not end its line, so the next command continues it. The library does not "
     "add line ends."},
    {Code::kNotPjl, kError, "DF505",
     "A PJL line may hold only the ASCII characters from blank to tilde, tabs and line ends."},
    {Code::kUnusedOptionCommand, kWarning, "DF506",
     "Options have commands that nothing writes: their feature has neither a command or ticket "
     "name to put them into nor a routine."},
    {Code::kMissingOptionCommand, kWarning, "DF507",
     "An option has no command for its feature's template, which is then written with nothing in "
     "the value's place."},
    {Code::kCommandWithoutValue, kError, "DF508",
     "A feature without a value (UIOnly, MVCList) has a command. The library cannot format it and "
     "writes nothing."},
    {Code::kUnreadByteEscape, kError, "DF509",
     "A command holds a character from U+F701 to U+F7FF, which means a byte only with "
     "ByteEscapes=\"yes\". Without it, the three bytes of the character are written."},
    {Code::kUnbalanced, kWarning, "DF510",
     "In the whole PostScript output, a bracket or string is opened and not closed, closed and not "
     "opened, or closed by the bracket of another kind; lists and dictionaries that a procedure "
     "opens must end in it. The job ends with an error, or its pages become part of a string."},
    {Code::kOpenComment, kWarning, "DF511",
     "A PostScript command ends within a comment, which continues to the next line end and "
     "swallows "
     "what is written after it. The library does not add line ends."},
    {Code::kJoinedTokens, kWarning, "DF512",
     "One PostScript command ends with a name or number and the next begins with one. They are "
     "read as a single one, because the library writes nothing between them."},
    {Code::kOpenPjlString, kError, "DF513",
     "A PJL line has an unmatched quotation mark. Printers refuse or skip the line."},
    {Code::kNoPjlPrefix, kWarning, "DF514",
     "A line of PJL does not begin with @PJL, in capitals. Printers skip it, or take it for the "
     "first line of the document."},
    {Code::kAfterEnterLanguage, kError, "DF515",
     "A PJL line is written after ENTER LANGUAGE, which ends PJL. The printer takes the line for a "
     "part of the document."},
    {Code::kLateUniversalExit, kWarning, "DF516",
     "The universal exit is written after lines of PJL. It ends the job, and with it the settings "
     "of these lines."},
    {Code::kSinglePerCent, kWarning, "DF517",
     "A structure comment of PostScript is written with one per cent sign. In command templates "
     "%% means one sign; in commands of options each sign is written."},
    {Code::kEmptyPjlValue, kWarning, "DF518",
     "The default text is empty, and the PJL command is written with an empty value. Many printers "
     "refuse that."},
    {Code::kNegativeUnsigned, kWarning, "DF519",
     "The value can be negative, and its conversion (u, x, X or o) has no sign: -1 is written as "
     "4294967295."},

    // Reach of the output.
    {Code::kTemplateOutput, kWarning, "DF601",
     "The template of a dynamic group and its members are never written; only a host's routine "
     "could read the attribute."},
    {Code::kIgnoredMemberRoutine, kError, "DF602",
     "In PJL, a group with a command never calls a member's own routine."},
    {Code::kDroppedGroupRoutine, kWarning, "DF603",
     "A group with a PJL command calls its own routine for every member without a command, and "
     "drops what the routine writes."},
    {Code::kUnreachableMember, kError, "DF604",
     "The member can never be written: its group has neither a command or ticket name nor a "
     "routine for this output."},
    {Code::kSilentGroup, kWarning, "DF605",
     "A static group writes nothing to any output, and its members are not written at top level "
     "either."},
    {Code::kShadowedRoutine, kWarning, "DF606",
     "The routine is never called, because the command or ticket name beside it comes first."},
    {Code::kMemberWithoutTicketName, kWarning, "DF607",
     "The group is written to the ticket, but this member has neither a ticket name of the group's "
     "kind nor a routine."},
    {Code::kUnusedTicketName, kWarning, "DF608",
     "The ticket name is never used: another name comes first, or the member's group uses the "
     "other kind."},
    {Code::kDynamicGroupOutput, kWarning, "DF609",
     "Dynamic groups are not written; only a host's routine could read the attribute."},
    {Code::kNoWritingMember, kWarning, "DF610",
     "A static group has a command, but none of its members writes anything to this output. The "
     "command is written around nothing."},

    // Tickets.
    {Code::kNoTicketCommand, kWarning, "DF701",
     "The feature has a ticket name, but the option has no TESKCommand: the feature is left out of "
     "the ticket while this option is selected."},
    {Code::kNoSyntax, kWarning, "DF702",
     "A ticket name is given without TESKAttributeSyntax: the node is written with an empty "
     "syntax."},
    {Code::kTicketNameCharacters, kWarning, "DF703",
     "A ticket name begins or ends with a blank or holds control characters, which readers of the "
     "ticket may drop or refuse."},
    {Code::kTicketWithoutValue, kError, "DF704",
     "A feature without a value (UIOnly, MVCList) has a ticket name. The library leaves it out of "
     "the ticket."},
    {Code::kRepeatedTicketName, kWarning, "DF705",
     "Two nodes of a ticket's section, or of a group, have the same name. Readers of the ticket "
     "may take either."},

    // What a description has beside its features.
    {Code::kAdditionElement, kError, "DF711",
     "Rules, texts, presets or media sizes hold an element that does not belong there. It is not "
     "read; a rule that holds one is left out."},
    {Code::kAdditionAttribute, kError, "DF712",
     "An element of rules, texts, presets or media sizes has an attribute that does not belong to "
     "it."},
    {Code::kIncompleteAddition, kError, "DF713",
     "An element of rules, texts, presets or media sizes lacks an attribute that it needs, and is "
     "left out."},
    {Code::kNoNumber, kError, "DF714",
     "A limit of a condition or a length of a media size is not a decimal number."},
    {Code::kUnreadableBeside, kError, "DF715",
     "A file beside the description cannot be read: rules, translations or a preset. It is left "
     "out."},

    // Rules of what a description forbids.
    {Code::kConditionForm, kError, "DF721",
     "A condition of a rule must have exactly one of Is, IsNot, Above, Below, elements <Is> or "
     "elements <IsNot>. The rule is left out."},
    {Code::kNoCondition, kError, "DF722",
     "A rule without a condition would forbid everything. It is left out."},
    {Code::kUnknownRuleFeature, kError, "DF723",
     "A rule or the list of hardware names a feature that does not exist."},
    {Code::kUnknownRuleOption, kError, "DF724",
     "A condition of a rule names an option that its feature does not have."},
    {Code::kUnfitCondition, kError, "DF725",
     "A condition does not fit the type of its feature. Is and IsNot are for \"MultiSelect\", "
     "Above and Below for \"IntEntry\" and \"FloatEntry\"; other types cannot be in rules."},
    {Code::kRuleOnTemplate, kError, "DF726",
     "A rule or the list of hardware names a member of a template. Its values are those of "
     "records, which rules do not see."},
    {Code::kRepeatedRule, kError, "DF727", "Two rules have the same Id."},
    {Code::kRuleAlways, kError, "DF728",
     "The conditions of a rule hold for every value, so it forbids everything; or several rules "
     "together leave a feature without any value."},
    {Code::kRuleNever, kWarning, "DF729",
     "The conditions of a rule never hold together, so it forbids nothing."},
    {Code::kDefaultsBreakRule, kWarning, "DF730",
     "A rule forbids the default values. It is not applied until one of its features is set."},
    {Code::kRepeatedHardware, kWarning, "DF731", "A feature is listed twice as hardware."},
    {Code::kImpossibleChoice, kWarning, "DF732",
     "A rule, or several together, forbid an option whatever the other features are set to and "
     "whatever hardware the printer has, so it can never be chosen. The search is bounded."},

    // Texts for people.
    {Code::kTextForNothing, kError, "DF741",
     "A text is for a feature, group, option, rule or preset that does not exist."},
    {Code::kRepeatedText, kWarning, "DF742",
     "A language has two texts for the same thing. The first one counts."},
    {Code::kEmptyText, kWarning, "DF743", "A text is empty and is ignored."},
    {Code::kMissingTexts, kWarning, "DF744", "A language lacks texts that another one has."},
    {Code::kIncompleteLanguage, kError, "DF745",
     "The language given with --language lacks texts for visible features, their options, rules, "
     "presets or panels."},

    // Presets.
    {Code::kRepeatedPreset, kError, "DF751",
     "Two presets have the same name. The first one counts; presets in files come after those in "
     "the description."},
    {Code::kPresetSetting, kError, "DF752",
     "A line of a preset is refused, as it would be in a settings file, so the preset cannot be "
     "used."},
    {Code::kPresetBreaksRule, kError, "DF753",
     "A rule forbids the settings of a preset together with the default values of the other "
     "features."},

    // Sizes of media.
    {Code::kUnknownMedia, kError, "DF761",
     "Media sizes are given for a feature or an option that does not exist, for a feature that is "
     "not a \"MultiSelect\", or for a second feature."},
    {Code::kImpossibleSize, kError, "DF762",
     "A width or height of a medium is not above zero, or its margins leave nothing to print on."},
    {Code::kRepeatedSize, kError, "DF763", "An option has two sizes."},

    // Panels.
    {Code::kUnknownMember, kError, "DF771", "A panel names a feature that does not exist."},
    {Code::kRepeatedMember, kWarning, "DF772",
     "A feature is in a panel already. It is shown in the first one."},
    {Code::kRepeatedPanel, kError, "DF773",
     "Two panels have the same name, so texts and programs cannot distinguish them."},

    // Routines.
    {Code::kNoUpdateRoutine, kError, "DF801",
     "DefaultCallbackHandler does not name a routine of the program or of a library given with "
     "--callbacks. The library ends the process."},
    {Code::kNoLoadRoutine, kError, "DF802",
     "LoadVORNCallbackHandler does not name an existing routine. Ticket and queue data are not "
     "loaded."},
    {Code::kNoChangeRoutine, kError, "DF803",
     "AddCallbackRoutine does not name an existing routine. Nothing is called when the feature "
     "changes."},
    {Code::kNoOutputRoutine, kError, "DF804",
     "An attribute for an output routine does not name an existing routine. Nothing is written in "
     "its place."},
    {Code::kNoSortRoutine, kError, "DF805",
     "SortFunctionName does not name an existing routine. Records keep the order in which they are "
     "added."},
    {Code::kNeverSorted, kWarning, "DF806",
     "A dynamic group has no sort routine. Records keep the order in which they are added."},
    {Code::kNotARoutine, kError, "DF807",
     "The name of a routine is that of a variable, or of a function of a library that has no "
     "routines for descriptions, such as printf. Calling it would crash."},
    {Code::kFailingRoutine, kError, "DF808",
     "While the check wrote the outputs with all defaults, a routine crashed, ended the process, "
     "threw an exception or did not return within ten seconds."},

    // The library's own result.
    {Code::kLoadRefused, kError, "DF901",
     "The check found no reason to refuse the description, but the library did not load it. A "
     "routine may have ended the process."},
    {Code::kLoadAccepted, kError, "DF902",
     "The check found a reason to refuse the description, but the library loaded it."},
    {Code::kOtherReason, kError, "DF903",
     "The library refused the description for a different reason than the check gives."},

    // Comments that allow a code.
    {Code::kUselessAllowance, kWarning, "DF911",
     "A comment allows a code that is not reported for the next element. The fault may have been "
     "fixed, or the comment is in the wrong place."},
    {Code::kAllowanceWithoutReason, kWarning, "DF912",
     "A comment allows a code without a reason. The code is allowed all the same."},
    {Code::kUnreadAllowance, kWarning, "DF913",
     "A comment begins as one that allows a code, but the rest is not understood, so it allows "
     "nothing."},
};

consteval bool isComplete() {
  for (std::size_t i = 0; i < std::size(kCodes); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return std::size(kCodes) == static_cast<std::size_t>(Code::kUnreadAllowance) + 1;
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

}  // namespace driver_feature::check
