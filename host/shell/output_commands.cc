#include "host/shell/output_commands.h"

#include <algorithm>
#include <array>

#include "host/emit.h"
#include "host/shell/captured_output.h"
#include "host/shell/names.h"
#include "host/table.h"

namespace driver_feature {

namespace {

constexpr const char* kInstallable = "--inst-opt";

struct Form {
  const char* name;
  OutputForm form;
};
constexpr std::array<Form, 3> kForms = {
    {{"pjl", OutputForm::kPjl}, {"ps", OutputForm::kPostScript}, {"ticket", OutputForm::kTicket}}};

struct Detail {
  const char* name;
  LogDetail detail;
};
constexpr std::array<Detail, 3> kDetails = {
    {{"quiet", LogDetail::kErrors}, {"usual", LogDetail::kUsual}, {"all", LogDetail::kAll}}};

Refusal readForm(const std::string& name, OutputForm& form) {
  for (const Form& known : kForms) {
    if (name != known.name) continue;
    form = known.form;
    return std::nullopt;
  }
  return "there is no form " + quoted(name) + "; give ps, pjl or ticket";
}

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
      "\"help COMMAND\" tells more. Words are separated by blanks; quotes keep blanks in a\n"
      "word: set Owner \"A. B.\"  In double quotes and without quotes, \\n, \\r, \\t, \\e\n"
      "(ESC), \\xNN, and \\ before a blank, quote, # or \\ stand for one character. A word\n"
      "that begins with # begins a comment.\n"
      "\n"
      "Indented lines tell what a command causes: log lines, calls of the host's update\n"
      "callback, and what has changed by then.\n");
}

}  // namespace

Refusal runEmit(Shell& shell, const Words& arguments) {
  Words words = arguments;
  const bool installable = std::erase(words, kInstallable) > 0;
  if (words.empty() || words.size() > 2) {
    return std::string(words.empty() ? "a form is missing" : "too many arguments") +
           "; write emit ps|pjl|ticket [FILE] [--inst-opt]";
  }
  OutputForm form = OutputForm::kPostScript;
  if (Refusal refusal = readForm(words[0], form)) return refusal;
  std::string output;
  shell.session().features().serialize(output, static_cast<int>(form), installable, "", "");
  if (words.size() == 1 || words[1] == "-") {
    shell.answer(shell.transcript().shownOutput(output));
  } else {
    shell.answerTo(words[1], output);
  }
  return std::nullopt;
}

Refusal runDump(Shell& shell, const Words& /*arguments*/) {
  CapturedOutput captured;
  shell.session().features().dumpFeatureListValues();
  std::string text;
  if (captured.end(text)) {
    shell.answer(text);
    return std::nullopt;
  }
  return shell.failToWrite("the listing cannot be kept; free some space for temporary files");
}

Refusal runLog(Shell& shell, const Words& arguments) {
  LogPrinter& log = shell.session().log();
  for (const Detail& known : kDetails) {
    if (arguments.empty() && known.detail == log.detail()) {
      shell.answer(std::string(known.name) + "\n");
    }
    if (arguments.empty() || arguments[0] != known.name) continue;
    log.setDetail(known.detail);
    return std::nullopt;
  }
  if (arguments.empty()) return std::nullopt;
  return "there is no detail " + quoted(arguments[0]) + "; give quiet, usual or all";
}

Refusal runHelp(Shell& shell, const Words& arguments) {
  if (arguments.empty()) {
    helpAll(shell);
    return std::nullopt;
  }
  const ShellCommand* command = nullptr;
  if (Refusal refusal = findCommand(arguments[0], command)) return refusal;
  shell.answer(usageOf(*command) + "\n" + command->summary + ".\n" + command->details);
  return std::nullopt;
}

Refusal runQuit(Shell& shell, const Words& /*arguments*/) {
  shell.end();
  return std::nullopt;
}

Proposals proposeEmit(const Shell& /*shell*/, const Words& before, const std::string& word) {
  Proposals proposals;
  if (before.empty()) {
    for (const Form& form : kForms) proposals.words.emplace_back(form.name);
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

}  // namespace driver_feature
