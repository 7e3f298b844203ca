// PostScript and PJL are written by the same code. What differs between them,
// the names of properties, the words of messages and the rules, is data here.
#ifndef OUTPUT_TEXT_DIALECT_H_
#define OUTPUT_TEXT_DIALECT_H_

#include "model/messages.h"
#include "model/vocabulary.h"

namespace driver_feature {

struct TextDialect {
  bool isPostScript;
  Property commandProperty;  // Of features, options and groups.
  Property routineProperty;
  OptionProperty optionCommandProperty;

  // Required, and true for PJL only: a member without a command runs the
  // routine that its group names, not its own, once for every such member.
  bool memberRunsGroupRoutine;
  // Required, and true for PJL only: the text of such a member is formatted
  // anyway, from its empty command, which drops what the routine wrote.
  bool memberTextReplacesRoutine;
  // Required, and true for PJL only: a feature that its group writes is logged
  // when it is skipped at top level.
  bool logsFeatureInGroup;

  const char* optionCommandUnreadable;
  const char* groupNotStandard;
  const char* groupInGroup;
  MessageText<1> memberMissing;
  MessageText<1> memberWithoutCommand;
  MessageText<1> groupRoutineMissing;
  MessageText<1> groupTemplateRefused;
  MessageText<1> featureRoutineMissing;
};

inline constexpr TextDialect kPostScript = {
    .isPostScript = true,
    .commandProperty = Property::kPSCommand,
    .routineProperty = Property::kAddPSCallbackRoutine,
    .optionCommandProperty = OptionProperty::kPSCommand,
    .memberRunsGroupRoutine = false,
    .memberTextReplacesRoutine = false,
    .logsFeatureInGroup = false,
    .optionCommandUnreadable =
        "createTicketPDLAttributes() - Cannot get current feature option PS command",
    .groupNotStandard = "processPSStaticGroup() - Static group is not a standard static group",
    .groupInGroup = "processPSStaticGroup() - Static group is in a group",
    .memberMissing = "processPSStaticGroup() - Cannot get reference to feature {}",
    .memberWithoutCommand =
        "processPSStaticGroup() - Cannot get PS command for feature {} - will look for callback",
    .groupRoutineMissing = "processPSStaticGroup() - Cannot load PS Command callback: {}",
    .groupTemplateRefused =
        "processPSStaticGroup() - Cannot format text with command template \"{}\"",
    .featureRoutineMissing = "serialize() - Cannot load PS Command callback: {}",
};

inline constexpr TextDialect kPJL = {
    .isPostScript = false,
    .commandProperty = Property::kPJLCommand,
    .routineProperty = Property::kAddPJLCallbackRoutine,
    .optionCommandProperty = OptionProperty::kPJLCommand,
    .memberRunsGroupRoutine = true,
    .memberTextReplacesRoutine = true,
    .logsFeatureInGroup = true,
    .optionCommandUnreadable =
        "createTicketPDLAttributes() - Cannot get current feature option PJL command",
    .groupNotStandard = "processPJLStaticGroup() - Static group is not a standard static group",
    .groupInGroup = "processPJLStaticGroup() - Static group is in a group",
    .memberMissing = "processPJLStaticGroup() - Cannot get reference to feature {}",
    .memberWithoutCommand =
        "processPJLStaticGroup() - Cannot get PJL command for feature {} - will look for callback",
    .groupRoutineMissing = "processPJLStaticGroup() - Cannot load PJL Command callback: {}",
    .groupTemplateRefused =
        "processPJLStaticGroup() - Cannot format text with command template \"{}\"",
    .featureRoutineMissing = "serialize() - Cannot load PJL Command callback: {}",
};

}  // namespace driver_feature

#endif  // OUTPUT_TEXT_DIALECT_H_
