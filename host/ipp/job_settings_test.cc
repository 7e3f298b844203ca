#include "host/ipp/job_settings.h"

#include <gtest/gtest.h>

#include <climits>
#include <string_view>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

// An imported printer with the usual names of PPDs.
Translation officePrinter() {
  FeatureCapability resolution = listOf("Resolution", {"600dpi", "1200x600dpi"});
  FeatureCapability pin = textOf("Pin", 4, "0123456789");
  pin.isEncrypted = true;
  pin.enabler = {"Hold", "Private"};
  FeatureCapability sides = listOf("Duplex", {"None", "DuplexNoTumble", "DuplexTumble"});
  Capabilities all = capabilitiesWith(
      {wholeNumber("Copies", 1, 99, "1"), sides, decimalNumber("Gamma", 0.5F, 3, "1"),
       listOf("Hold", {"Off", "Private"}), listOf("InputSlot", {"Tray1", "ManualFeed"}),
       listOf("MediaType", {"Plain", "Glossy"}), textOf("Owner", 5, "abcdefgh"), pageSizes(), pin,
       resolution, listOf("Punch", {"None", "2Hole"}),
       listOf("Staple", {"None", "UpperLeft", "DualLeft"}),
       listOf("TonerSave", {"Printer Default", "On", "Off"}), wholeNumber("Wait", -5, 300, "60")});
  all.presets = {{"Quick Draft", {{"TonerSave", "On"}, {"PageSize", "A5"}, {"Copies", "2"}}}};
  return Translation(std::move(all));
}

JobRequest jobRequest() {
  return {};
}

TEST(JobSettingsTest, Settings_NothingIsAsked_AreNone) {
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest()), "");
}

TEST(JobSettingsTest, Settings_WordsOfStandardAttributes_AreChoices) {
  const JobRequest request = std::move(jobRequest()
                                           .keyword("sides", "two-sided-short-edge")
                                           .resolution("printer-resolution", 1200, 600)
                                           .keyword("media", "iso_a5_148x210mm"));
  EXPECT_EQ(settingsFor(officePrinter(), request),
            "Duplex=DuplexTumble Resolution=1200x600dpi PageSize=A5");
}

TEST(JobSettingsTest, Settings_ResolutionPerCentimetre_IsThatPerInch) {
  FeatureCapability resolution = listOf("Resolution", {"600dpi", "203dpi", "1200dpi"});
  const Translation printer(capabilitiesWith({resolution}));
  EXPECT_EQ(
      settingsFor(printer, jobRequest().resolution("printer-resolution", 236, 236, IPP_RES_PER_CM)),
      "Resolution=600dpi");
  EXPECT_EQ(
      settingsFor(printer, jobRequest().resolution("printer-resolution", 80, 80, IPP_RES_PER_CM)),
      "Resolution=203dpi");
  EXPECT_EQ(
      settingsFor(printer, jobRequest().resolution("printer-resolution", 472, 472, IPP_RES_PER_CM)),
      "Resolution=1200dpi");
  EXPECT_EQ(
      settingsFor(printer, jobRequest().resolution("printer-resolution", 118, 118, IPP_RES_PER_CM)),
      " !printer-resolution");
  EXPECT_EQ(settingsFor(printer, jobRequest().resolution("printer-resolution", INT_MAX, INT_MAX,
                                                         IPP_RES_PER_CM)),
            " !printer-resolution");
}

ssize_t readPart(void* context, ipp_uchar_t* buffer, size_t size) {
  auto& rest = *static_cast<std::string_view*>(context);
  const std::size_t count = rest.copy(reinterpret_cast<char*>(buffer), size);
  rest.remove_prefix(count);
  return static_cast<ssize_t>(count);
}

