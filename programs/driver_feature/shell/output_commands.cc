#include "programs/driver_feature/shell/output_commands.h"

#include <algorithm>
#include <array>

#include "host/base/text.h"
#include "host/session/output_form.h"
#include "programs/driver_feature/shell/names.h"
#include "programs/driver_feature/show/dump_text.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kInstallable = "--inst-opt";

struct Detail {
  const char* name;
  host::LogDetail detail;
};
constexpr std::array<Detail, 3> kDetails = {{{"quiet", host::LogDetail::kErrors},
                                             {"usual", host::LogDetail::kUsual},
                                             {"all", host::LogDetail::kAll}}};

std::string usageOf(const ShellCommand& command) {
  return *command.arguments == '\0' ? std::string(command.name)
                                    : std::string(command.name) + " " + command.arguments;
}

void helpAll(Shell& shell) {
  std::vector<TableRow> rows;
  for (const ShellCommand& command : shellCommands()) {
    rows.push_back({{usageOf(command)}, {command.summary}});
  }
  shell.answer(
      layOut(rows, 0) +
      "\n"
      "\"help COMMAND\" shows more. Words are separated by blanks; quotes keep blanks in a\n"
      "word: set Owner \"A. B.\"  In double quotes and without quotes, \\n, \\r, \\t, \\e\n"
      "(ESC), \\xNN, and \\ before a blank, quote, # or \\ mean one character. A word\n"
      "that begins with # begins a comment.\n"
      "\n"
      "Indented lines show what a command causes: log lines, calls of the host's update\n"
      "callback, and what has changed by then.\n");
}

}  // namespace

host::Result<> runEmit(Shell& shell, const Words& arguments) {
  Words words = arguments;
  const bool installable = std::erase(words, kInstallable) > 0;
  if (words.empty() || words.size() > 2) {
    return host::refused(std::string(words.empty() ? "a form is missing" : "too many arguments") +
                         "; write emit ps|pjl|ticket [FILE] [--inst-opt]");
  }
  const auto form = host::formNamed(words[0]);
  if (!form)
    return host::refused("there is no form " + host::inQuotes(words[0]) +
                         "; give ps, pjl or ticket");
  std::string output;
  shell.session().features().serialize(output, static_cast<int>(*form), installable, "", "");
  if (words.size() == 1 || words[1] == "-") {
    shell.answer(shell.transcript().shownOutput(output));
  } else {
    shell.answerTo(words[1], output);
  }
  return {};
}

host::Result<> runDump(Shell& shell, const Words& /*arguments*/) {
  auto text = maskedDump(shell.session());
  if (!text) return failureOf(text);
  shell.answer(*text);
  return {};
}

host::Result<> runLog(Shell& shell, const Words& arguments) {
  host::LogPrinter& log = shell.session().log();
  for (const Detail& known : kDetails) {
    if (arguments.empty() && known.detail == log.detail()) {
      shell.answer(std::string(known.name) + "\n");
    }
    if (arguments.empty() || arguments[0] != known.name) continue;
    log.setDetail(known.detail);
    return {};
  }
  if (arguments.empty()) return {};
  return host::refused("there is no detail " + host::inQuotes(arguments[0]) +
                       "; give quiet, usual or all");
}

host::Result<> runHelp(Shell& shell, const Words& arguments) {
  if (arguments.empty()) {
    helpAll(shell);
    return {};
  }
  auto found = findCommand(arguments[0]);
  if (!found) return failureOf(found);
  const ShellCommand& command = **found;
  shell.answer(usageOf(command) + "\n" + command.summary + ".\n" + command.details);
  return {};
}

host::Result<> runQuit(Shell& shell, const Words& /*arguments*/) {
  shell.end();
  return {};
}

Proposals proposeEmit(const Shell& /*shell*/, const Words& before, const std::string& word) {
  Proposals proposals;
  if (before.empty()) {
    proposals.words = host::formNames();
  } else if (word.starts_with('-')) {
    proposals.words.emplace_back(kInstallable);
  } else {
    proposals.files = true;
  }
  return proposals;
}

Proposals proposeLog(const Shell& /*shell*/, const Words& /*before*/, const std::string& /*word*/) {
  Proposals proposals;
  for (const Detail& detail : kDetails) proposals.words.emplace_back(detail.name);
  return proposals;
}

Proposals proposeHelp(const Shell& /*shell*/, const Words& /*before*/,
                      const std::string& /*word*/) {
  return {commandNames()};
}

}  // namespace driver_feature::cli
