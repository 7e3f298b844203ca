// What the language server tells about a text, as messages of the protocol.

#include <gtest/gtest.h>

#include <string>

#include "programs/driver_feature/lsp/language_server_fixture.h"

namespace driver_feature::cli {

namespace {

TextReport oneFinding() {
  check::Finding finding;
  finding.code = check::Code::kUnknownAttribute;
  finding.position = {1, 28};
  finding.sentence = "there is no attribute";
  finding.remedy = "did you mean \"Name\"?";
  finding.fix = check::TextEdit{30, 3, "Name"};
  return {{finding}, {"OfficeUpdate"}};
}

// The printer takes two units and four bytes.
constexpr const char* kFaulty = "<FeatureDescription a='\xF0\x9F\x96\xA8'  Nam='x'/>";

TEST_F(LanguageServerTest, TakeReport_Findings_ArePublishedInUnitsOfUtf16) {
  initialize();
  open(kFaulty);
  sent_.clear();
  server_.takeReport(kUri, oneFinding());
  ASSERT_EQ(sent_.size(), 1U);
  EXPECT_EQ(sent_[0],
            R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{)"
            R"("diagnostics":[{"code":"DF203","message":"there is no attribute; did you mean )"
            R"(\"Name\"?","range":{"end":{"character":31,"line":0},"start":{"character":28,)"
            R"("line":0}},"severity":1,"source":"driver-feature"}],"uri":"file:///a.xml",)"
            R"("version":3}})");
}

TEST_F(LanguageServerTest, TakeReport_Problem_IsShownOnce) {
  initialize();
  open(kFaulty);
  sent_.clear();
  for (int i = 0; i < 2; ++i) server_.takeReport(kUri, host::refused("no library"));
  ASSERT_EQ(sent_.size(), 1U);
  EXPECT_EQ(sent_[0], R"({"jsonrpc":"2.0","method":"window/showMessage",)"
                      R"("params":{"message":"no library","type":1}})");
}

TEST_F(LanguageServerTest, TakeReport_TextThatIsClosed_IsDropped) {
  initialize();
  server_.takeReport(kUri, oneFinding());
  EXPECT_EQ(sent_.size(), 1U);  // The reply to initialize.
}

TEST_F(LanguageServerTest, CodeAction_AtAFinding_MendsItAndAll) {
  initialize();
  open(kFaulty);
  server_.takeReport(kUri, oneFinding());
  const Json actions = codeActions(Json::object());
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[0]["title"], "Replace \"Nam\" with \"Name\"");
  EXPECT_EQ(actions[0]["kind"], "quickfix");
  EXPECT_EQ(actions[0]["diagnostics"][0]["code"], "DF203");
  const char* const edits =
      R"({"changes":{"file:///a.xml":[{"newText":"Name","range":{"end":{"character":31,"line":0},)"
      R"("start":{"character":28,"line":0}}}]}})";
  EXPECT_EQ(actions[0]["edit"].dump(), edits);
  EXPECT_EQ(actions[1]["title"], "Fix 1 fault of the description");
  EXPECT_EQ(actions[1]["kind"], "source.fixAll");
  EXPECT_EQ(actions[1]["edit"].dump(), edits);
}

TEST_F(LanguageServerTest, CodeAction_KindsThatAreAskedFor_AreTheOnlyOnes) {
  initialize();
  open(kFaulty);
  server_.takeReport(kUri, oneFinding());
  EXPECT_EQ(codeActions({{"only", {"quickfix"}}}).size(), 1U);
  EXPECT_EQ(codeActions({{"only", {"source"}}}).size(), 1U);
  EXPECT_EQ(codeActions({{"only", {"source"}}})[0]["kind"], "source.fixAll");
  EXPECT_EQ(codeActions({{"only", {"refactor", "sour"}}}).size(), 0U);
}

TEST_F(LanguageServerTest, CodeAction_ChangedText_HasNone) {
  initialize();
  open(kFaulty);
  server_.takeReport(kUri, oneFinding());
  open("<FeatureDescription/>");
  EXPECT_EQ(codeActions(Json::object()).size(), 0U);
}

TEST_F(LanguageServerTest, CodeAction_ChangesOfTheSamePlace_AreMadeOnce) {
  initialize();
  open(kFaulty);
  TextReport report = oneFinding();
  report.findings.push_back(report.findings.front());
  server_.takeReport(kUri, report);
  const Json actions = codeActions({{"only", {"source.fixAll"}}});
  EXPECT_EQ(actions[0]["edit"]["changes"][kUri].size(), 1U);
}

TEST_F(LanguageServerTest, Hover_Element_IsMarkdownWithItsRange) {
  initialize();
  open("<FeatureDescription/>");
  EXPECT_EQ(resultAt("textDocument/hover", 0, 5).dump(),
            R"({"contents":{"kind":"markdown","value":"**FeatureDescription**\n\nAll settings of )"
            R"(one printer driver, and what is sent to the printer for each of them."},)"
            R"("range":{"end":{"character":19,"line":0},"start":{"character":1,"line":0}}})");
  EXPECT_EQ(resultAt("textDocument/hover", 0, 0), nullptr);
}

