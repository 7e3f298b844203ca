#include "programs/driver_feature/lsp/language_server.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::cli {

namespace {

constexpr const char* kUri = "file:///a.xml";

class LanguageServerTest : public testing::Test {
 protected:
  LanguageServerTest() : server_([this](const std::string& text) { sent_.push_back(text); }) {}

  // What the server sends for a message, each on a line.
  std::string take(const std::string& message) {
    sent_.clear();
    server_.take(message);
    std::string lines;
    for (const std::string& text : sent_) lines += (lines.empty() ? "" : "\n") + text;
    return lines;
  }

  std::string request(const std::string& method, const Json& params) {
    return take(
        Json({{"jsonrpc", "2.0"}, {"id", 7}, {"method", method}, {"params", params}}).dump());
  }
  std::string notify(const std::string& method, const Json& params) {
    return take(Json({{"jsonrpc", "2.0"}, {"method", method}, {"params", params}}).dump());
  }

  // The result of a request about a place of the open text.
  Json resultAt(const std::string& method, long line, long character) {
    const std::string reply =
        request(method, {{"textDocument", {{"uri", kUri}}},
                         {"position", {{"line", line}, {"character", character}}}});
    return Json::parse(reply).value("result", Json(reply));
  }

  void initialize(const Json& capabilities = Json::object()) {
    request("initialize", {{"capabilities", capabilities}});
  }
  void open(const std::string& text) {
    notify("textDocument/didOpen",
           {{"textDocument", {{"uri", kUri}, {"version", 3}, {"text", text}}}});
  }

  Json codeActions(const Json& context) {
    const Json place = {{"line", 0}, {"character", 30}};
    const Json range = {{"start", place}, {"end", place}};
    return Json::parse(request(
        "textDocument/codeAction",
        {{"textDocument", {{"uri", kUri}}}, {"range", range}, {"context", context}}))["result"];
  }

  std::vector<std::string> sent_;
  LanguageServer server_;
};

std::string error(const std::string& id, int code, const std::string& text) {
  return "{\"error\":{\"code\":" + std::to_string(code) + ",\"message\":\"" + text +
         "\"},\"id\":" + id + ",\"jsonrpc\":\"2.0\"}";
}

TEST_F(LanguageServerTest, Take_NotAMessage_IsAnError) {
  EXPECT_EQ(take("{"), error("null", -32700, "the message is not JSON in UTF-8"));
  EXPECT_EQ(take("\"\xC3\""), error("null", -32700, "the message is not JSON in UTF-8"));
  for (const char* message :
       {"1", "[]", "{}", "{\"jsonrpc\":\"1.0\",\"method\":\"a\"}",
        "{\"jsonrpc\":\"2.0\",\"method\":1}", "[{\"jsonrpc\":\"2.0\",\"method\":\"a\"}]"}) {
    EXPECT_EQ(take(message), error("null", -32600, "the message is not one of JSON-RPC 2.0"))
        << message;
  }
  EXPECT_EQ(take(R"({"jsonrpc":"2.0","id":{},"method":"a"})"),
            error("null", -32600, "the id of a request is a number or a text"));
}

TEST_F(LanguageServerTest, Take_ReplyOfTheClient_IsIgnored) {
  EXPECT_EQ(take(R"({"jsonrpc":"2.0","id":1,"result":null})"), "");
}

TEST_F(LanguageServerTest, Take_BeforeInitialize_IsAnError) {
  EXPECT_EQ(request("textDocument/hover", nullptr),
            error("7", -32002, "the first request is initialize"));
  EXPECT_EQ(notify("textDocument/didOpen", nullptr), "");
  EXPECT_FALSE(server_.wanted().has_value());
}

TEST_F(LanguageServerTest, Initialize_AnyClient_SaysWhatItCanDo) {
  const Json reply = Json::parse(request("initialize", {{"capabilities", Json::object()}}));
  EXPECT_EQ(reply["result"]["capabilities"].dump(),
            R"({"codeActionProvider":{"codeActionKinds":["quickfix","source.fixAll"]},)"
            R"("completionProvider":{"triggerCharacters":["<"," ","\"","'","/"]},)"
            R"("definitionProvider":true,"documentSymbolProvider":true,"hoverProvider":true,)"
            R"("textDocumentSync":{"change":1,"openClose":true,"save":{"includeText":false}}})");
  EXPECT_EQ(reply["result"]["serverInfo"]["name"], "driver-feature");
  EXPECT_EQ(request("initialize", {}), error("7", -32600, "the server is initialized"));
}

