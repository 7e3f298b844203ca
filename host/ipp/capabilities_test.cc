#include "host/ipp/capabilities.h"

#include <gtest/gtest.h>

#include <fstream>

#include "host/base/child_process.h"
#include "host/session/session.h"
#include "host/settings/settings_file.h"
#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

// What `show` makes of a description that is loaded in a process of its own.
using ShowCapabilities =
    std::function<std::vector<std::string>(const host::Session& session, const Capabilities& all)>;

std::vector<std::string> ofDescription(const std::string& file, const ShowCapabilities& show) {
  const auto texts = host::runInChild(host::ChildStreams::kDropped, [&] {
    host::SessionRequest request;
    request.description = file;
    request.library = DRIVER_FEATURE_LIBRARY;
    request.routines = {OFFICE_ROUTINES};
    const auto session = host::Session::open(request);
    if (!session) return std::vector<std::string>{session.error().text};
    return show(**session, capabilitiesOf((*session)->model(), (*session)->additions()));
  });
  return texts ? *texts : std::vector<std::string>{texts.error().text};
}

std::vector<std::string> ofText(const std::string& xml, const ShowCapabilities& show) {
  const std::string file =
      testing::TempDir() + "capabilities_test." + std::to_string(getpid()) + ".xml";
  std::ofstream(file) << xml;
  auto texts = ofDescription(file, show);
  std::remove(file.c_str());
  return texts;
}

std::vector<std::string> namesOf(const host::Session& /*session*/, const Capabilities& all) {
  std::vector<std::string> names;
  for (const FeatureCapability& feature : all.features) names.push_back(feature.name);
  return names;
}

using Lines = std::vector<std::string>;

// Without the routines' own features, lists for devices, and members of records.
TEST(CapabilitiesTest, Features_OfTheOfficePrinter_AreThoseThatAUserSets) {
  EXPECT_EQ(ofDescription(OFFICE_DESCRIPTION, namesOf), (Lines{"AccountCode",
                                                               "BannerPage",
                                                               "Collate",
                                                               "ColorMode",
                                                               "Copies",
                                                               "CustomPageHeight",
                                                               "CustomPageWidth",
                                                               "Duplex",
                                                               "EconoMode",
                                                               "EdgeSmoothing",
                                                               "Fold",
                                                               "Gamma",
                                                               "GutterMargin",
                                                               "HoldJob",
                                                               "HoldPin",
                                                               "InputSlot",
                                                               "InstalledDuplexUnit",
                                                               "InstalledFinisher",
                                                               "JamRecovery",
                                                               "JobName",
                                                               "JobOffset",
                                                               "MediaType",
                                                               "MediaWeight",
                                                               "MirrorImage",
                                                               "NumberUp",
                                                               "Orientation",
                                                               "OutputBin",
                                                               "PageSize",
                                                               "PrintDensity",
                                                               "Punch",
                                                               "Resolution",
                                                               "Staple",
                                                               "UserName",
                                                               "WaitTimeout",
                                                               "Watermark",
                                                               "WatermarkAngle",
                                                               "WatermarkSize",
                                                               "WatermarkText"}));
}

TEST(CapabilitiesTest, Features_OfTheOfficePrinter_HaveWhatTheDescriptionSays) {
  const auto show = [](const host::Session& /*session*/, const Capabilities& all) {
    const FeatureCapability& pin = *all.find("HoldPin");
    const FeatureCapability& width = *all.find("CustomPageWidth");
    const FeatureCapability& size = *all.find("PageSize");
    return Lines{
        all.sizeFeature,
        pin.enabler.name + "=" + pin.enabler.value,
        std::to_string(pin.maxTextLength.value_or(0)) + pin.allowedCharacters,
        pin.isEncrypted ? "secret" : "open",
        width.enabler.name + "=" + width.enabler.value,
        host::numberText(width.floatMin.value_or(0)),
        size.ticketName + " " + size.syntax + " " + size.value,
        size.choices[1].name + " " + size.choices[1].key + " " + size.choices[1].ticketName,
        std::to_string(size.choices[1].width) + "x" + std::to_string(size.choices[1].height),
        std::to_string(size.choices[1].left),
        all.find("InstalledFinisher")->isHardware ? "hardware" : "job",
        all.find("Staple")->group};
  };
  EXPECT_EQ(ofDescription(OFFICE_DESCRIPTION, show),
            (Lines{"PageSize", "HoldJob=Private", "40123456789", "secret", "PageSize=Custom",
                   "76.2", "media keyword A4", "A4 a4 iso_a4_210x297mm", "21000x29700", "420",
                   "hardware", "Finishing"}));
}

