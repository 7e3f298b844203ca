#include "host/check/unformatted.h"

#include <algorithm>
#include <optional>

#include "host/base/text.h"
#include "host/check/template_reading.h"
#include "host/session/group_view.h"

namespace driver_feature::check {

namespace {

// How the library's lines about the command of a feature and of a group end
// before the command.
constexpr std::string_view kOfFeature = " - Cannot format value with command template \"";
constexpr std::string_view kOfGroup = " - Cannot format text with command template \"";
constexpr std::string_view kValueless =
    "createTicketPDLAttributes() - Feature has an invalid feature type";

std::optional<std::string> commandAfter(std::string_view words, std::string_view line) {
  const std::size_t begin = line.find(words);
  if (begin == std::string_view::npos || !line.ends_with('"')) return std::nullopt;
  line.remove_prefix(begin + words.size());
  if (line.empty()) return std::nullopt;
  return std::string(line.substr(0, line.size() - 1));
}

std::string propertyOf(host::OutputForm form) {
  return form == host::OutputForm::kPjl ? "PJLCommand" : "PSCommand";
}

}  // namespace

void UnformattedCommands::take(std::string_view line) {
  const std::string property = propertyOf(form_);
  if (line == kValueless) return addValueless(property);
  if (const auto command = commandAfter(kOfFeature, line)) return addFeatures(property, *command);
  if (const auto command = commandAfter(kOfGroup, line)) return addGroups(property, *command);
}

// The library's line does not name the feature, so every one with this command
// that cannot be formatted is named.
void UnformattedCommands::addFeatures(const std::string& property, const std::string& command) {
  const host::Model& model = session_.model();
  bool isFound = false;
  for (const auto& [name, feature] : model.features) {
    const auto argument = argumentOf(feature.kind());
    const bool isMeant =
        feature.command(property) == command && argument && !fits(command, *argument);
    if (!isMeant) continue;
    isFound = true;
    add(property + " of feature " + host::inQuotes(name), model.index.limitsOf(name).line, command);
  }
  // A routine may have changed the command meanwhile.
  if (!isFound) add("a " + property, 0, command);
}

void UnformattedCommands::addValueless(const std::string& property) {
  const host::Model& model = session_.model();
  for (const auto& [name, feature] : model.features) {
    const std::string command = feature.command(property);
    if (feature.hasValue() || command.empty()) continue;
    add(property + " of feature " + host::inQuotes(name), model.index.limitsOf(name).line, command);
  }
}

void UnformattedCommands::addGroups(const std::string& property, const std::string& command) {
  const host::Model& model = session_.model();
  for (const host::GroupEntry& group : model.index.groups()) {
    const auto view = host::findStaticGroup(session_.features(), group.name);
    if (!view || view->command(property) != command) continue;
    add(property + " of group " + host::inQuotes(group.name), group.line, command);
  }
}

void UnformattedCommands::add(const std::string& owner, int line, const std::string& command) {
  const std::string text =
      owner + ", " + host::inQuotes(command) + ", cannot be formatted, so that it would be missing";
  const bool isKnown =
      std::any_of(problems_.begin(), problems_.end(), [&](const host::Problem& problem) {
        return problem.text == text && problem.position.line == line;
      });
  if (isKnown) return;
  problems_.push_back({host::Problem::Kind::kNotWritten,
                       text,
                       "correct it; \"driver-feature check\" says what is wrong with it",
                       "",
                       session_.model().file,
                       {line, 0}});
}

host::Result<> UnformattedCommands::result() const {
  if (problems_.empty()) return {};
  return failureOfAll(problems_);
}

}  // namespace driver_feature::check
