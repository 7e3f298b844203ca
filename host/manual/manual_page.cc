#include "host/manual/manual_page.h"

#include <set>

#include <CLI/CLI.hpp>

#include "host/completion/place.h"
#include "host/manual/roff.h"
#include "host/text.h"

namespace driver_feature {

namespace {

using Options = std::vector<const CLI::Option*>;

Options positionalsOf(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::string bold(const std::string& text) {
  return "\\fB" + roffText(text) + "\\fP";
}

std::string italic(const std::string& text) {
  return "\\fI" + roffText(text) + "\\fP";
}

// "-o, --option NAME=VALUE" with its typefaces.
std::string usageOf(const CLI::Option& option, const std::string& separator) {
  std::string usage;
  for (const std::string& spelling : spellingsOf(option)) {
    usage += (usage.empty() ? "" : separator) + bold(spelling);
  }
  if (wordsBehind(option) > 0) usage += " " + italic(option.get_type_name());
  return usage;
}

std::string item(const std::string& term, const std::string& text) {
  return ".TP\n" + term + "\n" + roffText(text) + ".\n";
}

std::string optionItems(const Options& options) {
  std::string items;
  for (const CLI::Option* option : options) {
    items += item(usageOf(*option, ", "), option->get_description());
  }
  return items;
}

// The options of a command, or of the program itself. A command's --help is
// told among the general options.
Options optionsOf(const CLI::App& command) {
  return command.get_options([&command](const CLI::Option* option) {
    const bool isHelpAgain = command.get_parent() != nullptr && option == command.get_help_ptr();
    return option->nonpositional() && !isHelpAgain;
  });
}

// One line of the synopsis.
std::string usageOf(const CLI::App& program, const CLI::App& command) {
  std::string usage = ".B " + roffText(program.get_name() + " " + command.get_name()) + "\n";
  for (const CLI::Option* option : positionalsOf(command)) {
    const bool repeats = option->get_items_expected_max() > 1;
    const std::string name = italic(option->get_name(true)) + (repeats ? "...\\&" : "");
    usage += option->get_required() ? name + "\n" : "[" + name + "]\n";
  }
  for (const CLI::Option* option : optionsOf(command)) {
    if (option->get_required()) usage += usageOf(*option, "|") + "\n";
  }
  return usage + "[" + italic("OPTION") + "...]\n";
}

std::string synopsis(const CLI::App& program) {
  std::string text;
  for (const CLI::App* command : commandsOf(program)) {
    text += (text.empty() ? "" : ".br\n") + usageOf(program, *command);
  }
  for (const CLI::Option* option : optionsOf(program)) {
    const bool standsAlone = option == program.get_help_ptr() || option->get_name() == "--version";
    if (standsAlone)
      text += ".br\n.B " + roffText(program.get_name()) + "\n" + usageOf(*option, "|") + "\n";
  }
  return text;
}

std::string section(const CLI::App& program, const CLI::App& command) {
  std::string text = ".SS " + roffArgument(program.get_name() + " " + command.get_name()) + "\n";
  text += roffText(command.get_description()) + ".\n";
  for (const CLI::Option* option : positionalsOf(command)) {
    text += item(italic(option->get_name(true)), option->get_description());
  }
  return text + optionItems(optionsOf(command)) + roffParagraphs(command.get_footer());
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

std::map<std::string, std::string> manualParts(const CLI::App& program) {
  std::string commands;
  for (const CLI::App* command : commandsOf(program)) commands += section(program, *command);
  return {{"SYNOPSIS", synopsis(program)},
          {"GENERAL_OPTIONS", optionItems(optionsOf(program))},
          {"COMMANDS", commands},
          {"EXIT_STATUS", roffParagraphs(headed(program.get_footer(), "Exit status: "))},
          {"EXAMPLES", roffParagraphs(headed(program.get_footer(), "Examples:"))}};
}

bool fillMarks(std::string& text, const std::map<std::string, std::string>& parts,
               std::string& problem) {
  std::set<std::string> used;
  std::string result;
  std::size_t at = 0;
  for (std::size_t mark; (mark = text.find('@', at)) != std::string::npos;) {
    const std::size_t end = text.find('@', mark + 1);
    const std::string name = text.substr(mark + 1, end - mark - 1);
    const auto part = parts.find(name);
    if (end == std::string::npos || part == parts.end()) {
      problem = "nothing is known to stand for the mark \"@" + name + "\"";
      return false;
    }
    used.insert(name);
    result += text.substr(at, mark - at) + part->second;
    at = end + 1;
    if (part->second.ends_with('\n') && text[at] == '\n') ++at;
  }
  text = result + text.substr(at);
  for (const auto& [name, part] : parts) {
    if (!used.contains(name)) {
      problem = "no mark \"@" + name + "@\" stands in the text";
      return false;
    }
  }
  return true;
}

}  // namespace driver_feature
