// The beginning and the end of a language server, and the texts in between.

#include <algorithm>
#include <filesystem>
#include <utility>

#include "programs/driver_feature/lsp/language_server.h"
#include "programs/driver_feature/version.h"

namespace driver_feature::cli {

namespace {

constexpr int kShownError = 1;  // A type of message.
constexpr int kWholeText = 1;   // A kind of synchronization.

// The member at the end of a path of objects; `otherwise` when there is none.
bool flagAt(const Json& json, const char* pointer) {
  const Json::json_pointer place(pointer);
  return json.contains(place) && json[place].is_boolean() && json[place].get<bool>();
}

Json capabilities() {
  return {{"textDocumentSync",
           {{"openClose", true}, {"change", kWholeText}, {"save", {{"includeText", false}}}}},
          {"hoverProvider", true},
          {"completionProvider", {{"triggerCharacters", {"<", " ", "\"", "'", "/"}}}},
          {"documentSymbolProvider", true},
          {"definitionProvider", true},
          {"codeActionProvider", {{"codeActionKinds", {"quickfix", "source.fixAll"}}}}};
}

}  // namespace

Json LanguageServer::initialize(const Json& params) {
  canPlace_ = flagAt(params, "/capabilities/textDocument/completion/completionItem/snippetSupport");
  canLink_ = flagAt(params, "/capabilities/textDocument/definition/linkSupport");
  showsTrees_ =
      flagAt(params, "/capabilities/textDocument/documentSymbol/hierarchicalDocumentSymbolSupport");
  const Json options = params.value("initializationOptions", Json());
  if (options.is_object()) {
    libraries_ = options.value("callbacks", Json::array()).get<std::vector<std::string>>();
  }
  isInitialized_ = true;
  return {{"capabilities", capabilities()},
          {"serverInfo", {{"name", "driver-feature"}, {"version", programVersion()}}}};
}

Json LanguageServer::shutdown(const Json& /*params*/) {
  isShutDown_ = true;
  unchecked_.clear();
  return nullptr;
}

void LanguageServer::store(const std::string& uri, const Json& document, std::string text) {
  std::optional<long> version;
  if (document.contains("version") && document["version"].is_number_integer()) {
    version = document["version"].get<long>();
  }
  texts_[uri] = std::make_unique<OpenText>(version, std::move(text));
  unchecked_.insert(uri);
}

void LanguageServer::open(const Json& params) {
  const Json& document = params.at("textDocument");
  store(document.at("uri"), document, document.at("text"));
}

void LanguageServer::change(const Json& params) {
  const Json& document = params.at("textDocument");
  const std::string uri = document.at("uri");
  const Json& changes = params.at("contentChanges");
  // Each change is the whole text.
  if (texts_.contains(uri) && !changes.empty()) store(uri, document, changes.back().at("text"));
}

// The routines may have been built anew.
void LanguageServer::save(const Json& params) {
  const std::string uri = params.at("textDocument").at("uri");
  if (texts_.contains(uri)) unchecked_.insert(uri);
}

void LanguageServer::close(const Json& params) {
  const std::string uri = params.at("textDocument").at("uri");
  unchecked_.erase(uri);
  if (texts_.erase(uri) == 0) return;
  sendNotification("textDocument/publishDiagnostics",
                   {{"uri", uri}, {"diagnostics", Json::array()}});
}

void LanguageServer::wantAll() {
  for (const auto& [uri, text] : texts_) unchecked_.insert(uri);
}

std::optional<LanguageServer::Wanted> LanguageServer::wanted() const {
  if (unchecked_.empty()) return std::nullopt;
  const std::string& uri = *unchecked_.begin();
  return Wanted{uri, texts_.at(uri)->markup().text()};
}

void LanguageServer::takeReport(const std::string& uri, host::Result<TextReport> report) {
  const auto text = texts_.find(uri);
  if (text == texts_.end()) return;
  if (!report) {
    const std::string problem = describe(report.error());
    if (problem == std::exchange(problem_, problem)) return;
    sendNotification("window/showMessage", {{"type", kShownError}, {"message", problem}});
    return;
  }
  problem_.clear();
  routines_ = std::move(report->routines);
  text->second->setFindings(std::move(report->findings));
  Json params = {{"uri", uri}, {"diagnostics", diagnosticsOf(*text->second)}};
  if (text->second->version()) params["version"] = *text->second->version();
  sendNotification("textDocument/publishDiagnostics", std::move(params));
}

}  // namespace driver_feature::cli
