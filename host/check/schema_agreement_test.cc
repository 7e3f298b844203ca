// The schema for editors and the rules of the check accept and refuse the same
// structure: tried on a description and on all that one change makes of it.

#include <libxml/parser.h>
#include <libxml/relaxng.h>

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/check/rules.h"
#include "host/description/additions.h"
#include "host/description/document.h"
#include "host/description/element.h"
#include "support/address_checks.h"

namespace driver_feature::check {
namespace {

// A description that can be changed.
struct Node {
  std::string tag;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<Node> children;
  std::string text;
};

std::string write(const Node& node) {
  std::string xml = "<" + node.tag;
  for (const auto& [name, value] : node.attributes) xml += " " + name + "=\"" + value + "\"";
  if (node.tag == "FeatureDescription") xml += " xmlns:o=\"urn:other\"";
  xml += ">" + node.text;
  for (const Node& child : node.children) xml += write(child);
  return xml + "</" + node.tag + ">";
}

// Every kind of element in every place.
Node wholeDescription() {
  const Node option = {"Option", {{"Name", "x"}, {"Sensitivity", "true"}}, {}, ""};
  const Node list = {"Feature",
                     {{"FeatureType", "MultiSelect"}, {"Name", "L"}, {"DefaultValue", "x"}},
                     {option, {"Option", {{"Name", "y"}}, {}, ""}},
                     ""};
  const Node number = {
      "Feature", {{"FeatureType", "IntEntry"}, {"Name", "I"}, {"DefaultValue", "1"}}, {}, ""};
  const Node decimal = {
      "Feature", {{"FeatureType", "FloatEntry"}, {"Name", "F"}, {"FloatMaxValue", "1"}}, {}, ""};
  const Node text = {
      "Feature", {{"FeatureType", "TextEntry"}, {"Name", "T"}, {"Encrypted", "1"}}, {}, ""};
  const Node none = {"Feature", {{"FeatureType", "UIOnly"}, {"Name", "U"}}, {}, ""};
  const Node inner = {"FeatureStaticGroup", {{"Name", "H"}}, {none}, ""};
  const Node group = {"FeatureStaticGroup", {{"Name", "G"}}, {number, inner}, ""};
  const Node records = {"FeatureDynamicGroup", {{"Name", "D"}}, {group}, ""};
  return {"FeatureDescription",
          {{"ByteEscapes", "no"}},
          {{"BaseFeatureInfo", {{"DefaultCallbackHandler", "u"}}, {}, ""},
           list,
           number,
           decimal,
           text,
           group,
           records},
          ""};
}

const std::vector<std::string> kTags = {
    "FeatureDescription",  "BaseFeatureInfo", "Feature", "FeatureStaticGroup",
    "FeatureDynamicGroup", "Option",          "feature", "Other"};

const std::vector<std::string> kAttributes = {"ByteEscapes",
                                              "DefaultCallbackHandler",
                                              "LoadVORNCallbackHandler",
                                              "FeatureType",
                                              "Name",
                                              "Sensitivity",
                                              "Visibility",
                                              "Encrypted",
                                              "PJLCommand",
                                              "PSCommand",
                                              "TESKOAAttributeName",
                                              "TESKJTAttributeName",
                                              "TESKAttributeSyntax",
                                              "InstOptAttributeName",
                                              "NonVORNAttributeName",
                                              "AddCallbackRoutine",
                                              "AddPJLCallbackRoutine",
                                              "AddPSCallbackRoutine",
                                              "AddVORNCallbackRoutine",
                                              "SNMPOID",
                                              "SNMPOIDPrefix",
                                              "BiDiDataSection",
                                              "CLOKey",
                                              "IntMaxValue",
                                              "IntMinValue",
                                              "FloatMaxValue",
                                              "FloatMinValue",
                                              "TextValidationCharSet",
                                              "MaxTextLength",
                                              "DefaultValue",
                                              "TESKCommand",
                                              "TESKTicketCommand",
                                              "SNMPValue",
                                              "SortFunctionName",
                                              "name",
                                              "Unknown",
                                              "o:Name",
                                              "xml:lang"};

const std::vector<std::string> kValues = {
    "",           "0",          "true",        "True",        "yes",         "no",
    "x",          " 1",         "1 ",          "+1",          "-1",          "007",
    "2147483647", "2147483648", "-2147483648", "-2147483649", "99999999999", "1.5",
    "1.",         ".5",         ".",           "1e5",         "1e",          "-.5E-2",
    "inf",        "UIOnly",     "MVCList",     "IntEntry",    "TextEntry",   "FloatEntry",
    "multiselect"};

// The attributes whose values the schema judges somewhere.
const std::set<std::string> kTyped = {"ByteEscapes",   "FeatureType",   "Name",
                                      "Sensitivity",   "Visibility",    "Encrypted",
                                      "IntMaxValue",   "IntMinValue",   "FloatMaxValue",
                                      "FloatMinValue", "MaxTextLength", "DefaultValue"};
const std::vector<std::string> kFewValues = {"", "x"};

void forEachNode(Node& node, const std::function<void(Node&)>& visit) {
  visit(node);
  for (Node& child : node.children) forEachNode(child, visit);
}

using Judge = std::function<void(const Node& changed)>;

// Sets the attribute, or removes it when there is no value.
void setAttribute(Node& node, const std::string& name, const std::string* value) {
  std::erase_if(node.attributes, [&name](const auto& item) { return item.first == name; });
  if (value != nullptr) node.attributes.emplace_back(name, *value);
}

void changeAttributes(Node& root, Node& node, const Judge& judge) {
  const auto before = node.attributes;
  for (const std::string& name : kAttributes) {
    setAttribute(node, name, nullptr);
    judge(root);
    for (const std::string& value : kTyped.contains(name) ? kValues : kFewValues) {
      setAttribute(node, name, &value);
      judge(root);
    }
    node.attributes = before;
  }
}

void changeTagAndText(Node& root, Node& node, const Judge& judge) {
  const Node before = node;
  for (const std::string& tag : kTags) {
    node.tag = tag;
    if (&node != &root) judge(root);
  }
  node = before;
  for (const char* text : {" \n", "text", "<!-- text -->", "<![CDATA[text]]>", "<Other/>"}) {
    node.text = text;
    judge(root);
  }
  node = before;
  for (const char* space : {"", "urn:some"}) {
    node.attributes.emplace_back("xmlns", space);
    judge(root);
    node = before;
  }
}

void changeChildren(Node& root, Node& node, const std::vector<Node>& all, const Judge& judge) {
  const auto before = node.children;
  for (std::size_t i = 0; i < before.size(); ++i) {
    node.children.erase(node.children.begin() + static_cast<std::ptrdiff_t>(i));
    judge(root);
    node.children = before;
  }
  for (const Node& other : all) {
    node.children.push_back(other);
    judge(root);
    node.children = {other};
    judge(root);
    node.children = before;
  }
}

void ignoreText(void* /*context*/, const char* /*format*/, ...) {}

// What a schema can judge.
const std::set<Code> kStructure = {
    Code::kInvalidElement, Code::kEmptyStaticGroup, Code::kDynamicGroupChildren,
    Code::kNoOptions,      Code::kIgnoredElement,   Code::kOptionTag,
    Code::kStrayText,      Code::kNamespace,        Code::kMissingAttribute,
    Code::kUnknownType,    Code::kUnknownAttribute, Code::kMisplacedAttribute,
    Code::kNotConvertible, Code::kEmptyName};

class SchemaAgreement : public testing::Test {
 protected:
  SchemaAgreement()
      : parser_(xmlRelaxNGNewParserCtxt(DESCRIPTION_SCHEMA), &xmlRelaxNGFreeParserCtxt),
        schema_(xmlRelaxNGParse(parser_.get()), &xmlRelaxNGFree),
        memory_(memfd_create("description", MFD_CLOEXEC)) {}
  ~SchemaAgreement() override { close(memory_); }