TEST(CapabilitiesTest, Features_AfterTheChoicesWereTried_AreAsBefore) {
  const auto show = [](const host::Session& session, const Capabilities& all) {
    Lines changed;
    for (const FeatureCapability& feature : all.features) {
      const host::FeatureView& view = session.model().features.at(feature.name);
      if (!view.isAtDefault()) changed.push_back(feature.name);
      const bool needsChoice = !feature.enabler.name.empty();
      if (view.isAvailable() == needsChoice) changed.push_back(feature.name + "!");
    }
    return changed;
  };
  EXPECT_EQ(ofDescription(OFFICE_DESCRIPTION, show), Lines{});
}

constexpr const char* kWithAdditions = R"(<DriverConfiguration>
  <FeatureDescription>
    <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"
                     LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
    <Feature FeatureType="MultiSelect" Name="Sheet" DefaultValue="Big">
      <Option Name="Big"/>
      <Option Name="Odd"/>
    </Feature>
    <Feature FeatureType="MultiSelect" Name="Tray" DefaultValue="None">
      <Option Name="None"/>
      <Option Name="Two"/>
    </Feature>
  </FeatureDescription>
  <FeatureRules>
    <Hardware Feature="Tray"/>
    <Never Id="odd" Text="Not with two."><When Feature="Sheet" Is="Odd"/><When Feature="Tray" Is="Two"/></Never>
  </FeatureRules>
  <FeatureMedia Feature="Sheet">
    <Size Option="Big" Width="210" Height="297" LeftMargin="1" BottomMargin="2" RightMargin="3.5" TopMargin="4.25"/>
  </FeatureMedia>
  <FeatureTexts Language="de"><Text For="Sheet">Bogen</Text></FeatureTexts>
  <FeaturePresets><Preset Name="odd" Text="Odd one">
      Sheet=Odd
  </Preset></FeaturePresets>
</DriverConfiguration>
)";

TEST(CapabilitiesTest, Additions_AreTakenOver) {
  const auto show = [](const host::Session& /*session*/, const Capabilities& all) {
    Lines lines = {all.sizeFeature, all.find("Tray")->isHardware ? "hardware" : "job"};
    for (const ChoiceCapability& each : all.find("Sheet")->choices) {
      lines.push_back(each.name + " " + std::to_string(each.width) + "x" +
                      std::to_string(each.height) + " " + std::to_string(each.left) + " " +
                      std::to_string(each.bottom) + " " + std::to_string(each.right) + " " +
                      std::to_string(each.top));
    }
    for (const RuleCapability& rule : all.rules) {
      lines.push_back(rule.id + ": " + rule.conditions[0].feature + " " +
                      rule.conditions[0].choices[0] + " " + rule.conditions[1].choices[0]);
    }
    for (const PresetCapability& preset : all.presets) {
      lines.push_back(preset.name + ": " + textOf(preset.settings));
    }
    for (const LanguageCapability& language : all.languages) {
      for (const auto& [key, text] : language.texts) {
        lines.push_back(language.language + " " + key + "=" + text);
      }
    }
    return lines;
  };
  EXPECT_EQ(ofText(kWithAdditions, show),
            (Lines{"Sheet", "hardware", "Big 21000x29700 100 200 350 425", "Odd 0x0 0 0 0 0",
                   "odd: Sheet Odd Two", "odd: Sheet=Odd", " preset:odd=Odd one",
                   " rule:odd=Not with two.", "de Sheet=Bogen"}));
}

}  // namespace
}  // namespace driver_feature::ipp
