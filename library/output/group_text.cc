// Static groups as PostScript and PJL.

#include "model/core_feature_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "model/vocabulary.h"
#include "templates/command_template.h"
#include "output/feature_text.h"
#include "output/group_commands.h"
#include "output/group_trail.h"
#include "output/output_routine.h"

namespace driver_feature {

namespace {

void writeGroup(CoreFeature& object, FeatureText& featureText, std::string& output, bool topLevel,
                const GroupTrail* outer);

// Runs the routine that `owner` names, if it names one, on `text`.
void runOwnRoutine(CoreFeature& owner, FeatureText& featureText, std::string& text) {
  // A copy: the platform's look-up may give the owner another routine.
  const std::string name(featureText.findRoutine(owner));
  if (name.empty()) return;
  if (featureText.runRoutine(name, text)) return;
  logComposed(Level::kMisuse, featureText.dialect().groupRoutineMissing, name);
}

// Appends the member's text to `collected`.
void writeMember(CoreFeature& group, CoreFeature& member, int index, FeatureText& featureText,
                 std::string& collected) {
  const TextDialect& dialect = featureText.dialect();
  if (featureText.append(member, collected)) return;
  logComposed(Level::kInformation, dialect.memberWithoutCommand, toDecimalText(index));
  std::string piece;
  runOwnRoutine(dialect.memberRunsGroupRoutine ? group : member, featureText, piece);
  if (!dialect.memberTextReplacesRoutine) {
    collected += piece;
    return;
  }
  featureText.append(member, {}, collected);
}

std::string collectMembers(IntermediateStaticFeatureGroup& group, FeatureText& featureText,
                           const GroupTrail& trail) {
  std::string collected;
  std::string piece;
  for (int i = 0; i < group.fetchNumberOfFeaturesInGroup(); ++i) {
    CoreFeature* member = group.fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (member == nullptr) {
      logComposed(Level::kMisuse, featureText.dialect().memberMissing, toDecimalText(i));
      continue;
    }
    if (member->getFeatureType() == kStaticGroup) {
      writeGroup(*member, featureText, piece, false, &trail);
      collected += piece;
    } else {
      writeMember(group, *member, i, featureText, collected);
    }
  }
  return collected;
}

void writeGroup(CoreFeature& object, FeatureText& featureText, std::string& output, bool topLevel,
                const GroupTrail* outer) {
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
  if (featureText.isInGroup(*group) && topLevel) {
    logFixed(Level::kInformation, dialect.groupInGroup);
    return;
  }
  const std::string groupTemplate(featureText.findCommand(*group));
  if (groupTemplate.empty()) {
    runOwnRoutine(*group, featureText, output);
    return;
  }
  const GroupTrail trail{&object, outer};
  const std::string collected = collectMembers(*group, featureText, trail);
  if (formatCommand(groupTemplate, std::string_view(collected), output)) return;
  logComposed(Level::kWarning, dialect.groupTemplateRefused, groupTemplate);
}

}  // namespace

void processTextStaticGroup(CoreFeature& group, FeatureText& featureText, std::string& output,
                            bool topLevel) {
  writeGroup(group, featureText, output, topLevel, nullptr);
}

void processPSStaticGroup(CoreFeature& group, DriverFeatureSet* set, std::string& output,
                          bool topLevel) {
  FeatureText featureText(kPostScript, set);
  processTextStaticGroup(group, featureText, output, topLevel);
}

void processPJLStaticGroup(CoreFeature& group, DriverFeatureSet* set, std::string& output,
                           bool topLevel) {
  FeatureText featureText(kPJL, set);
  processTextStaticGroup(group, featureText, output, topLevel);
}

}  // namespace driver_feature
