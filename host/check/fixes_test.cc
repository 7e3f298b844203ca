#include "host/check/fixes.h"

#include <gtest/gtest.h>

#include "host/description/document.h"

namespace driver_feature::check {
namespace {

std::string fixed(const std::string& text, Finding finding) {
  const auto document = host::Document::ofText("d.xml", text);
  if (!document) return document.error().text;
  const host::DescriptionElements elements = elementsOf(*document);
  Findings findings = {std::move(finding)};
  addFixes(text, *elements.description, {"writeOwner"}, findings);
  return applyFixes(text, findings);
}

std::string listWith(const std::string& command, const std::string& option) {
  return "<FeatureDescription>\n<Feature FeatureType='MultiSelect' Name='A' PJLCommand='" +
         command + "'><Option Name='B' PJLCommand='" + option +
         "'/></Feature></FeatureDescription>";
}

TEST(FixesTest, LineEnd_TemplateOfOptions_GetsItUnlessOneOfThemHasIt) {
  const Finding finding{Code::kNoLineEnd, {2, 45}, "open", "end it", {}};
  EXPECT_EQ(fixed(listWith("@PJL %s", "b"), finding), listWith("@PJL %s&#13;&#10;", "b"));
  EXPECT_EQ(fixed(listWith("@PJL %s&#13;", "b"), finding), listWith("@PJL %s&#13;&#10;", "b"));
  const std::string ended = listWith("@PJL %s", "b&#10;");
  EXPECT_EQ(fixed(ended, finding), ended);
}

}  // namespace
}  // namespace driver_feature::check
