// The findings of the check, and a code for each kind of finding.
#ifndef HOST_CHECK_FINDINGS_H_
#define HOST_CHECK_FINDINGS_H_

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/description/element.h"

namespace driver_feature::check {

// An error: the library refuses the description, or drops or cannot use a part
// of it. A warning: it works, but most likely not as intended.
enum class Severity : unsigned char { kError, kWarning };

enum class Code : unsigned char {
  kUnreadable,
  kNotXml,
  kNoDescription,
  kInvalidElement,
  kEmptyStaticGroup,
  kDynamicGroupChildren,
  kNoOptions,
  kIgnoredElement,
  kOptionTag,
  kNoBaseInfo,
  kLateBaseInfo,
  kRepeatedBaseInfo,
  kSecondDescription,
  kStrayText,
  kNamespace,
  kMissingAttribute,
  kUnknownType,
  kUnknownAttribute,
  kMisplacedAttribute,
  kNotConvertible,
  kUnknownDefault,
  kNoDefault,
  kDefaultOutOfRange,
  kDefaultTooLong,
  kDefaultCharacters,
  kCrossedLimits,
  kNoLengthLimit,
  kNoCharacterSet,
  kHarmfulCharacterSet,
  kFloatTooLarge,
  kUnavailableDefault,
  kCharacterRange,
  kDoubledReference,
  kRepeatedFeature,
  kRepeatedGroup,
  kRepeatedOption,
  kEmptyName,
  kBlankAroundName,
  kEqualsInName,
  kRepeatedKey,
  kBadTemplate,
  kWrongConversion,
  kNoConversion,
  kNoLineEnd,
  kNotPjl,
  kUnusedOptionCommand,
  kMissingOptionCommand,
  kCommandWithoutValue,
  kUnreadByteEscape,
  kUnbalanced,
  kOpenComment,
  kJoinedTokens,
  kOpenPjlString,
  kNoPjlPrefix,
  kAfterEnterLanguage,
  kLateUniversalExit,
  kSinglePerCent,
  kEmptyPjlValue,
  kNegativeUnsigned,
  kTemplateOutput,
  kIgnoredMemberRoutine,
  kDroppedGroupRoutine,
  kUnreachableMember,
  kSilentGroup,
  kShadowedRoutine,
  kMemberWithoutTicketName,
  kUnusedTicketName,
  kDynamicGroupOutput,
  kNoWritingMember,
  kNoTicketCommand,
  kNoSyntax,
  kTicketNameCharacters,
  kTicketWithoutValue,
  kRepeatedTicketName,
  kAdditionElement,
  kAdditionAttribute,
  kIncompleteAddition,
  kNoNumber,
  kUnreadableBeside,
  kConditionForm,
  kNoCondition,
  kUnknownRuleFeature,
  kUnknownRuleOption,
  kUnfitCondition,
  kRuleOnTemplate,
  kRepeatedRule,
  kRuleAlways,
  kRuleNever,
  kDefaultsBreakRule,
  kRepeatedHardware,
  kImpossibleChoice,
  kTextForNothing,
  kRepeatedText,
  kEmptyText,
  kMissingTexts,
  kIncompleteLanguage,
  kRepeatedPreset,
  kPresetSetting,
  kPresetBreaksRule,
  kUnknownMedia,
  kImpossibleSize,
  kRepeatedSize,
  kUnknownMember,
  kRepeatedMember,
  kRepeatedPanel,
  kNoUpdateRoutine,
  kNoLoadRoutine,
  kNoChangeRoutine,
  kNoOutputRoutine,
  kNoSortRoutine,
  kNeverSorted,
  kNotARoutine,
  kFailingRoutine,
  kLoadRefused,
  kLoadAccepted,
  kOtherReason,
  kUselessAllowance,
  kAllowanceWithoutReason,
  kUnreadAllowance,
};

struct CodeRow {
  Code code;
  Severity severity;
  const char* name;         // As in "DF101". Never given to another kind of finding.
  const char* explanation;  // One or two sentences.
};

// One row for each code, in the order of the names.
std::span<const CodeRow> allCodes();
const CodeRow& rowOf(Code code);
// Null when no code has that name. Case does not matter.
const CodeRow* findCode(const std::string& name);

// A change of the file's text, in bytes of the text as UTF-8.
struct TextEdit {
  std::size_t offset = 0;
  std::size_t length = 0;  // Of what is replaced.
  std::string text;

  bool operator==(const TextEdit&) const = default;
};

struct Finding {
  Code code = Code::kUnreadable;
  host::Position position;
  std::string sentence;
  std::string remedy;
  std::vector<std::string> log;      // The lines that the library logs for it, in their order.
  bool refused = false;              // Whether the library ends the load there.
  std::optional<TextEdit> fix = {};  // The safe fix; nothing when there is none.
  std::string file = {};             // Beside the description; empty for its own.
};

// A finding of the library's own: the load ends there with these lines.
Finding refusal(Code code, host::Position position, const std::string& sentence,
                const std::string& remedy, const std::vector<std::string>& log);

using Findings = std::vector<Finding>;

// By position, those of files beside the description after its own; findings at the same place keep
// their order.
void sortByPosition(Findings& findings);

long countOf(const Findings& findings, Severity severity);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_FINDINGS_H_
