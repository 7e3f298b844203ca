#include "fault/faulty_host.h"

#include <iostream>
#include <streambuf>

#include "fault/failing_memory.h"

#include "Log.h"

namespace driver_feature::testing {

namespace {

constexpr const char* kDescription = R"xml(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="FaultUpdateRoutine"
                   LoadVORNCallbackHandler="FaultLoadRoutine"/>
  <Feature FeatureType="MultiSelect" Name="MediaOfTheWholeDocument"
           DefaultValue="LetterOfNorthAmerica" Sensitivity="true" PSCommand="[%s] setpagedevice&#10;"
           PJLCommand="@PJL SET PAPER=%s&#10;" TESKJTAttributeName="media-of-the-document"
           TESKAttributeSyntax="keyword-of-a-medium" AddCallbackRoutine="FaultChangeRoutine">
    <Option Name="A4OfTheRestOfTheWorld" PSCommand="/PageSize (iso-a4)" PJLCommand="A4OFTHEWORLDALL"
            TESKCommand="iso-a4-210x297mm"/>
    <Option Name="LetterOfNorthAmerica" PSCommand="/PageSize (na-letter)"
            PJLCommand="LETTEROFNORTHAMERICA" TESKCommand="na-letter-8.5x11in"/>
  </Feature>
  <Feature FeatureType="IntEntry" Name="NumberOfCopiesToPrint" DefaultValue="1" IntMaxValue="99"
           PSCommand="/NumberOfCopies %d def&#10;" PJLCommand="@PJL SET COPIES=%d&#10;"
           TESKOAAttributeName="copies-of-the-document" TESKAttributeSyntax="integer-in-a-range"/>
  <Feature FeatureType="TextEntry" Name="TitleOnTheBannerPage" DefaultValue="a title of some length"
           PSCommand="/TitleOfTheBanner (%s) def&#10;" PJLCommand="@PJL SET TITLE=%s&#10;"
           TESKJTAttributeName="title-on-the-banner" TESKAttributeSyntax="text-of-some-length"/>
  <Feature FeatureType="FloatEntry" Name="ScaleOfThePageContent" DefaultValue="1.5"
           PSCommand="/ScaleOfTheContent %f def&#10;" PJLCommand="@PJL SET SCALE=%f&#10;"
           InstOptAttributeName="scale-of-the-content" TESKAttributeSyntax="real-number-of-steps"/>
  <Feature FeatureType="UIOnly" Name="RoutinesOfTheHostInIt" AddPSCallbackRoutine="FaultTextRoutine"
           AddPJLCallbackRoutine="FaultTextRoutine" AddVORNCallbackRoutine="FaultTicketRoutine"/>
  <FeatureStaticGroup Name="GroupOfOutputFeatures" PSCommand="beginOfTheGroup&#10;%s"
           PJLCommand="@PJL COMMENT GROUP&#10;%s" TESKJTAttributeName="group-of-the-output"
           TESKAttributeSyntax="collection-of-some">
    <Feature FeatureType="IntEntry" Name="ResolutionOfTheOutput" DefaultValue="600"
             PSCommand="/ResolutionOfTheOutput %d def&#10;" PJLCommand="@PJL SET RESOLUTION=%d&#10;"
             TESKJTAttributeName="resolution-of-output" TESKAttributeSyntax="integer-in-a-range"/>
    <FeatureStaticGroup Name="GroupInsideOfTheGroup" PSCommand="beginOfTheInnerGroup&#10;%s"
             PJLCommand="@PJL COMMENT INNER&#10;%s" TESKJTAttributeName="group-in-the-output"
             TESKAttributeSyntax="collection-of-some">
      <Feature FeatureType="TextEntry" Name="TextInsideOfTheGroup" DefaultValue="the text of the group"
               PSCommand="/TextOfTheGroup (%s) def&#10;" PJLCommand="@PJL SET TEXT=%s&#10;"
               TESKJTAttributeName="text-of-the-group" TESKAttributeSyntax="text-of-some-length"/>
    </FeatureStaticGroup>
  </FeatureStaticGroup>
  <FeatureDynamicGroup Name="ExceptionsForSomePages" SortFunctionName="FaultSortRoutine">
    <FeatureStaticGroup Name="ShapeOfOneException">
      <Feature FeatureType="IntEntry" Name="PageThatIsAnException" DefaultValue="1"/>
      <Feature FeatureType="MultiSelect" Name="PaperOfThatOnePageOnly"
               DefaultValue="PlainPaperOfTheOffice">
        <Option Name="PlainPaperOfTheOffice"/>
        <Option Name="GlossyPaperForPhotos"/>
      </Feature>
    </FeatureStaticGroup>
  </FeatureDynamicGroup>
</Features>)xml";

FaultyHost* current = nullptr;

void dropLine(int /*level*/, const char* /*category*/, const char* /*text*/, std::size_t /*length*/,
              void* /*context*/) {}

// Collects what is printed, and has memory for it at any time.
class Collector : public std::streambuf {
 public:
  const std::string& text() const { return text_; }