TEST_F(LanguageServerTest, Initialize_LibrariesOfRoutines_AreKept) {
  request("initialize", {{"initializationOptions", {{"callbacks", {"a.so", "b.so"}}}}});
  EXPECT_EQ(server_.routineLibraries(), (std::vector<std::string>{"a.so", "b.so"}));
}

TEST_F(LanguageServerTest, Initialize_WrongOptions_IsAnErrorAndCanBeTriedAgain) {
  EXPECT_EQ(request("initialize", {{"initializationOptions", {{"callbacks", 3}}}}),
            error("7", -32602, "the parameters are not those of initialize"));
  EXPECT_NE(request("initialize", Json::object()).find("\"result\""), std::string::npos);
}

TEST_F(LanguageServerTest, Take_UnknownMethod_IsAnErrorForRequestsOnly) {
  initialize();
  EXPECT_EQ(request("textDocument/rename", {}),
            error("7", -32601, "there is no method \\\"textDocument/rename\\\""));
  EXPECT_EQ(notify("$/setTrace", {}), "");
}

TEST_F(LanguageServerTest, Take_WrongParameters_AreAnError) {
  initialize();
  EXPECT_EQ(request("textDocument/hover", {{"textDocument", 1}}),
            error("7", -32602, "the parameters are not those of textDocument/hover"));
  EXPECT_EQ(request("textDocument/hover", nullptr),
            error("7", -32602, "the parameters are not those of textDocument/hover"));
  EXPECT_EQ(request("textDocument/documentSymbol", {{"textDocument", {{"uri", "b"}}}}),
            error("7", -32602, "the document b is not open"));
  EXPECT_EQ(notify("textDocument/didOpen", {{"textDocument", {{"uri", 1}}}}),
            R"({"jsonrpc":"2.0","method":"window/logMessage","params":{"message":)"
            R"("the parameters are not those of textDocument/didOpen","type":1}})");
}

TEST_F(LanguageServerTest, Exit_AfterShutdown_IsSuccess) {
  initialize();
  open("<a/>");
  EXPECT_EQ(request("shutdown", nullptr), R"({"id":7,"jsonrpc":"2.0","result":null})");
  EXPECT_FALSE(server_.wanted().has_value());
  EXPECT_EQ(request("textDocument/hover", {}), error("7", -32600, "the server has been shut down"));
  EXPECT_FALSE(server_.hasEnded());
  notify("exit", nullptr);
  EXPECT_TRUE(server_.hasEnded());
  EXPECT_EQ(server_.status(), 0);
}

TEST_F(LanguageServerTest, Exit_WithoutShutdown_IsFailure) {
  notify("exit", nullptr);
  EXPECT_TRUE(server_.hasEnded());
  EXPECT_EQ(server_.status(), 1);
}

TEST_F(LanguageServerTest, Wanted_TextThatIsOpenedChangedOrSaved_IsToBeChecked) {
  initialize();
  open("<a/>");
  ASSERT_TRUE(server_.wanted().has_value());
  EXPECT_EQ(server_.wanted()->text, "<a/>");
  server_.noteStart(kUri);
  EXPECT_FALSE(server_.wanted().has_value());
  notify("textDocument/didChange", {{"textDocument", {{"uri", kUri}, {"version", 4}}},
                                    {"contentChanges", {{{"text", "<b/>"}}, {{"text", "<c/>"}}}}});
  ASSERT_TRUE(server_.wanted().has_value());
  EXPECT_EQ(server_.wanted()->text, "<c/>");
  EXPECT_TRUE(server_.wants(kUri));
  server_.noteStart(kUri);
  notify("textDocument/didSave", {{"textDocument", {{"uri", kUri}}}});
  EXPECT_TRUE(server_.wants(kUri));
  EXPECT_EQ(notify("textDocument/didClose", {{"textDocument", {{"uri", kUri}}}}),
            R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics",)"
            R"("params":{"diagnostics":[],"uri":"file:///a.xml"}})");
  EXPECT_FALSE(server_.wanted().has_value());
}

TEST_F(LanguageServerTest, DidChange_TextThatIsNotOpen_IsIgnored) {
  initialize();
  EXPECT_EQ(notify("textDocument/didChange",
                   {{"textDocument", {{"uri", kUri}}}, {"contentChanges", {{{"text", "<b/>"}}}}}),
            "");
  EXPECT_FALSE(server_.wanted().has_value());
}

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
  EXPECT_EQ(actions[1]["title"], "Mend 1 fault of the description");
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