// 600 by 600 in units that IPP has no name for, as a client may send them.
TEST(JobSettingsTest, Settings_ResolutionInAnUnknownUnit_IsRefused) {
  const Translation printer(capabilitiesWith({listOf("Resolution", {"600dpi", "1200dpi"})}));
  for (const char unit : {'\0', '\2', '\5', 'C', '\xff'}) {
    std::string bytes("\2\0\0\4\0\0\0\1\2\x32\0\x12printer-resolution\0\x09", 32);
    bytes += std::string("\0\0\2\x58\0\0\2\x58", 8) + unit + '\3';
    std::string_view rest = bytes;
    const IppPointer request(ippNew());
    while (ippReadIO(&rest, &readPart, 1, nullptr, request.get()) != IPP_STATE_DATA) {
      ASSERT_NE(ippGetState(request.get()), IPP_STATE_ERROR);
    }
    const JobSettings job = printer.settingsOf(request.get());
    EXPECT_TRUE(job.settings.empty());
    ASSERT_EQ(job.unsupported.size(), 1U) << static_cast<int>(unit);
    EXPECT_EQ(job.unsupported[0].name, "printer-resolution");
  }
}

TEST(JobSettingsTest, Settings_OwnAttributes_TakeKeywordsNamesAndNumbers) {
  const Translation office = officePrinter();
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("x-toner-save", "on")), "TonerSave=On");
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("x-toner-save", "printer-default")),
            "TonerSave=Printer Default");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-toner-save", "Printer Default")),
            "TonerSave=Printer Default");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("x-wait", -5)), "Wait=-5");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-wait", "300")), "Wait=300");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-gamma", "2.50")), "Gamma=2.5");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("x-gamma", 2)), "Gamma=2");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-owner", "abba")), "Owner=abba");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-owner", "")), "Owner=");
}

TEST(JobSettingsTest, Settings_ValuesOutsideOfLimits_AreUnsupported) {
  const Translation office = officePrinter();
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("sides", "both")), " !sides");
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("x-toner-save", "sideways")),
            " !x-toner-save");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("x-wait", -6)), " !x-wait");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("x-wait", 301)), " !x-wait");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-wait", "1 2")), " !x-wait");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-gamma", "0.49")), " !x-gamma");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-gamma", "nan")), " !x-gamma");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-owner", "abcdef")), " !x-owner");
  EXPECT_EQ(settingsFor(office, jobRequest().name("x-owner", "xyz")), " !x-owner");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("copies", 0)), " !copies");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("copies", 100)), " !copies");
  EXPECT_EQ(settingsFor(office, jobRequest().enums("sides", {1, 2})), " !sides");
}

TEST(JobSettingsTest, Settings_ControlCharactersInAText_AreUnsupported) {
  const Translation plain(capabilitiesWith({textOf("Note", 0)}));
  EXPECT_EQ(settingsFor(plain, jobRequest().name("x-note", "two\nlines")), " !x-note");
  EXPECT_EQ(settingsFor(plain, jobRequest().name("x-note", "\x7F")), " !x-note");
  EXPECT_EQ(settingsFor(plain, jobRequest().name("x-note", "a b\xC3\xA4")), "Note=a b\xC3\xA4");
}

TEST(JobSettingsTest, Settings_SameAttributeTwice_TakeTheLastOne) {
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest()
                                             .keyword("sides", "two-sided-short-edge")
                                             .keyword("media", "iso_a5_148x210mm")
                                             .keyword("sides", "one-sided")),
            "Duplex=None PageSize=A5");
}

TEST(JobSettingsTest, Settings_ListsComeBeforeNumbersAndTexts) {
  EXPECT_EQ(
      settingsFor(
          officePrinter(),
          jobRequest().integer("x-wait", 5).name("x-owner", "a").keyword("sides", "one-sided")),
      "Duplex=None Wait=5 Owner=a");
}

TEST(JobSettingsTest, Copies_WithAFeature_AreASettingAndANumber) {
  const JobRequest request = std::move(jobRequest().integer("copies", 7));
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(textOf(job.settings), "Copies=7");
  EXPECT_EQ(job.copies, 7);
}

TEST(JobSettingsTest, Copies_WithoutAFeature_AreANumber) {
  const JobRequest request = std::move(jobRequest().integer("copies", 999));
  const JobSettings job = Translation(capabilitiesWith({})).settingsOf(request.get());
  EXPECT_EQ(textOf(job.settings), "");
  EXPECT_EQ(job.copies, 999);
  EXPECT_EQ(settingsFor(Translation(capabilitiesWith({})), jobRequest().integer("copies", 1000)),
            " !copies");
}