 protected:
  int_type overflow(int_type character) override {
    const MemoryPause pause;
    text_ += traits_type::to_char_type(character);
    return character;
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const MemoryPause pause;
    text_.append(bytes, static_cast<std::size_t>(count));
    return count;
  }

 private:
  std::string text_;
};

}  // namespace

FaultyHost::FaultyHost()
    : load_(function<int(void*)>("FeatureXMLTagHandler")),
      getSet_(function<void*()>("GetMasterFeatureList")),
      complete_(function<void()>("SetFeatureCreationCompleteFlag")) {
  EXPECT_EQ(library_.problem(), "");
  XMLProblem problem;
  description_ = XMLDocument::parseText(kDescription, "description", problem);
  EXPECT_NE(description_, nullptr) << problem.line << ": " << problem.text;
  SetLogHandler(dropLine, nullptr);
  current = this;
}

FaultyHost::~FaultyHost() {
  current = nullptr;
  SetLogHandler(nullptr, nullptr);
}

std::string FaultyHost::dump() const {
  Collector collector;
  std::streambuf* const before = std::cout.rdbuf(&collector);
  try {
    set().dumpFeatureListValues();
  } catch (...) {
    std::cout.rdbuf(before);
    EXPECT_EQ(collector.text(), "") << "half of a dump was printed";
    throw;
  }
  std::cout.rdbuf(before);
  EXPECT_TRUE(std::cout.good());
  return collector.text();
}

std::string FaultyHost::model() const {
  return dump() + output(0) + output(1) + output(2);
}

std::string FaultyHost::text(const std::string& name, const std::string& property) const {
  std::string value;
  return object(name).getFeatureProperty(property, value) ? value : "(refused)";
}

AttributeMap FaultyHost::record(const std::string& page, const std::string& paper) {
  AttributeMap values;
  values[kPage] = page;
  values[kPaper] = paper;
  return values;
}

}  // namespace driver_feature::testing

namespace {

driver_feature::testing::Routines& routines() {
  return driver_feature::testing::current->routines;
}

}  // namespace

// Found by the names in the description.
extern "C" {

bool FaultUpdateRoutine() {
  if (routines().update) routines().update();
  return true;
}

void FaultChangeRoutine() {
  if (routines().change) routines().change();
}

int FaultLoadRoutine(void* /*element*/, int mode) {
  return routines().load ? routines().load(mode) : 0;
}

int FaultSortRoutine(AttributeMap& first, AttributeMap& second) {
  if (routines().sort) return routines().sort(first, second);
  return first[driver_feature::testing::kPage].compare(second[driver_feature::testing::kPage]);
}

void FaultTextRoutine(void* /*set*/, std::string& text) {
  text += "text of the routine of the host\n";
  if (routines().text) routines().text(text);
}

void FaultTicketRoutine(void* /*set*/, VORNWriter* writer, _xmlNode* parent) {
  std::string name = "attribute-of-the-routine";
  std::string syntax = "text-of-some-length";
  std::string value = "value of the host's routine";
  writer->createCommandNode(name, syntax, value, true);
  if (routines().ticket) routines().ticket(writer, parent);
}

}  // extern "C"
