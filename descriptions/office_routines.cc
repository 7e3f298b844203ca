#include "descriptions/office_routines.h"

#include "AttributeMap.h"
#include "XMLParser.h"

#include "descriptions/feature_access.h"

namespace driver_feature {

namespace {

constexpr int kInstallableOptions = 1;

// What holds options back. An option may be held back by several at once.
enum Constraint : long { kNoDuplexUnit = 1, kNoStapler = 2, kNoFolder = 3, kNoCutter = 4 };

bool isInstallableOption(IntermediateCoreFeature& feature) {
  std::string name;
  feature.getFeatureProperty(std::string("InstOptAttributeName"), name);
  return !name.empty();
}

bool loadValue(const Features& features, void* element, int mode) {
  AttributeMap attributes;
  pParserInstance->attributes(element, attributes);
  std::string name;
  std::string value;
  if (!attributes.loadMapVariable("Name", name, nullptr)) return false;
  if (!attributes.loadMapVariable("Value", value, nullptr)) return false;
  IntermediateCoreFeature* feature = features.find(name);
  if (feature == nullptr) return false;
  if (mode == kInstallableOptions && !isInstallableOption(*feature)) return false;
  return feature->setFeatureProperty(std::string("ValueString"), value);
}

}  // namespace

}  // namespace driver_feature

using driver_feature::Features;

bool OfficeUpdate() {
  return true;
}

int OfficeLoadValues(void* element, int mode) {
  const Features features = Features::ofMasterSet();
  int refused = 0;
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    if (!driver_feature::loadValue(features, child, mode)) ++refused;
  }
  return refused;
}

void OfficeDuplexUnitChanged() {
  const Features features = Features::ofMasterSet();
  const bool missing = features.text("InstalledDuplexUnit") == "NotInstalled";
  features.constrainOptions("Duplex", driver_feature::kNoDuplexUnit, missing);
}

void OfficeFinisherChanged() {
  const Features features = Features::ofMasterSet();
  const std::string finisher = features.text("InstalledFinisher");
  const bool staples = finisher != "NotInstalled";
  features.constrainOptions("Staple", driver_feature::kNoStapler, !staples);
  features.constrainOptions("Punch", driver_feature::kNoStapler, !staples);
  features.constrainOptions("Fold", driver_feature::kNoFolder, finisher != "BookletMaker");
}

void OfficePageSizeChanged() {
  const Features features = Features::ofMasterSet();
  const bool custom = features.text("PageSize") == "Custom";
  features.setAvailable("CustomPageWidth", custom);
  features.setAvailable("CustomPageHeight", custom);
}

void OfficeHoldJobChanged() {
  const Features features = Features::ofMasterSet();
  features.setAvailable("HoldPin", features.text("HoldJob") == "Private");
}

void OfficeWatermarkChanged() {
  const Features features = Features::ofMasterSet();
  const std::string watermark = features.text("Watermark");
  features.setAvailable("WatermarkText", watermark == "Custom");
  features.setAvailable("WatermarkAngle", watermark != "None");
  features.setAvailable("WatermarkSize", watermark != "None");
}

void LabelCutterChanged() {
  const Features features = Features::ofMasterSet();
  const bool missing = features.text("InstalledCutter") == "NotInstalled";
  features.constrainOptions("Cutter", driver_feature::kNoCutter, missing);
}
