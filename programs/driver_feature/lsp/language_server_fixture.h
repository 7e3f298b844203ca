// A language server without a client, for its tests.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_FIXTURE_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_FIXTURE_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "programs/driver_feature/lsp/language_server.h"

namespace driver_feature::cli {

inline constexpr const char* kUri = "file:///a.xml";

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

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_FIXTURE_H_
