#include "programs/driver_feature/shell/option_commands.h"

#include <algorithm>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "programs/driver_feature/shell/names.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

// In byte order. The two flags are bools, the others texts.
const std::vector<std::string> kProperties = {
    "CLOKey",    "DisplayText", "Name",        "PJLCommand",        "PSCommand",
    "SNMPValue", "Sensitivity", "TESKCommand", "TESKTicketCommand", "Visibility"};

bool isFlag(const std::string& property) {
  return property == "Sensitivity" || property == "Visibility";
}

host::Result<> checkProperty(const std::string& name) {
  if (std::find(kProperties.begin(), kProperties.end(), name) != kProperties.end()) {
    return {};
  }
  const auto nearest = host::nearestName(name, kProperties);
  return host::refused("options have no property " + host::inQuotes(name) + "; " +
                       (nearest ? "did you mean " + host::inQuotes(*nearest) + "?"
                                : "give one of " + host::join(kProperties, ", ")));
}

std::string textOf(CoreOption& option, const std::string& property) {
  if (isFlag(property)) {
    bool value = false;
    option.getOptionProperty(property, &value);
    return value ? "true" : "false";
  }
  std::string text;
  option.getOptionProperty(property, text);
  return quoteWord(text);
}

host::Result<> store(CoreOption& option, const std::string& property, const std::string& text) {
  if (!isFlag(property)) {
    option.setOptionProperty(property, text);
    return {};
  }
  if (text != "true" && text != "false" && text != "1" && text != "0") {
    return host::refused(host::inQuotes(text) + " is not a value for " + host::inQuotes(property) +
                         "; give true or false");
  }
  option.setOptionProperty(property, text == "true" || text == "1");
  return {};
}

}  // namespace

host::Result<> runOption(Shell& shell, const Words& arguments) {
  auto found = findOption(shell, arguments[0], arguments[1]);
  if (!found) return failureOf(found);
  IntermediateCoreOption& option = **found;
  if (arguments.size() == 2) {
    std::vector<TableRow> rows;
    rows.reserve(kProperties.size());
    for (const std::string& property : kProperties) {
      rows.push_back({{property}, {textOf(option, property)}});
    }
    shell.answer(layOut(rows, 0));
    return {};
  }
  if (host::Result<> done = checkProperty(arguments[2]); !done) return done;
  if (arguments.size() == 4) return store(option, arguments[2], arguments[3]);
  shell.answer(textOf(option, arguments[2]) + "\n");
  return {};
}

Proposals proposeOption(const Shell& shell, const Words& before, const std::string& /*word*/) {
  switch (before.size()) {
    case 0:
      return {namesWithOptions(shell.model())};
    case 1:
      return {optionNames(shell.model(), before[0])};
    case 2:
      return {kProperties};
    default:
      return isFlag(before[2]) ? Proposals{{"false", "true"}} : Proposals{};
  }
}

}  // namespace driver_feature::cli