TEST(JobSettingsTest, Finishings_ListSaysAllOfThem) {
  const Translation office = officePrinter();
  EXPECT_EQ(settingsFor(office, jobRequest().enums("finishings", {28, 74})),
            "Punch=2Hole Staple=DualLeft");
  EXPECT_EQ(settingsFor(office, jobRequest().enums("finishings", {20})),
            "Punch=None Staple=UpperLeft");
  EXPECT_EQ(settingsFor(office, jobRequest().enums("finishings", {3})), "Punch=None Staple=None");
  EXPECT_EQ(settingsFor(office, jobRequest().enums("finishings", {20, 93})),
            "Punch=None Staple=UpperLeft !finishings");
}

JobRequest templates(const std::vector<std::string>& names) {
  std::vector<IppPointer> collections;
  std::vector<const ipp_t*> values;
  for (const std::string& name : names) {
    collections.emplace_back(ippNew());
    ippAddString(collections.back().get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "finishing-template",
                 nullptr, name.c_str());
    values.push_back(collections.back().get());
  }
  JobRequest request;
  ippAddCollections(request.get(), IPP_TAG_JOB, "finishings-col", static_cast<int>(values.size()),
                    values.data());
  return request;
}

TEST(JobSettingsTest, FinishingTemplate_OfAFinishing_IsIt) {
  EXPECT_EQ(settingsFor(officePrinter(), templates({"staple-dual-left", "punch-dual-left"})),
            "Staple=DualLeft Punch=2Hole");
  EXPECT_EQ(settingsFor(officePrinter(), templates({"fold-half"})), " !finishings-col");
}

TEST(JobSettingsTest, FinishingTemplate_OfAPreset_IsAppliedBeforeTheRest) {
  JobRequest request = JobRequest();
  request.keyword("media", "na_letter_8.5x11in");
  const JobRequest preset = templates({"quick-draft"});
  ippCopyAttribute(request.get(), ippFindAttribute(preset.get(), "finishings-col", IPP_TAG_ZERO),
                   0);
  EXPECT_EQ(settingsFor(officePrinter(), request), "TonerSave=On PageSize=Letter Copies=2");
}

TEST(JobSettingsTest, Preset_OfThePrinterUri_ComesFirst) {
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest().integer("copies", 3), "quick-draft"),
            "TonerSave=On PageSize=A5 Copies=3");
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest(), "unknown"), "");
  // At this address A4 is not the default.
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest().keyword("media", "iso_a4_210x297mm"),
                        "quick-draft"),
            "TonerSave=On PageSize=A4 Copies=2");
  const JobSettings job = officePrinter().settingsOf(jobRequest().get(), "Quick Draft");
  EXPECT_EQ(job.sheet.width, 14800);
  EXPECT_EQ(job.sheet.height, 21000);
}

// A print queue made of the printer sends its defaults with every job, and names
// templates as PPDs do.
TEST(JobSettingsTest, Preset_WithTheDefaultsOfAQueue_StaysWhole) {
  JobRequest request;
  request.keyword("media", "iso_a4_210x297mm").integer("copies", 1).keyword("sides", "one-sided");
  const JobRequest preset = templates({"QuickDraft"});
  ippCopyAttribute(request.get(), ippFindAttribute(preset.get(), "finishings-col", IPP_TAG_ZERO),
                   0);
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(textOf(job.settings), "TonerSave=On PageSize=A5 Duplex=None Copies=2");
  EXPECT_EQ(job.sheet.width, 14800);
  EXPECT_EQ(job.status(), IPP_STATUS_OK);
  EXPECT_EQ(settingsFor(officePrinter(), templates({"StapleDualLeft"})), "Staple=DualLeft");
}

