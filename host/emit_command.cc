#include "host/emit_command.h"

#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/console.h"
#include "host/emit.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "FORM is ps, pjl or ticket. --to may be repeated, and --to ps,pjl names two\n"
    "forms. When there are several, each but one needs a file: --to pjl=job.pjl.\n"
    "\n"
    "Settings are checked and applied in the order given; when one is refused,\n"
    "nothing is written. Of several files all are written or none.\n"
    "\n"
    "Examples:\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to pjl --output job.pjl\n"
    "  driver-feature emit office.xml --to ps=job.ps --to pjl=job.pjl --settings my.conf\n"
    "  driver-feature emit office.xml --to ticket --inst-opt\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

struct Arguments {
  std::string description;
  Changes changes;
  EmitRequest emit;
};

// Adds what one --to asks for. Answers why it cannot; empty for success.
std::string addForms(const std::string& text, std::vector<FormRequest>& forms) {
  const std::size_t equals = text.find('=');
  const bool hasFile = equals != std::string::npos;
  if (hasFile && equals + 1 == text.size()) {
    return "\"" + text + "\" names no file; give one behind the equals sign";
  }
  const std::string file = hasFile ? text.substr(equals + 1) : "";
  std::string rest = hasFile ? text.substr(0, equals) : text;
  for (bool more = true; more;) {
    const std::size_t comma = hasFile ? std::string::npos : rest.find(',');
    more = comma != std::string::npos;
    const std::string name = rest.substr(0, comma);
    const auto form = formNamed(name);
    if (!form) return "no such form \"" + name + "\"; give ps, pjl or ticket";
    forms.push_back({*form, file});
    if (more) rest.erase(0, comma + 1);
  }
  return "";
}

// Why the outputs cannot go where they are to go; empty when they can.
std::string misdirection(const EmitRequest& request) {
  std::size_t without = 0;
  for (const FormRequest& form : request.forms) without += form.file.empty() ? 1 : 0;
  if (without > 1) {
    return "several forms cannot share one output; give each a file, as in --to ps=job.ps --to "
           "pjl=job.pjl";
  }
  if (without == 0 && !request.file.empty()) {
    return "--output " + request.file +
           " is for a form without a file of its own; leave it out, or the file of a form";
  }
  return "";
}

int run(const Arguments& arguments, const SessionRequest& general) {
  const std::string problem = misdirection(arguments.emit);
  if (!problem.empty()) {
    complain(problem);
    return kUnusable;
  }
  SessionRequest session = general;
  session.description = arguments.description;
  return emit(session, arguments.changes, arguments.emit);
}

void addOutputs(CLI::App& command, EmitRequest& emit) {
  command
      .add_option_function<std::vector<std::string>>(
          "--to",
          [&emit](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) addForms(text, emit.forms);
          },
          "What to write, and where to; may be repeated")
      ->required()
      ->type_name("FORM[=FILE]")
      ->allow_extra_args(false)
      ->check([](const std::string& text) {
        std::vector<FormRequest> forms;
        return addForms(text, forms);
      });
}

}  // namespace

Command addEmitCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  EmitRequest& emit = arguments->emit;
  CLI::App* command =
      addCommand(program, "emit", "Write printer-ready output of the features", kFooter);
  addDescription(*command, arguments->description);
  addOutputs(*command, emit);
  addChanges(*command, arguments->changes);
  command
      ->add_option("--output", emit.file,
                   "Write the form without a file to this one, whole or not at all")
      ->type_name("FILE");
  command->add_flag("--inst-opt", emit.installableOptions,
                    "Let a ticket use the names of installable options");
  command->add_option("--ticket-argument1", emit.ticketArgument1, "First argument of a ticket")
      ->type_name("TEXT");
  command->add_option("--ticket-argument2", emit.ticketArgument2, "Second argument of a ticket")
      ->type_name("TEXT");
  return {command, [arguments, &general] { return run(*arguments, general); }};
}

}  // namespace driver_feature
