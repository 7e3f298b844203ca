#include "fuzz/settings_model.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "frame/exports.h"
#include "fuzz/model_release.h"
#include "host/session/group_view.h"
#include "host/session/host_routines.h"
#include "host/settings/settings_file.h"

#include "AttributeMap.h"
#include "Log.h"
#include "XMLDocument.h"

namespace driver_feature::fuzz {

namespace {

constexpr const char* kDescription = R"(<FeatureDescription>
<BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"/>
<Feature FeatureType="MultiSelect" Name="Finisher" DefaultValue="Staple"
         AddCallbackRoutine="FuzzFinisherChanged">
  <Option Name="None"/><Option Name="Staple"/></Feature>
<Feature FeatureType="MultiSelect" Name="Fold" DefaultValue="Off">
  <Option Name="Off"/><Option Name="Half"/><Option Name="B 5"/></Feature>
<Feature FeatureType="IntEntry" Name="Copies" DefaultValue="1" IntMinValue="1" IntMaxValue="99"/>
<Feature FeatureType="IntEntry" Name="Wrong" DefaultValue="7" IntMaxValue="6"/>
<Feature FeatureType="FloatEntry" Name="Scale" DefaultValue="0.1" FloatMaxValue="4"/>
<Feature FeatureType="TextEntry" Name="Owner" DefaultValue=" me "/>
<Feature FeatureType="TextEntry" Name="Pin" MaxTextLength="4" TextValidationCharSet="0123456789"/>
<Feature FeatureType="IntEntry" Name="Locked" DefaultValue="5" Sensitivity="false"/>
<Feature FeatureType="UIOnly" Name="Status"/>
<FeatureDynamicGroup Name="Jobs"><FeatureStaticGroup Name="Job">
  <Feature FeatureType="TextEntry" Name="Title"/>
  <Feature FeatureType="FloatEntry" Name="Shift" FloatMinValue="-1" FloatMaxValue="1e9"/>
</FeatureStaticGroup></FeatureDynamicGroup>
<FeatureDynamicGroup Name="Pages" SortFunctionName="FuzzComparePages"><FeatureStaticGroup Name="P">
  <Feature FeatureType="IntEntry" Name="Page" IntMinValue="1" IntMaxValue="9999" DefaultValue="1"/>
  <Feature FeatureType="MultiSelect" Name="Media"><Option Name="Plain"/><Option Name="Card"/>
  </Feature></FeatureStaticGroup></FeatureDynamicGroup>
</FeatureDescription>)";

constexpr const char* kGroups[] = {"Jobs", "Pages"};

void keepSilent(int, const char*, const char*, std::size_t, void*) {}

XMLDocument& description() {
  static XMLProblem problem;
  static const auto kDocument = XMLDocument::parseText(kDescription, "description", problem);
  require(kDocument != nullptr, "the description is XML");
  return *kDocument;
}

const host::DescriptionIndex& index() {
  static const host::DescriptionIndex kIndex(description().root());
  return kIndex;
}

}  // namespace

SettingsModel::SettingsModel() {
  SetLogHandler(keepSilent, nullptr);
  require(FeatureXMLTagHandler(description().root()) == 1, "the description is loaded");
  SetFeatureCreationCompleteFlag();
  model_ =
      std::make_unique<host::Model>(host::Model{host::featuresOf(set()), index(), "description"});
}

SettingsModel::~SettingsModel() {
  for (const char* group : kGroups) findDynamicGroup(set(), index(), group)->removeAll();
  releaseModel();
}

CoreFeatureSet& SettingsModel::set() const {
  return *static_cast<CoreFeatureSet*>(GetMasterFeatureList());
}

std::string SettingsModel::state() const {
  std::string text = std::to_string(host::updateCount()) + "\n";
  for (const auto& [name, feature] : model_->features) {
    text += name + (feature.isAvailable() ? " available\n" : " unavailable\n");
    for (const host::Choice& choice : feature.choices()) text += choice.available ? "+" : "-";
  }
  // Reading records notifies, so the count is taken before it.
  return text + composeSettings(set(), *model_);
}

MemoryFile::MemoryFile(const std::string& text)
    : descriptor_(::memfd_create("input", MFD_CLOEXEC)) {
  require(descriptor_ != -1, "a file can be made");
  const ssize_t written = ::write(descriptor_, text.data(), text.size());
  require(written == static_cast<ssize_t>(text.size()), "a file can be written");
}

MemoryFile::~MemoryFile() {
  ::close(descriptor_);
}

std::string MemoryFile::path() const {
  return "/proc/self/fd/" + std::to_string(descriptor_);
}

void require(bool holds, const std::string& what) {
  if (holds) return;
  std::fprintf(stderr, "not so: %s\n", what.c_str());
  std::abort();
}

}  // namespace driver_feature::fuzz

extern "C" {

// Without a finisher nothing is folded.
DRIVER_FEATURE_EXPORT void FuzzFinisherChanged();
void FuzzFinisherChanged() {
  auto& set = *static_cast<CoreFeatureSet*>(GetMasterFeatureList());
  auto& finisher = static_cast<IntermediateCoreFeature&>(*set.FindFeatureInFeatureList("Finisher"));
  auto& fold = static_cast<IntermediateCoreFeature&>(*set.FindFeatureInFeatureList("Fold"));
  std::string value;
  finisher.getFeatureProperty(std::string("ValueString"), value);
  if (value == "None") fold.setFeatureProperty(std::string("ValueString"), std::string("Off"));
  fold.setFeatureProperty(std::string("Sensitivity"), value != "None");
}

// By number of the page.
DRIVER_FEATURE_EXPORT int FuzzComparePages(AttributeMap& first, AttributeMap& second);
int FuzzComparePages(AttributeMap& first, AttributeMap& second) {
  int a = 0;
  int b = 0;
  first.loadMapVariable("Page", a, nullptr);
  second.loadMapVariable("Page", b, nullptr);
  return a < b ? -1 : (a > b ? 1 : 0);
}

}  // extern "C"
