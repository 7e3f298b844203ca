#include "programs/driver_feature/manual/manual_page.h"

#include <set>

#include "host/base/text.h"
#include "programs/driver_feature/manual/roff.h"

namespace driver_feature::cli {

namespace {

using Rows = std::vector<const ArgumentRow*>;

Rows positionalsOf(const CommandRow& command) {
  Rows rows = command.arguments();
  std::erase_if(rows, [](const ArgumentRow* row) { return row->isOption(); });
  return rows;
}

Rows optionsOf(const CommandRow& command) {
  Rows rows = command.arguments();
  std::erase_if(rows, [](const ArgumentRow* row) { return !row->isOption(); });
  return rows;
}

Rows optionsOf(const ProgramRows& program) {
  Rows rows;
  for (const ArgumentRow& row : program.general) rows.push_back(&row);
  return rows;
}

std::string nameOf(const ProgramRows& program, const CommandRow& command) {
  return std::string(program.name) + " " + command.name;
}

std::string bold(const std::string& text) {
  return "\\fB" + roffText(text) + "\\fP";
}

std::string italic(const std::string& text) {
  return "\\fI" + roffText(text) + "\\fP";
}

// "-o, --option NAME=VALUE" with its typefaces.
std::string usageOf(const ArgumentRow& option, const std::string& separator) {
  std::string usage;
  for (const std::string& spelling : spellingsOf(option)) {
    usage += (usage.empty() ? "" : separator) + bold(spelling);
  }
  if (!option.isFlag()) usage += " " + italic(option.kinds);
  return usage;
}

std::string item(const std::string& term, const std::string& text) {
  return ".TP\n" + term + "\n" + roffText(text) + ".\n";
}

std::string optionItems(const Rows& options) {
  std::string items;
  for (const ArgumentRow* option : options) {
    items += item(usageOf(*option, ", "), option->meaning);
  }
  return items;
}

// One line of the synopsis.
std::string usageOf(const ProgramRows& program, const CommandRow& command) {
  std::string usage = ".B " + roffText(nameOf(program, command)) + "\n";
  for (const ArgumentRow* option : positionalsOf(command)) {
    const bool repeats = option->has(kRepeats);
    const std::string name = italic(option->name) + (repeats ? "...\\&" : "");
    usage += option->has(kRequired) ? name + "\n" : "[" + name + "]\n";
  }
  for (const ArgumentRow* option : optionsOf(command)) {
    if (option->has(kRequired)) usage += usageOf(*option, "|") + "\n";
  }
  return usage + "[" + italic("OPTION") + "...]\n";
}

std::string synopsis(const ProgramRows& program) {
  std::string text;
  for (const CommandRow* command : program.commands) {
    text += (text.empty() ? "" : ".br\n") + usageOf(program, *command);
  }
  for (const ArgumentRow* option : optionsOf(program)) {
    const std::string name = spellingsOf(*option).back();
    if (name != "--help" && name != "--version") continue;
    text += ".br\n.B " + roffText(program.name) + "\n" + usageOf(*option, "|") + "\n";
  }
  return text;
}

std::string section(const ProgramRows& program, const CommandRow& command) {
  std::string text = ".SS " + roffArgument(nameOf(program, command)) + "\n";
  text += roffText(command.summary) + ".\n";
  for (const ArgumentRow* option : positionalsOf(command)) {
    text += item(italic(option->name), option->meaning);
  }
  return text + optionItems(optionsOf(command)) + roffParagraphs(command.footer);
}

// The lines of a help text's last part from the one that begins with `start`
// to the next empty one.
std::string paragraph(const std::string& text, const std::string& start) {
  const std::size_t begin = text.find(start);
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find("\n\n", begin) - begin) + "\n";
}

// A paragraph without the heading that it begins with.
std::string headed(const std::string& text, const std::string& heading) {
  const std::string found = paragraph(text, heading);
  const std::size_t begin = found.find_first_not_of('\n', heading.size());
  return begin == std::string::npos ? "" : found.substr(begin);
}

}  // namespace

std::map<std::string, std::string> manualParts(const ProgramRows& program) {
  std::string commands;
  for (const CommandRow* command : program.commands) commands += section(program, *command);
  return {{"SYNOPSIS", synopsis(program)},
          {"GENERAL_OPTIONS", optionItems(optionsOf(program))},
          {"COMMANDS", commands},
          {"EXIT_STATUS", roffParagraphs(headed(program.footer, "Exit status: "))},
          {"EXAMPLES", roffParagraphs(headed(program.footer, "Examples:"))}};
}

host::Result<std::string> fillMarks(const std::string& text,
                                    const std::map<std::string, std::string>& parts) {
  std::set<std::string> used;
  std::string result;
  std::size_t at = 0;
  for (std::size_t mark; (mark = text.find('@', at)) != std::string::npos;) {
    const std::size_t end = text.find('@', mark + 1);
    const std::string name = text.substr(mark + 1, end - mark - 1);
    const auto part = parts.find(name);
    if (end == std::string::npos || part == parts.end()) {
      return host::refused("there is no text for the mark \"@" + name + "\"");
    }
    used.insert(name);
    result += text.substr(at, mark - at) + part->second;
    at = end + 1;
    if (part->second.ends_with('\n') && text[at] == '\n') ++at;
  }
  result += text.substr(at);
  for (const auto& [name, part] : parts) {
    if (!used.contains(name)) {
      return host::refused("the text has no mark \"@" + name + "@\"");
    }
  }
  return result;
}

}  // namespace driver_feature::cli