  bool schemaAccepts(const std::string& xml) const {
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
        xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, 0), &xmlFreeDoc);
    const std::unique_ptr<xmlRelaxNGValidCtxt, void (*)(xmlRelaxNGValidCtxt*)> context(
        xmlRelaxNGNewValidCtxt(schema_.get()), &xmlRelaxNGFreeValidCtxt);
    xmlRelaxNGSetValidErrors(context.get(), ignoreText, ignoreText, nullptr);
    return xmlRelaxNGValidateDoc(context.get(), document.get()) == 0;
  }

  // The codes with which the rules refuse the structure, each with a blank.
  std::string refusalOf(const std::string& xml) const {
    const auto size = static_cast<ssize_t>(xml.size());
    const bool written =
        ftruncate(memory_, 0) == 0 && pwrite(memory_, xml.data(), xml.size(), 0) == size;
    const auto document = host::Document::read("/proc/self/fd/" + std::to_string(memory_));
    if (!written) return "unwritten";
    if (!document) return "unreadable";
    std::string codes;
    for (const Finding& finding : applyRules(*elementsOf(*document).description)) {
      if (kStructure.contains(finding.code)) codes += std::string(rowOf(finding.code).name) + " ";
    }
    return codes;
  }

  // The first fault that the reading of additions finds.
  static std::string faultOf(const std::string& xml) {
    const auto document = host::Document::ofText("test.xml", xml);
    if (!document) return "unreadable";
    const host::Additions additions = readAdditions(*document);
    return additions.problems.empty() ? "" : describe(additions.problems.front());
  }

  void compareAdditions(const Node& root) {
    const std::string xml = write(root);
    compare(xml, faultOf(xml));
  }

  void compare(const Node& description) {
    const std::string xml = write(description);
    compare(xml, refusalOf(xml));
  }

  void compare(const std::string& xml, const std::string& refusal) {
    const bool accepts = schemaAccepts(xml);
    ++(accepts ? accepted_ : refused_);
    EXPECT_EQ(accepts, refusal.empty()) << refusal << "\n" << xml;
  }

