// "emit": printer-ready output of the features.

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "host/session/output_form.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/outputs.h"
#include "programs/driver_feature/work.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "FORM is ps, pjl or ticket. --to may be repeated, and --to ps,pjl names two\n"
    "forms. When there are several, each but one needs a file: --to pjl=job.pjl.\n"
    "\n"
    "Settings are checked and applied in the order given; if one is refused, nothing\n"
    "is written. Of several files, either all are written or none.\n"
    "\n"
    "Examples:\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to pjl --output job.pjl\n"
    "  driver-feature emit office.xml --to ps=job.ps --to pjl=job.pjl --settings my.conf\n"
    "  driver-feature emit office.xml --to ps --preset draft -o Copies=2\n"
    "  driver-feature emit office.xml --to ticket --inst-opt\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"--to", "FORM[=FILE]", "What to write, and where to; may be repeated",
                kRequired | kRepeats},
    ArgumentRow{"--output", "FILE",
                "Write the form without a file to this one, whole or not at all"},
    ArgumentRow{"--inst-opt", "", "Let a ticket use the names of installable options"},
    ArgumentRow{"--ticket-argument1", "TEXT", "First argument of a ticket"},
    ArgumentRow{"--ticket-argument2", "TEXT", "Second argument of a ticket"},
};

// One output: its form, and the file that receives it.
struct FormRequest {
  host::OutputForm form = host::OutputForm::kPostScript;
  std::string file;  // Empty for the file of --output.
};

// Adds what one --to asks for.
host::Result<> addForms(const std::string& text, std::vector<FormRequest>& forms) {
  const std::size_t equals = text.find('=');
  const bool hasFile = equals != std::string::npos;
  if (hasFile && equals + 1 == text.size()) {
    return host::refused("--to: \"" + text + "\" names no file; give one after the equals sign");
  }
  const std::string file = hasFile ? text.substr(equals + 1) : "";
  std::string rest = hasFile ? text.substr(0, equals) : text;
  for (bool more = true; more;) {
    const std::size_t comma = hasFile ? std::string::npos : rest.find(',');
    more = comma != std::string::npos;
    const std::string name = rest.substr(0, comma);
    const auto form = host::formNamed(name);
    if (!form)
      return host::refused("--to: there is no form \"" + name + "\"; give ps, pjl or ticket");
    forms.push_back({*form, file});
    if (more) rest.erase(0, comma + 1);
  }
  return {};
}

// The forms that the line asks for. Refused when the outputs cannot go where they
// are to go.
host::Result<std::vector<FormRequest>> formsOf(const Arguments& arguments) {
  std::vector<FormRequest> forms;
  for (const std::string& text : arguments.texts("--to")) {
    if (host::Result<> added = addForms(text, forms); !added) return failureOf(added);
  }
  std::size_t without = 0;
  for (const FormRequest& form : forms) without += form.file.empty() ? 1 : 0;
  if (without > 1) {
    return host::refused(
        "several forms cannot share one output; give each a file, as in --to ps=job.ps --to "
        "pjl=job.pjl");
  }
  const std::string file = arguments.text("--output");
  if (without == 0 && !file.empty()) {
    return host::refused(
        "--output " + file +
        " is for a form without a file of its own; leave it out, or the file of a form");
  }
  return forms;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  auto forms = formsOf(arguments);
  if (!forms) return failureOf(forms);
  std::vector<OutputRequest> requests;
  for (const FormRequest& form : *forms) {
    requests.push_back({form.form, arguments.has("--inst-opt"),
                        arguments.text("--ticket-argument1"),
                        arguments.text("--ticket-argument2")});
  }
  return workOnDescription(
      sessionOf(arguments, general), changesOf(arguments),
      [&](host::Session& session, std::vector<host::OutputText>& outputs) -> host::Result<> {
        auto texts = composeOutputs(session, requests);
        if (!texts) return failureOf(texts);
        for (std::size_t i = 0; i < texts->size(); ++i) {
          const std::string& file = (*forms)[i].file;
          outputs.push_back(
              {file.empty() ? arguments.text("--output") : file, std::move((*texts)[i])});
        }
        return {};
      });
}

}  // namespace

const CommandRow kEmitCommand = {
    "emit", "Write printer-ready output of the features", kFooter, kRows, kChangeRows, &run, true};

}  // namespace driver_feature::cli
