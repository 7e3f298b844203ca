// Static groups as PostScript and PJL.

#include "model/core_feature_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "model/vocabulary.h"
#include "output/command_template.h"
#include "output/feature_text.h"
#include "output/group_commands.h"
#include "output/group_trail.h"
#include "output/output_routine.h"

namespace driver_feature {

namespace {

void processTextStaticGroup(CoreFeature& object, FeatureText& featureText, std::string& output,
                            bool topLevel, const GroupTrail* outer);

// Runs the routine that `owner` names, if it names one, on `text`.
void runOwnRoutine(CoreFeature& owner, const FeatureText& featureText, std::string& text) {
  std::string routineName;
  if (!readNonEmpty(owner, featureText.dialect().routineProperty, routineName)) return;
  if (runTextRoutine(routineName, text)) return;
  logComposed(Level::kMisuse, featureText.dialect().groupRoutineMissing, routineName);
}

// Appends the member's text to `collected`. `scratch` is anything, kept for
// its capacity.
void writeMember(CoreFeature& group, CoreFeature& member, int index, FeatureText& featureText,
                 std::string& scratch, std::string& collected) {
  const TextDialect& dialect = featureText.dialect();
  if (readNonEmpty(member, dialect.commandProperty, scratch)) {
    return featureText.append(member, scratch, collected);
  }
  logComposed(Level::kInformation, dialect.memberWithoutCommand, toDecimalText(index));
  std::string piece;
  runOwnRoutine(dialect.memberRunsGroupRoutine ? group : member, featureText, piece);
  if (!dialect.memberTextReplacesRoutine) {
    collected += piece;
    return;
  }
  featureText.append(member, scratch, collected);
}

std::string collectMembers(IntermediateStaticFeatureGroup& group, FeatureText& featureText,
                           const GroupTrail& trail) {
  std::string collected;
  std::string piece;
  std::string scratch;
  for (int i = 0; i < group.fetchNumberOfFeaturesInGroup(); ++i) {
    CoreFeature* member = group.fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (member == nullptr) {
      logComposed(Level::kMisuse, featureText.dialect().memberMissing, toDecimalText(i));
      continue;
    }
    if (member->getFeatureType() == kStaticGroup) {
      processTextStaticGroup(*member, featureText, piece, false, &trail);
      collected += piece;
    } else {
      writeMember(group, *member, i, featureText, scratch, collected);
    }
  }
  return collected;
}

void processTextStaticGroup(CoreFeature& object, FeatureText& featureText, std::string& output,
                            bool topLevel, const GroupTrail* outer) {
  const TextDialect& dialect = featureText.dialect();
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
    runOwnRoutine(*group, featureText, output);
    return;
  }
  const GroupTrail trail{&object, outer};
  const std::string collected = collectMembers(*group, featureText, trail);
  if (formatCommand(groupTemplate, std::string_view(collected), output)) return;
  logComposed(Level::kWarning, dialect.groupTemplateRefused, groupTemplate);
}

}  // namespace

void processPSStaticGroup(CoreFeature& group, std::string& output, bool topLevel) {
  FeatureText featureText(kPostScript);
  processTextStaticGroup(group, featureText, output, topLevel, nullptr);
}

void processPJLStaticGroup(CoreFeature& group, std::string& output, bool topLevel) {
  FeatureText featureText(kPJL);
  processTextStaticGroup(group, featureText, output, topLevel, nullptr);
}

}  // namespace driver_feature
