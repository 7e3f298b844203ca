#include "programs/driver_feature/lsp/answers.h"

#include <array>
#include <string_view>

#include "host/editor/completion.h"
#include "host/editor/definition.h"
#include "host/editor/hover.h"
#include "host/editor/outline.h"

namespace driver_feature::cli {

namespace {

// Numbers of the protocol.
constexpr int kError = 1;
constexpr int kWarning = 2;
constexpr int kSnippet = 2;

struct SymbolKind {
  std::string_view tag;
  int number;
};

constexpr std::array kSymbolKinds = {SymbolKind{"FeatureDescription", 4},     // Package.
                                     SymbolKind{"Feature", 7},                // Property.
                                     SymbolKind{"Option", 22},                // EnumMember.
                                     SymbolKind{"FeatureStaticGroup", 3},     // Namespace.
                                     SymbolKind{"FeatureDynamicGroup", 18}};  // Array.
constexpr int kOtherSymbol = 19;                                              // Object.

int kindOf(const editor::Symbol& symbol) {
  for (const SymbolKind& row : kSymbolKinds) {
    if (row.tag == symbol.tag) return row.number;
  }
  return kOtherSymbol;
}

int kindOf(editor::Completion::Kind kind) {
  switch (kind) {
    case editor::Completion::Kind::kElement:
    case editor::Completion::Kind::kEndTag:
      return 7;  // Class.
    case editor::Completion::Kind::kAttribute:
      return 10;  // Property.
    case editor::Completion::Kind::kWord:
    case editor::Completion::Kind::kOption:
      return 20;  // EnumMember.
    case editor::Completion::Kind::kRoutine:
      break;
  }
  return 3;  // Function.
}

Json placeOf(const OpenText& text, std::size_t offset) {
  const editor::EditorPlace place = text.lines().placeOf(offset);
  return {{"line", place.line}, {"character", place.character}};
}

Json markdown(const std::string& text) {
  return {{"kind", "markdown"}, {"value", text}};
}

Json itemOf(const OpenText& text, const editor::Completion& completion, bool canPlace) {
  Json item = {{"label", completion.label}, {"kind", kindOf(completion.kind)}};
  if (!completion.sentence.empty()) item["documentation"] = markdown(completion.sentence);
  if (completion.isRequired) item["detail"] = "required";
  std::string inserted = completion.text;
  if (canPlace && completion.cursor < inserted.size()) {
    inserted.insert(completion.cursor, "$1");
    item["insertTextFormat"] = kSnippet;
  }
  item["textEdit"] = {{"range", toJson(text, completion.replaced)}, {"newText", inserted}};
  return item;
}

Json symbolOf(const OpenText& text, const editor::Symbol& symbol) {
  Json json = {{"name", symbol.name},
               {"kind", kindOf(symbol)},
               {"range", toJson(text, symbol.whole)},
               {"selectionRange", toJson(text, symbol.chosen)}};
  if (!symbol.detail.empty()) json["detail"] = symbol.detail;
  if (symbol.children.empty()) return json;
  json["children"] = Json::array();
  for (const editor::Symbol& child : symbol.children) {
    json["children"].push_back(symbolOf(text, child));
  }
  return json;
}

void addSymbols(const OpenText& text, const std::string& uri, const std::string& container,
                const std::vector<editor::Symbol>& symbols, Json& list) {
  for (const editor::Symbol& symbol : symbols) {
    Json json = {{"name", symbol.name},
                 {"kind", kindOf(symbol)},
                 {"location", {{"uri", uri}, {"range", toJson(text, symbol.whole)}}}};
    if (!container.empty()) json["containerName"] = container;
    list.push_back(std::move(json));
    addSymbols(text, uri, symbol.name, symbol.children, list);
  }
}

}  // namespace

std::string dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json toJson(const OpenText& text, editor::Range range) {
  return {{"start", placeOf(text, range.begin)}, {"end", placeOf(text, range.end)}};
}

std::size_t offsetOf(const OpenText& text, const Json& position) {
  return text.lines().offsetOf(
      {position.at("line").get<long>(), position.at("character").get<long>()});
}

Json diagnosticOf(const OpenText& text, const MarkedFinding& marked) {
  const check::CodeRow& row = rowOf(marked.finding.code);
  std::string message = marked.finding.sentence;
  if (!marked.finding.remedy.empty()) message += "; " + marked.finding.remedy;
  return {{"range", toJson(text, marked.range)},
          {"severity", row.severity == check::Severity::kError ? kError : kWarning},
          {"code", row.name},
          {"source", "driver-feature"},
          {"message", message}};
}

Json diagnosticsOf(const OpenText& text) {
  Json diagnostics = Json::array();
  for (const MarkedFinding& marked : text.findings()) {
    diagnostics.push_back(diagnosticOf(text, marked));
  }
  return diagnostics;
}

Json hoverOf(const OpenText& text, std::size_t offset) {
  const auto hover = hoverAt(text.markup(), offset);
  if (!hover) return nullptr;
  return {{"contents", markdown(hover->text)}, {"range", toJson(text, hover->range)}};
}

Json completionOf(const OpenText& text, std::size_t offset,
                  const std::vector<std::string>& routines, bool canPlace) {
  Json items = Json::array();
  for (const auto& completion : completionsAt(text.markup(), offset, routines)) {
    items.push_back(itemOf(text, completion, canPlace));
    // The order is ours, not that of the names.
    const std::string number = std::to_string(items.size());
    items.back()["sortText"] =
        std::string(6 - std::min<std::size_t>(6, number.size()), '0') + number;
  }
  return items;
}

Json outlineOf(const OpenText& text, const std::string& uri, bool asTree) {
  Json list = Json::array();
  const auto symbols = editor::outlineOf(text.markup());
  if (!asTree) {
    addSymbols(text, uri, "", symbols, list);
    return list;
  }
  for (const editor::Symbol& symbol : symbols) list.push_back(symbolOf(text, symbol));
  return list;
}

Json definitionOf(const OpenText& text, const std::string& uri, std::size_t offset, bool canLink) {
  const auto definition = definitionAt(text.markup(), offset);
  if (!definition) return nullptr;
  if (!canLink) return {{"uri", uri}, {"range", toJson(text, definition->chosen)}};
  return Json::array({{{"originSelectionRange", toJson(text, definition->from)},
                       {"targetUri", uri},
                       {"targetRange", toJson(text, definition->whole)},
                       {"targetSelectionRange", toJson(text, definition->chosen)}}});
}

}  // namespace driver_feature::cli
