// What the check takes for the output is what the library writes.

#include "host/check/written_output.h"

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "host/base/child_process.h"
#include "host/session/output_form.h"
#include "host/session/session.h"
#include "support/problem_text.h"

namespace driver_feature::check {
namespace {

// Features and groups of every kind, in an order that is not that of the output.
// "SELECTED" means the option that is selected.
constexpr const char* kDescription = R"xml(<FeatureDescription ByteEscapes="yes">
  <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"/>
  <FeatureStaticGroup Name="G" PSCommand="&lt;&lt; %s>> 100%%&#10;" PJLCommand="@PJL G&#10;%s">
    <Feature FeatureType="IntEntry" Name="z" DefaultValue="-7"
             PSCommand="/Z %05d %%" PJLCommand="@PJL Z=%x&#10;"/>
    <FeatureStaticGroup Name="H" PSCommand="[%s]">
      <Feature FeatureType="FloatEntry" Name="y" DefaultValue="0.1" PSCommand="%.9f"/>
    </FeatureStaticGroup>
    <FeatureStaticGroup Name="I" PJLCommand="%s">
      <Feature FeatureType="UIOnly" Name="x" PSCommand="never"/>
    </FeatureStaticGroup>
    <Feature FeatureType="IntEntry" Name="silent"/>
  </FeatureStaticGroup>
  <Feature FeatureType="MultiSelect" Name="b" DefaultValue="SELECTED" PSCommand="/b (%s) %%&#10;"
           PJLCommand="&#xF71B;%%-12345X@PJL B=%5s&#10;">
    <Option Name="o1" PSCommand="100%% %s" PJLCommand="1"/>
    <Option Name="o2"/>
    <Option Name="o3" PSCommand="3" PJLCommand="long text"/>
  </Feature>
  <Feature FeatureType="TextEntry" Name="A" DefaultValue="50%" PSCommand="%s"/>
  <Feature FeatureType="TextEntry" Name="Z" PSCommand="(%s)"/>
  <Feature FeatureType="IntEntry" Name="fixed" PSCommand="showpage %%&#10;"/>
  <Feature FeatureType="IntEntry" Name="refused" PSCommand="%d %d" PJLCommand="%s"/>
  <Feature FeatureType="IntEntry" Name="twice" DefaultValue="1" PSCommand="1: %d&#10;"/>
  <Feature FeatureType="IntEntry" Name="twice" DefaultValue="2" PSCommand="2: %d&#10;"/>
  <Feature FeatureType="IntEntry" Name="" DefaultValue="3" PSCommand="unlisted"/>
  <Feature FeatureType="FloatEntry" Name="broken" DefaultValue="1,5" PSCommand="%g "/>
  <FeatureStaticGroup Name="J" PSCommand="%d">
    <Feature FeatureType="IntEntry" Name="inJ" PSCommand="%d"/>
  </FeatureStaticGroup>
  <FeatureDynamicGroup Name="D">
    <FeatureStaticGroup Name="T" PSCommand="%s">
      <Feature FeatureType="IntEntry" Name="inT" PSCommand="%d"/>
    </FeatureStaticGroup>
  </FeatureDynamicGroup>
</FeatureDescription>)xml";

std::string joined(const Pieces& pieces) {
  std::string text;
  for (const Piece& piece : pieces) text += piece.text;
  return text;
}

class WrittenOutputTest : public testing::Test {
 protected:
  WrittenOutputTest() : memory_(memfd_create("description", MFD_CLOEXEC)) {}
  ~WrittenOutputTest() override { close(memory_); }

  std::string describe(const std::string& selected) const {
    std::string text = kDescription;
    text.replace(text.find("SELECTED"), 8, selected);
    EXPECT_EQ(ftruncate(memory_, 0), 0);
    EXPECT_EQ(pwrite(memory_, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(memory_);
  }

  // PostScript and PJL as the library writes them.
  static std::vector<std::string> written(const std::string& file) {
    const auto texts = host::runInChild(host::ChildStreams::kShared, [&file] {
      host::SessionRequest request;
      request.description = file;
      request.library = DRIVER_FEATURE_LIBRARY;
      const auto session = host::Session::open(request);
      if (!session) return std::vector{problemText(session), std::string()};
      return std::vector{outputOf((*session)->features(), host::OutputForm::kPostScript),
                         outputOf((*session)->features(), host::OutputForm::kPjl)};
    });
    EXPECT_EQ(problemText(texts), "");
    return texts ? *texts : std::vector<std::string>(2);
  }

  int memory_;  // A file for descriptions.
};

TEST_F(WrittenOutputTest, WriteOutput_EveryOption_IsWhatTheLibraryWrites) {
  for (const std::string option : {"o1", "o2", "o3", "unknown"}) {
    SCOPED_TRACE(option);
    const std::string file = describe(option);
    const std::vector<std::string> texts = written(file);
    EXPECT_NE(texts[0].find("2: 2\n"), std::string::npos) << texts[0];
    const auto document = host::Document::read(file);
    ASSERT_EQ(problemText(document), "");
    const auto elements = elementsOf(*document);
    EXPECT_EQ(joined(writeOutput(*elements.description, kPostScriptOutput).pieces), texts[0]);
    EXPECT_EQ(joined(writeOutput(*elements.description, kPjlOutput).pieces), texts[1]);
  }
}

TEST_F(WrittenOutputTest, WriteOption_AnotherOption_IsWhatItsSelectionWrites) {
  const auto document = host::Document::read(describe("o1"));
  ASSERT_EQ(problemText(document), "");
  const auto elements = elementsOf(*document);
  const WrittenOutput output = writeOutput(*elements.description, kPostScriptOutput);
  ASSERT_EQ(output.lists.size(), 1U);
  const WrittenList& list = output.lists[0];
  EXPECT_EQ(list.selected, list.feature->children[0].get());
  const Pieces selected(output.pieces.begin() + static_cast<std::ptrdiff_t>(list.begin),
                        output.pieces.begin() + static_cast<std::ptrdiff_t>(list.end));
  EXPECT_EQ(joined(selected), "/b (100%% %s) %\n");
  EXPECT_EQ(joined(writeOption(*list.feature, *list.feature->children[1], kPostScriptOutput)),
            "/b () %\n");
  EXPECT_EQ(joined(writeOption(*list.feature, *list.feature->children[2], kPjlOutput)),
            "\x1B%-12345X@PJL B=long text\n");
}

TEST_F(WrittenOutputTest, Piece_EveryByte_HasItsPlace) {
  const auto document = host::Document::read(describe("o1"));
  ASSERT_EQ(problemText(document), "");
  const auto elements = elementsOf(*document);
  const WrittenOutput output = writeOutput(*elements.description, kPjlOutput);
  const Piece& first = output.pieces.front();
  EXPECT_EQ(describePiece(first), "PJLCommand of feature \"b\"");
  EXPECT_EQ(first.text, "\x1B%");
  EXPECT_EQ(first.place(1), (host::Position{15, 32}));
  EXPECT_EQ(output.pieces[1].text, "-12345X@PJL B=");
  EXPECT_EQ(output.pieces[1].place(0), (host::Position{15, 34}));
  EXPECT_EQ(output.pieces[2].text, "    1");
  EXPECT_EQ(describePiece(output.pieces[2]), "PJLCommand of option \"o1\" of feature \"b\"");
  EXPECT_EQ(output.pieces[2].place(4), (host::Position{16, 56}));
}

}  // namespace
}  // namespace driver_feature::check