  std::unique_ptr<xmlRelaxNGParserCtxt, void (*)(xmlRelaxNGParserCtxt*)> parser_;
  std::unique_ptr<xmlRelaxNG, void (*)(xmlRelaxNG*)> schema_;
  int memory_;  // A file for descriptions.
  long accepted_ = 0;
  long refused_ = 0;
};

// Changes of which one is judged.
#ifdef ADDRESSES_ARE_CHECKED
constexpr long kEach = 5;
#else
constexpr long kEach = 1;
#endif

// Everything that a description can have beside its features.
Node additions() {
  const Node is = {"Is", {{"Choice", "x"}}, {}, ""};
  const Node isNot = {"IsNot", {{"Choice", "x"}}, {}, ""};
  const Node rule = {"Never",
                     {{"Id", "a"}, {"Text", "t"}},
                     {{"When", {{"Feature", "f"}, {"Is", "x"}}, {}, ""},
                      {"When", {{"Feature", "f"}, {"Below", "1"}}, {}, ""},
                      {"When", {{"Feature", "f"}}, {is, is}, ""},
                      {"When", {{"Feature", "f"}}, {isNot}, ""}},
                     ""};
  const Node size = {
      "Size", {{"Option", "x"}, {"Width", "1"}, {"Height", "1"}, {"LeftMargin", "0"}}, {}, ""};
  return {"Driver",
          {},
          {{"FeatureDescription", {}, {}, ""},
           {"FeatureRules", {}, {{"Hardware", {{"Feature", "f"}}, {}, ""}, rule}, ""},
           {"FeatureTexts", {{"Language", "de"}}, {{"Text", {{"For", "f"}}, {}, "t"}}, ""},
           {"FeaturePresets", {}, {{"Preset", {{"Name", "p"}}, {}, "A=1"}}, ""},
           {"FeaturePanels",
            {},
            {{"Panel", {{"Name", "p"}}, {{"Member", {{"Feature", "f"}}, {}, ""}}, ""}},
            ""},
           {"FeatureMedia", {{"Feature", "f"}, {"Default", "x"}}, {size}, ""}},
          ""};
}

const std::vector<std::string> kAdditionAttributes = {
    "Feature", "Id",        "Text",    "Is",      "IsNot",   "Above",      "Below",
    "Choice",  "For",       "Name",    "Width",   "Height",  "LeftMargin", "Language",
    "Option",  "TopMargin", "Default", "Unknown", "xml:lang"};

// Those whose values the schema judges.
const std::set<std::string> kLengths = {"Above",  "Below",      "Width",
                                        "Height", "LeftMargin", "TopMargin"};

void changeAddition(Node& root, Node& node, const std::vector<Node>& all, const Judge& judge) {
  const Node before = node;
  for (const std::string& name : kAdditionAttributes) {
    setAttribute(node, name, nullptr);
    judge(root);
    for (const std::string& value : kLengths.contains(name) ? kValues : kFewValues) {
      setAttribute(node, name, &value);
      judge(root);
    }
    node = before;
  }
  for (const Node& other : all) {
    node.tag = other.tag;
    judge(root);
  }
  node = before;
  changeChildren(root, node, all, judge);
}

TEST_F(SchemaAgreement, Additions_EveryOneChange_IsJudgedAlike) {
  ASSERT_NE(schema_, nullptr);
  Node root = additions();
  long changes = 0;
  const Judge judge = [&](const Node& changed) {
    if (changes++ % kEach == 0) compareAdditions(changed);
  };
  judge(root);
  EXPECT_EQ(accepted_, 1);
  std::vector<Node> all;
  for (Node& part : root.children) {
    if (part.tag == "FeatureDescription") continue;
    forEachNode(part, [&all](Node& node) { all.push_back(node); });
  }
  for (Node& part : root.children) {
    if (part.tag == "FeatureDescription") continue;
    forEachNode(part, [&](Node& node) { changeAddition(root, node, all, judge); });
  }
  EXPECT_GE(accepted_, 300 / kEach);
  EXPECT_GE(refused_, 2000 / kEach);
}

TEST_F(SchemaAgreement, Structure_EveryOneChange_IsJudgedAlike) {
  ASSERT_NE(schema_, nullptr);
  Node root = wholeDescription();
  long changes = 0;
  const Judge judge = [&](const Node& changed) {
    if (changes++ % kEach == 0) compare(changed);
  };
  judge(root);
  EXPECT_EQ(accepted_, 1);
  std::vector<Node> all;
  forEachNode(root, [&all](Node& node) { all.push_back(node); });
  forEachNode(root, [&](Node& node) {
    changeAttributes(root, node, judge);
    changeTagAndText(root, node, judge);
    changeChildren(root, node, all, judge);
  });
  EXPECT_GE(accepted_, 1000 / kEach);
  EXPECT_GE(refused_, 5000 / kEach);
}

}  // namespace
}  // namespace driver_feature::check
