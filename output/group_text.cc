// Static groups as PostScript and PJL.

#include "model/core_feature_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "model/vocabulary.h"
#include "output/command_template.h"
#include "output/group_commands.h"
#include "output/group_trail.h"
#include "output/output_routine.h"
#include "output/text_dialect.h"
#include "output/ticket_attributes.h"

namespace driver_feature {

namespace {

void processTextStaticGroup(CoreFeature& object, const TextDialect& dialect, std::string& output,
                            bool topLevel, const GroupTrail* outer);

// Runs the routine that `owner` names, if it names one, on `text`.
void runOwnRoutine(CoreFeature& owner, const TextDialect& dialect, std::string& text) {
  std::string routineName;
  if (!readNonEmpty(owner, dialect.routineProperty, routineName)) return;
  if (runTextRoutine(routineName, text)) return;
  logComposed(Level::kMisuse, dialect.groupRoutineMissing, routineName);
}

void writeMember(CoreFeature& group, CoreFeature& member, int index, const TextDialect& dialect,
                 std::string& memberTemplate, std::string& piece) {
  if (readNonEmpty(member, dialect.commandProperty, memberTemplate)) {
    createTicketPDLAttributes(member, memberTemplate, piece, dialect.isPostScript);
    return;
  }
  logComposed(Level::kInformation, dialect.memberWithoutCommand, toDecimalText(index));
  runOwnRoutine(dialect.memberRunsGroupRoutine ? group : member, dialect, piece);
  if (dialect.memberTextReplacesRoutine) {
    createTicketPDLAttributes(member, memberTemplate, piece, dialect.isPostScript);
  }
}

std::string collectMembers(IntermediateStaticFeatureGroup& group, const TextDialect& dialect,
                           const GroupTrail& trail) {
  std::string collected;
  std::string piece;
  std::string memberTemplate;
  for (int i = 0; i < group.fetchNumberOfFeaturesInGroup(); ++i) {
    CoreFeature* member = group.fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (member == nullptr) {
      logComposed(Level::kMisuse, dialect.memberMissing, toDecimalText(i));
      continue;
    }
    if (member->getFeatureType() == kStaticGroup) {
      processTextStaticGroup(*member, dialect, piece, false, &trail);
    } else {
      writeMember(group, *member, i, dialect, memberTemplate, piece);
    }
    collected += piece;
    piece.clear();
  }
  return collected;
}

void processTextStaticGroup(CoreFeature& object, const TextDialect& dialect, std::string& output,
                            bool topLevel, const GroupTrail* outer) {
  output.clear();
  if (isBeingWritten(object, outer)) return;
  auto* group = object.getFeatureType() == kStaticGroup
                    ? dynamic_cast<IntermediateStaticFeatureGroup*>(&object)
                    : nullptr;
  if (group == nullptr) {
    logFixed(Level::kInformation, dialect.groupNotStandard);
    return;
  }
  if (isInGroup(*group) && topLevel) {
    logFixed(Level::kInformation, dialect.groupInGroup);
    return;
  }
  std::string groupTemplate;
  if (!readNonEmpty(*group, dialect.commandProperty, groupTemplate)) {
    runOwnRoutine(*group, dialect, output);
    return;
  }
  const GroupTrail trail{&object, outer};
  const std::string collected = collectMembers(*group, dialect, trail);
  if (formatCommand(groupTemplate, std::string_view(collected), output)) return;
  logComposed(Level::kWarning, dialect.groupTemplateRefused, groupTemplate);
}

}  // namespace

void processPSStaticGroup(CoreFeature& group, std::string& output, bool topLevel) {
  processTextStaticGroup(group, kPostScript, output, topLevel, nullptr);
}

void processPJLStaticGroup(CoreFeature& group, std::string& output, bool topLevel) {
  processTextStaticGroup(group, kPJL, output, topLevel, nullptr);
}

}  // namespace driver_feature
