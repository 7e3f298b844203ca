// A set as PostScript or PJL.

#include "model/driver_feature.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "output/feature_text.h"
#include "output/group_commands.h"
#include "output/missing_objects.h"
#include "output/output_routine.h"
#include "output/serialization.h"

namespace driver_feature {

namespace {

void runOwnRoutine(DriverFeature& feature, FeatureText& featureText, std::string& output) {
  // A copy: the platform's look-up may give the feature another routine.
  const std::string name(featureText.findRoutine(feature));
  if (name.empty()) return;
  if (featureText.runRoutine(name, output)) return;
  logComposed(Level::kMisuse, featureText.dialect().featureRoutineMissing, name);
}

void writeFeature(DriverFeature& feature, int index, FeatureText& featureText,
                  std::string& output) {
  if (featureText.isInGroup(feature)) {
    if (!featureText.dialect().logsFeatureInGroup) return;
    logComposed(Level::kInformation, "serialize() - Feature {} is in a group",
                toDecimalText(index));
    return;
  }
  if (!featureText.append(feature, output)) runOwnRoutine(feature, featureText, output);
}

}  // namespace

void writeText(const OutputSource& source, const TextDialect& dialect, std::string& output) {
  output.clear();
  FeatureText featureText(dialect, source.set);
  for (int i = 0; i < source.features.fetchNumberOfFeatures(); ++i) {
    if (DriverFeature* feature = source.features.fetchFeatureByIndex(i)) {
      writeFeature(*feature, i, featureText, output);
    } else {
      logMissingFeature(i);
    }
  }
  std::string piece;
  for (int i = 0; i < source.groups.staticGroupCount(); ++i) {
    if (DriverFeatureStaticGroup* group = source.groups.staticGroupAt(i)) {
      processTextStaticGroup(*group, featureText, piece, true);
      output += piece;
    } else {
      logMissingGroup(i);
    }
  }
}

}  // namespace driver_feature
