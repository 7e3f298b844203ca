#include "programs/driver_feature/lsp/language_server.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace driver_feature::cli {

namespace {

// Error codes of the protocol.
constexpr int kParseError = -32700;
constexpr int kInvalidRequest = -32600;
constexpr int kMethodNotFound = -32601;
constexpr int kInvalidParams = -32602;
constexpr int kInternalError = -32603;
constexpr int kServerNotInitialized = -32002;

// What a client would be wrong to ask for.
struct BadParams {
  std::string text;
};

}  // namespace

const LanguageServer::Request LanguageServer::kRequests[] = {
    {"initialize", &LanguageServer::initialize},
    {"shutdown", &LanguageServer::shutdown},
    {"textDocument/hover", &LanguageServer::hover},
    {"textDocument/completion", &LanguageServer::completion},
    {"textDocument/documentSymbol", &LanguageServer::outline},
    {"textDocument/definition", &LanguageServer::definition},
    {"textDocument/codeAction", &LanguageServer::codeActions},
};

const LanguageServer::Notification LanguageServer::kNotifications[] = {
    {"textDocument/didOpen", &LanguageServer::open},
    {"textDocument/didChange", &LanguageServer::change},
    {"textDocument/didSave", &LanguageServer::save},
    {"textDocument/didClose", &LanguageServer::close},
};

void LanguageServer::take(const std::string& message) {
  const Json json = Json::parse(message, nullptr, false);
  if (json.is_discarded()) {
    sendError(nullptr, kParseError, "the message is not JSON in UTF-8");
    return;
  }
  const bool isMessage = json.is_object() && json.value("jsonrpc", Json()) == "2.0";
  const bool isReply = isMessage && !json.contains("method") && json.contains("id");
  if (isReply) return;  // This server asks for nothing.
  if (!isMessage || !json.contains("method") || !json["method"].is_string()) {
    sendError(nullptr, kInvalidRequest, "the message is not one of JSON-RPC 2.0");
    return;
  }
  dispatch(json);
}

void LanguageServer::dispatch(const Json& message) {
  const auto method = message["method"].get<std::string>();
  const Json params = message.value("params", Json::object());
  if (!message.contains("id")) {
    notify(method, params);
    return;
  }
  const Json& id = message["id"];
  if (!id.is_string() && !id.is_number_integer()) {
    sendError(nullptr, kInvalidRequest, "the id of a request is a number or a text");
  } else if (isShutDown_) {
    sendError(id, kInvalidRequest, "the server has been shut down");
  } else if (!isInitialized_ && method != "initialize") {
    sendError(id, kServerNotInitialized, "the first request is initialize");
  } else if (isInitialized_ && method == "initialize") {
    sendError(id, kInvalidRequest, "the server is initialized");
  } else {
    reply(id, method, params);
  }
}

void LanguageServer::reply(const Json& id, const std::string& method, const Json& params) {
  const auto* const row =
      std::find_if(std::begin(kRequests), std::end(kRequests),
                   [&method](const Request& request) { return request.method == method; });
  if (row == std::end(kRequests)) {
    sendError(id, kMethodNotFound, "there is no method \"" + method + "\"");
    return;
  }
  try {
    const Json result = (this->*row->handle)(params);
    send_(dumped({{"jsonrpc", "2.0"}, {"id", id}, {"result", result}}));
  } catch (const BadParams& bad) {
    sendError(id, kInvalidParams, bad.text);
  } catch (const Json::exception&) {
    sendError(id, kInvalidParams, "the parameters are not those of " + method);
  } catch (const std::exception& error) {
    sendError(id, kInternalError, error.what());
  }
}

// Nobody waits for a reply to a notification: a wrong one is ignored.
void LanguageServer::notify(const std::string& method, const Json& params) {
  if (method == "exit") {
    hasEnded_ = true;
    return;
  }
  if (!isInitialized_ || isShutDown_) return;
  for (const Notification& row : kNotifications) {
    if (row.method != method) continue;
    try {
      (this->*row.handle)(params);
    } catch (const Json::exception&) {
      sendNotification("window/logMessage",
                       {{"type", 1}, {"message", "the parameters are not those of " + method}});
    }
  }
}

void LanguageServer::sendError(const Json& id, int code, const std::string& text) {
  send_(dumped({{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", text}}}}));
}

void LanguageServer::sendNotification(const char* method, Json params) {
  send_(dumped({{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}}));
}

const OpenText& LanguageServer::textOf(const Json& params) const {
  const auto uri = params.at("textDocument").at("uri").get<std::string>();
  const auto found = texts_.find(uri);
  if (found == texts_.end()) throw BadParams{"the document " + uri + " is not open"};
  return *found->second;
}

Json LanguageServer::hover(const Json& params) {
  const OpenText& text = textOf(params);
  return hoverOf(text, offsetOf(text, params.at("position")));
}

Json LanguageServer::completion(const Json& params) {
  const OpenText& text = textOf(params);
  return completionOf(text, offsetOf(text, params.at("position")), routines_, canPlace_);
}

Json LanguageServer::outline(const Json& params) {
  return outlineOf(textOf(params), params.at("textDocument").at("uri"), showsTrees_);
}

Json LanguageServer::definition(const Json& params) {
  const OpenText& text = textOf(params);
  return definitionOf(text, params.at("textDocument").at("uri"),
                      offsetOf(text, params.at("position")), canLink_);
}

Json LanguageServer::codeActions(const Json& params) {
  const OpenText& text = textOf(params);
  const Json& range = params.at("range");
  const auto only = params.value("context", Json::object()).value("only", Json::array());
  return codeActionsOf(text, params.at("textDocument").at("uri"),
                       {offsetOf(text, range.at("start")), offsetOf(text, range.at("end"))},
                       only.get<std::vector<std::string>>());
}

}  // namespace driver_feature::cli