TEST(JobSettingsTest, Password_ForAFeatureThatIsNotAvailable_BringsWhatMakesItSo) {
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest().octets("job-password", "1234")),
            "Hold=Private Pin=1234");
  EXPECT_EQ(settingsFor(officePrinter(),
                        jobRequest().octets("job-password", "1234").keyword("x-hold", "off")),
            "Hold=Off Pin=1234");
}

TEST(JobSettingsTest, Password_ThatIsWrong_IsUnsupported) {
  const Translation office = officePrinter();
  for (const char* wrong : {"", "12345", "12a4"}) {
    EXPECT_EQ(settingsFor(office, jobRequest().octets("job-password", wrong)), " !job-password")
        << wrong;
  }
  EXPECT_EQ(
      settingsFor(Translation(capabilitiesWith({})), jobRequest().octets("job-password", "1")),
      " !job-password");
  JobRequest request;
  request.octets("job-password", "1");
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "job-password-encryption",
               nullptr, "md5");
  EXPECT_EQ(settingsFor(office, request), "Hold=Private Pin=1 !job-password-encryption");
}

TEST(JobSettingsTest, Hold_WordsOfThePrinter_AreNotSettings) {
  const JobRequest request = std::move(jobRequest().keyword("job-hold-until", "indefinite"));
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(job.holdUntil, "indefinite");
  EXPECT_EQ(textOf(job.settings), "");
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest().keyword("job-hold-until", "no-hold")), "");
  EXPECT_EQ(settingsFor(officePrinter(), jobRequest().keyword("job-hold-until", "weekend")),
            " !job-hold-until");
}

TEST(JobSettingsTest, Hold_WordOfAFeature_IsItsChoice) {
  FeatureCapability hold = listOf("HoldJob", {"Off", "Proof"});
  hold.ticketName = "job-hold-until";
  hold.choices[0].ticketName = "no-hold";
  hold.choices[1].ticketName = "proof";
  const Translation printer(capabilitiesWith({hold}));
  EXPECT_EQ(settingsFor(printer, jobRequest().keyword("job-hold-until", "proof")), "HoldJob=Proof");
  EXPECT_EQ(settingsFor(printer, jobRequest().keyword("job-hold-until", "no-hold")), "HoldJob=Off");
  EXPECT_EQ(advertised(printer, "job-hold-until-supported"), "no-hold,indefinite,proof");
}

TEST(JobSettingsTest, PageOptions_AreForTheFilter) {
  const JobRequest request = std::move(jobRequest()
                                           .ranges("page-ranges", {1, 7, 9}, {4, 7, 2147483647})
                                           .integer("number-up", 4)
                                           .enums("orientation-requested", {4})
                                           .keyword("print-rendering-intent", "auto"));
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(textOf(job.pageOptions), "page-ranges=1-4,7,9- number-up=4 orientation-requested=4");
  EXPECT_EQ(textOf(job.settings), "");
  EXPECT_EQ(job.status(), IPP_STATUS_OK);
}

TEST(JobSettingsTest, PageOptions_ThatAreWrong_AreUnsupported) {
  const Translation office = officePrinter();
  EXPECT_EQ(settingsFor(office, jobRequest().ranges("page-ranges", {3, 1}, {4, 2})),
            " !page-ranges");
  EXPECT_EQ(settingsFor(office, jobRequest().ranges("page-ranges", {0}, {4})), " !page-ranges");
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("page-ranges", "1-4")), " !page-ranges");
  EXPECT_EQ(settingsFor(office, jobRequest().integer("number-up", 3)), " !number-up");
  EXPECT_EQ(settingsFor(office, jobRequest().keyword("print-content-optimize", "photo")),
            " !print-content-optimize");
}