TEST_F(LanguageServerTest, Completion_ClientWithSnippets_PutsTheCursorBetweenTheMarks) {
  initialize(
      Json::parse(R"({"textDocument":{"completion":{"completionItem":{"snippetSupport":true}}}})"));
  open("<FeatureDescription ></FeatureDescription>");
  EXPECT_EQ(resultAt("textDocument/completion", 0, 20)[0]["textEdit"]["newText"],
            "ByteEscapes=\"$1\"");
  EXPECT_EQ(resultAt("textDocument/completion", 0, 20)[0]["insertTextFormat"], 2);
}

TEST_F(LanguageServerTest, Completion_OtherClient_GetsPlainText) {
  initialize();
  open("<FeatureDescription ><BaseFeatureInfo DefaultCallbackHandler=''/></FeatureDescription>");
  EXPECT_EQ(resultAt("textDocument/completion", 0, 20)[0].dump(),
            R"({"documentation":{"kind":"markdown","value":"`yes`: the characters U+F701 to )"
            R"(U+F7FF in the attributes of the element and of all elements in it mean the bytes )"
            R"(01 to FF."},"kind":10,"label":"ByteEscapes","sortText":"000001","textEdit":{)"
            R"("newText":"ByteEscapes=\"\"","range":{"end":{"character":20,"line":0},)"
            R"("start":{"character":20,"line":0}}}})");
  EXPECT_EQ(resultAt("textDocument/completion", 0, 62), Json::array());
  server_.takeReport(kUri, oneFinding());
  EXPECT_EQ(resultAt("textDocument/completion", 0, 62)[0]["label"], "OfficeUpdate");
}

TEST_F(LanguageServerTest, DocumentSymbol_ClientWithTrees_GetsATree) {
  initialize(Json::parse(
      R"({"textDocument":{"documentSymbol":{"hierarchicalDocumentSymbolSupport":true}}})"));
  open("<FeatureDescription><Feature FeatureType='UIOnly' Name='a'/></FeatureDescription>");
  const Json symbols = Json::parse(
      request("textDocument/documentSymbol", {{"textDocument", {{"uri", kUri}}}}))["result"];
  ASSERT_EQ(symbols.size(), 1U);
  EXPECT_EQ(symbols[0]["name"], "FeatureDescription");
  EXPECT_EQ(symbols[0]["children"].dump(),
            R"([{"detail":"UIOnly","kind":7,"name":"a","range":{"end":{"character":60,"line":0},)"
            R"("start":{"character":20,"line":0}},"selectionRange":{"end":{"character":57,)"
            R"("line":0},"start":{"character":56,"line":0}}}])");
}

TEST_F(LanguageServerTest, DocumentSymbol_OlderClient_GetsAList) {
  initialize();
  open("<FeatureDescription><Feature FeatureType='UIOnly' Name='a'/></FeatureDescription>");
  const Json symbols = Json::parse(
      request("textDocument/documentSymbol", {{"textDocument", {{"uri", kUri}}}}))["result"];
  ASSERT_EQ(symbols.size(), 2U);
  EXPECT_EQ(symbols[1]["name"], "a");
  EXPECT_EQ(symbols[1]["containerName"], "FeatureDescription");
  EXPECT_EQ(symbols[1]["location"]["range"]["start"]["character"], 20);
}

TEST_F(LanguageServerTest, Definition_EndTag_IsTheNameInTheStartTag) {
  initialize();
  open("<FeatureDescription>\n</FeatureDescription>");
  EXPECT_EQ(resultAt("textDocument/definition", 1, 4).dump(),
            R"({"range":{"end":{"character":19,"line":0},"start":{"character":1,"line":0}},)"
            R"("uri":"file:///a.xml"})");
  EXPECT_EQ(resultAt("textDocument/definition", 0, 4), nullptr);
}

TEST_F(LanguageServerTest, Definition_ClientWithLinks_GetsWhereItCameFrom) {
  initialize(Json::parse(R"({"textDocument":{"definition":{"linkSupport":true}}})"));
  open("<FeatureDescription></FeatureDescription>");
  const Json links = resultAt("textDocument/definition", 0, 24);
  ASSERT_EQ(links.size(), 1U);
  EXPECT_EQ(links[0]["originSelectionRange"]["start"]["character"], 22);
  EXPECT_EQ(links[0]["targetRange"]["end"]["character"], 41);
  EXPECT_EQ(links[0]["targetSelectionRange"]["end"]["character"], 19);
}

}  // namespace

}  // namespace driver_feature::cli
