// The language server's replies about a text, as JSON of the protocol.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_ANSWERS_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_ANSWERS_H_

#include <cstddef>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/editor/markup.h"
#include "programs/driver_feature/lsp/open_text.h"

namespace driver_feature::cli {

using Json = nlohmann::json;

// JSON as text. Texts of a description may hold bytes that are not UTF-8.
std::string dumped(const Json& json);

// Places and ranges. A place that is not one throws an exception of Json.
Json toJson(const OpenText& text, editor::Range range);
std::size_t offsetOf(const OpenText& text, const Json& position);

// The diagnostic of a finding; those of all of them.
Json diagnosticOf(const OpenText& text, const MarkedFinding& marked);
Json diagnosticsOf(const OpenText& text);

Json hoverOf(const OpenText& text, std::size_t offset);

// `canPlace`: the client can put the cursor into what it inserts.
Json completionOf(const OpenText& text, std::size_t offset,
                  const std::vector<std::string>& routines, bool canPlace);

// As a tree, or for older clients as a list.
Json outlineOf(const OpenText& text, const std::string& uri, bool asTree);

// `canLink`: the client can show what the definition is called by.
Json definitionOf(const OpenText& text, const std::string& uri, std::size_t offset, bool canLink);

// The changes that fix findings of a range: of each one, and of all at once.
// `only` are the kinds that the client asks for; empty for all.
Json codeActionsOf(const OpenText& text, const std::string& uri, editor::Range range,
                   const std::vector<std::string>& only);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_ANSWERS_H_
