#include "programs/driver_feature/lsp/language_server.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "programs/driver_feature/lsp/language_server_fixture.h"

namespace driver_feature::cli {

namespace {

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

}  // namespace

}  // namespace driver_feature::cli
