// "show": the features with their values and choices.

#include "programs/driver_feature/show/show.h"

#include <array>

#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/driver_feature/show/people_texts.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/show/show_details.h"
#include "programs/driver_feature/show/show_panels.h"
#include "programs/driver_feature/show/taken_out.h"
#include "programs/driver_feature/work.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "With NAME, one feature or group is shown in full: every property, the limits,\n"
    "the options with their commands, the routines, and the groups around it.\n"
    "\n"
    "With --language, the text of that language is shown, or that of its first part\n"
    "(de for de-AT), else that of the first language of the description, else the name.\n"
    "Values are still set by name.\n"
    "\n"
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature show office.xml PageSize\n"
    "  driver-feature show office.xml --language de\n"
    "  driver-feature show office.xml --presets\n"
    "  driver-feature show office.xml --json | jq '.features[].name'\n"
    "  driver-feature show office.xml --records PageExceptions page_exceptions.json\n"
    "  driver-feature show office.xml -o Copies=2 --save two-copies.conf\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"NAME", "TEXT", "One feature or group to show in full"},
    ArgumentRow{"--json", "", "Print a JSON document"},
    ArgumentRow{"--language", "LANGUAGE",
                "Show the texts of this language, such as de, beside the names"},
    ArgumentRow{"--presets", "", "Show the presets of the description"},
    kShowSecretsRow,
};

// With what the description has beside its features. What of it cannot be read is
// reported, and the rest is shown.
std::string composeWithTexts(const Arguments& arguments, const host::Session& session,
                             std::size_t width) {
  const PeopleTexts texts(session, arguments.text("--language"));
  const bool json = arguments.has("--json");
  std::string text;
  if (arguments.has("--presets")) {
    text = json ? presetsJson(session, texts) : presetsText(session, texts, width);
  } else {
    const host::Model& model = session.model();
    host::RuleKeeper keeper(session);
    keeper.useLanguage(arguments.text("--language"));
    keeper.takeOut();
    text = json ? showJson(session, keeper, &texts)
                : showTable(model, session.features(), width, &texts) +
                      showPanels(session, width, &texts) + showTakenOut(keeper, "");
  }
  for (const host::Problem& problem : session.additions(host::kTextsPart).problems) {
    printProblem(problem);
  }
  return text;
}

host::Result<std::string> compose(const Arguments& arguments, const host::Session& session,
                                  std::size_t width) {
  const bool hasTexts = arguments.has("--language") || arguments.has("--presets");
  if (hasTexts && arguments.has("NAME")) {
    return host::refused("--language and --presets are for the whole description; leave out " +
                         host::inQuotes(arguments.text("NAME")));
  }
  if (hasTexts) return composeWithTexts(arguments, session, width);
  const host::Model& model = session.model();
  CoreFeatureSet& set = session.features();
  const std::string name = arguments.text("NAME");
  const bool json = arguments.has("--json");
  host::RuleKeeper keeper(session);
  keeper.takeOut();
  if (!arguments.has("NAME")) {
    return json ? showJson(session, keeper)
                : showTable(model, set, width) + showPanels(session, width) +
                      showTakenOut(keeper, "");
  }
  if (host::Result<> found = checkDetails(model, name); !found) return failureOf(found);
  return json ? detailsJson(model, set, name)
              : detailsText(model, set, name, width) + showTakenOut(keeper, name);
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const std::size_t width = terminalWidth();
  if (arguments.has("--show-secrets")) showSecrets();
  return workOnDescription(
      sessionOf(arguments, general), changesOf(arguments),
      [&](host::Session& session, std::vector<host::OutputText>& outputs) {
        return compose(arguments, session, width).map([&outputs](std::string text) {
          outputs.push_back({"", std::move(text)});
        });
      });
}

}  // namespace

const CommandRow kShowCommand = {
    "show", "Show the features with their values and choices", kFooter, kRows, kChangeRows, &run,
    true};

}  // namespace driver_feature::cli