TEST(JobSettingsTest, UnknownAttributes_AreUnsupportedAsAWhole) {
  JobRequest request;
  request.keyword("cover-front", "x").keyword("sides", "one-sided");
  request.boolean("ipp-attribute-fidelity", true, IPP_TAG_OPERATION);
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(job.status(), IPP_STATUS_ERROR_ATTRIBUTES_OR_VALUES);
  const IppPointer response(ippNew());
  addUnsupported(response.get(), job);
  ipp_attribute_t* first = ippFirstAttribute(response.get());
  ASSERT_NE(first, nullptr);
  EXPECT_STREQ(ippGetName(first), "cover-front");
  EXPECT_EQ(ippGetValueTag(first), IPP_TAG_UNSUPPORTED_VALUE);
  EXPECT_EQ(ippGetGroupTag(first), IPP_TAG_UNSUPPORTED_GROUP);
  EXPECT_EQ(ippNextAttribute(response.get()), nullptr);
}

TEST(JobSettingsTest, UnsupportedValues_AreReturned) {
  IppPointer media = mediaSize(21000, 29700);
  ippAddString(media.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-color", nullptr, "blue");
  ippAddString(media.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-type", nullptr, "cardboard");
  const JobRequest request =
      std::move(jobRequest().collection("media-col", media).keyword("sides", "both"));
  const JobSettings job = officePrinter().settingsOf(request.get());
  EXPECT_EQ(job.status(), IPP_STATUS_OK_IGNORED_OR_SUBSTITUTED);
  EXPECT_EQ(textOf(job.settings), "PageSize=A4");
  const IppPointer response(ippNew());
  addUnsupported(response.get(), job);
  EXPECT_EQ(textOf(ippFindAttribute(response.get(), "media-col", IPP_TAG_ZERO)),
            "{media-color=blue media-type=cardboard}");
  EXPECT_EQ(textOf(ippFindAttribute(response.get(), "sides", IPP_TAG_ZERO)), "both");
}

// libcups reads such a request, and ends the process when it is to write it again.
TEST(JobSettingsTest, MembersWithoutAValue_AreNotReturned) {
  const IppPointer media(ippNew());
  ippAddSeparator(media.get());
  ipp_attribute_t* member = ippFirstAttribute(media.get());
  ASSERT_NE(ippSetName(media.get(), &member, "media-size4"), 0);
  JobRequest request;
  request.collection("media-col", media);
  const JobSettings job = officePrinter().settingsOf(request.get());
  ASSERT_EQ(job.unsupported.size(), 1U);
  const IppPointer response(ippNew());
  addUnsupported(response.get(), job);
  ipp_attribute_t* first = ippFirstAttribute(response.get());
  ASSERT_NE(first, nullptr);
  EXPECT_STREQ(ippGetName(first), "media-col");
  EXPECT_EQ(ippGetValueTag(first), IPP_TAG_UNSUPPORTED_VALUE);
}

TEST(JobSettingsTest, Hold_AmongOperationAttributes_IsTaken) {
  JobRequest request;
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "job-hold-until", nullptr,
               "indefinite");
  EXPECT_EQ(officePrinter().settingsOf(request.get()).holdUntil, "indefinite");
}

TEST(JobSettingsTest, OperationAttributes_AreNotOfTheJob) {
  JobRequest request;
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, "x");
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "sides", nullptr, "one-sided");
  request.name("job-name", "y").integer("job-priority", 5);
  EXPECT_EQ(settingsFor(officePrinter(), request), "");
}

TEST(JobSettingsTest, Change_OfWhatWasAsked_ReachesCopiesAndTheSheet) {
  const Translation printer = officePrinter();
  const JobRequest request = std::move(jobRequest()
                                           .keyword("media", "iso_a4_210x297mm")
                                           .integer("copies", 5)
                                           .keyword("sides", "two-sided-long-edge"));
  JobSettings job = printer.settingsOf(request.get());
  printer.change(job, {{"PageSize", "A5"}, {"Copies", "2"}, {"Staple", "None"}});
  std::string settings;
  for (const host::Setting& one : job.settings) settings += one.name + "=" + one.value + " ";
  EXPECT_EQ(settings, "PageSize=A5 Duplex=DuplexNoTumble Copies=2 Staple=None ");
  EXPECT_EQ(job.copies, 2);
  EXPECT_EQ(job.sheet.width, 14800);
  EXPECT_EQ(job.sheet.height, 21000);
}

}  // namespace
}  // namespace driver_feature::ipp
