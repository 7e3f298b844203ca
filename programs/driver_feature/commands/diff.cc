// "diff": two settings files, compared by what they change.

#include <array>
#include <iterator>
#include <map>
#include <optional>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/line_diff.h"
#include "host/base/standard_streams.h"
#include "host/session/output_form.h"
#include "host/session/routine_calls.h"
#include "host/session/routine_runs.h"
#include "host/settings/secret_outputs.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_text.h"
#include "programs/common/colour.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/diff_text.h"
#include "programs/driver_feature/show/secrets.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Shows how the values, the records and the three outputs differ. Control\n"
    "characters are shown as \\r, \\t or \\xNN, and a backslash as \\\\. An empty\n"
    "file, such as /dev/null, means the defaults; preset:NAME means a preset of the\n"
    "description. Values of features marked Encrypted are shown as ****, with\n"
    "numbers when they differ. A routine that writes such a value in a form of its\n"
    "own shows it.\n"
    "\n"
    "Examples:\n"
    "  driver-feature diff office.xml draft.conf final.conf\n"
    "  driver-feature diff office.xml /dev/null final.conf --json\n"
    "  driver-feature diff office.xml preset:draft final.conf\n"
    "\n"
    "Exit status: 0 no difference, 1 a difference, 2 the two could not be compared.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"FIRST", "FILE", "A settings file", kRequired},
    ArgumentRow{"SECOND", "FILE", "The settings file to compare it with", kRequired},
    kResolveRow,
    kIgnoreRulesRow,
    kAllowanceRow,
    kShowSecretsRow,
    ArgumentRow{"--json", "", "Print a JSON document"},
};

using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

// What is compared, in the order of the texts that take() returns.
struct Section {
  const char* name;
  host::OutputForm form;
};
constexpr Section kOutputs[] = {{"ps", host::OutputForm::kPostScript},
                                {"pjl", host::OutputForm::kPjl},
                                {"ticket", host::OutputForm::kTicket}};

constexpr std::ptrdiff_t kFirstName = 1 + std::ssize(kOutputs);  // Of those texts.

struct DiffRequest {
  std::string first;  // Settings files.
  std::string second;
  bool allowControlCharacters = false;
  host::RuleConduct rules = host::RuleConduct::kRefuse;
};

constexpr int kSame = 0;
constexpr int kDifferent = 1;

// The settings, the outputs, and the names of the features whose values are not
// shown. Empty after a problem, which is printed.
Texts take(const host::SessionRequest& request, const std::string& file, const DiffRequest& diff) {
  const host::StandardOutputDiversion diversion;
  host::Changes changes;
  constexpr std::string_view kPreset = "preset:";
  if (file.starts_with(kPreset)) {
    changes.presets = {file.substr(kPreset.size())};
  } else {
    changes.files = {file};
  }
  changes.allowControlCharacters = diff.allowControlCharacters;
  changes.rules = diff.rules;
  const auto session = openChanged(request, changes);
  if (!session) {
    printProblem(session.error());
    return {};
  }
  CoreFeatureSet& features = (*session)->features();
  Texts texts = {composeSettings(features, (*session)->model())};
  for (const Section& output : kOutputs) texts.push_back(outputOf(features, output.form));
  for (const auto& [name, feature] : (*session)->model().features) {
    if (feature.isEncrypted()) texts.push_back(name);
  }
  return texts;
}

// In a child process, since the library keeps one set of features. If it
// returns no texts, it has printed why.
host::Result<std::optional<Texts>> takeInChild(const host::SessionRequest& request,
                                               const std::string& file, const DiffRequest& diff) {
  auto texts = host::takeFromRoutines([&] { return take(request, file, diff); });
  if (!texts) {
    return host::refused(file +
                         ": the values and outputs could not be made: " + texts.error().text);
  }
  if (texts->empty()) return std::nullopt;
  return std::move(*texts);
}

// The lines of the settings that are not comments, with every byte as it is.
Texts settingLines(const std::string& text) {
  Texts lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find('\n', start);
    const std::string line = text.substr(start, end - start);
    if (!line.empty() && line.front() != '#') lines.push_back(line);
    start = end == std::string::npos ? text.size() : end + 1;
  }
  return lines;
}

class Comparison {
 public:
  Comparison(const DiffRequest& request, const Texts& first, const Texts& second)
      : request_(request), first_(first), second_(second) {
    // Settings are independent of each other: no context lines.
    add("settings", settingLines(first[0]), settingLines(second[0]), 0);
    for (std::size_t i = 0; i < std::size(kOutputs); ++i) {
      add(kOutputs[i].name, host::visibleLines(first[i + 1]), host::visibleLines(second[i + 1]),
          kDiffContext);
    }
  }

  bool isDifferent() const { return !parts_.empty(); }

  std::string text(bool coloured) const {
    std::string text;
    for (const Part& part : parts_) {
      text += composeDiff(request_.first + " (" + part.name + ")",
                          request_.second + " (" + part.name + ")", part.lines, coloured);
    }
    return text;
  }

  std::string json() const {
    Json outputs = Json::object();
    for (const Part& part : parts_) {
      Json lines = Json::array();
      for (const host::DiffLine& line : part.lines) lines.push_back(line.mark + line.text);
      outputs[part.name] = lines;
    }
    const Json document = {{"first", request_.first},
                           {"second", request_.second},
                           {"different", isDifferent()},
                           {"values", valuesJson()},
                           {"changes", outputs}};
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
  }

 private:
  struct Part {
    std::string name;
    std::vector<host::DiffLine> lines;
  };

  void add(const std::string& name, const Texts& first, const Texts& second, std::size_t context) {
    const std::vector<host::DiffLine> lines = host::diffLines(first, second);
    if (!hasChange(lines)) return;
    std::vector<host::DiffLine> shown = withContext(lines, context);
    if (context == 0)
      std::erase_if(shown, [](const host::DiffLine& line) { return line.mark == '@'; });
    parts_.push_back({name, shown});
  }

  Json valuesJson() const {
    std::map<std::string, std::string> before;
    for (const host::SettingsLine& line : host::parseSettings(first_[0]).features) {
      before[line.setting.name] = line.setting.value;
    }
    Json values = Json::array();
    for (const host::SettingsLine& line : host::parseSettings(second_[0]).features) {
      const auto& [name, value] = line.setting;
      if (before[name] == value) continue;
      values.push_back({{"name", name}, {"first", before[name]}, {"second", value}});
    }
    return values;
  }

  const DiffRequest& request_;
  const Texts& first_;
  const Texts& second_;
  std::vector<Part> parts_;
};

void maskSecrets(Texts& first, Texts& second) {
  const Texts names(std::next(first.begin(), kFirstName), first.end());
  if (names.empty()) return;
  const host::SecretOutputs secrets(names, {first[0], second[0]});
  for (std::size_t i = 0; i < std::size(kOutputs); ++i) {
    first[i + 1] = secrets.masked(first[i + 1]);
    second[i + 1] = secrets.masked(second[i + 1]);
  }
  maskSettings(names, first[0], second[0]);
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const DiffRequest request{arguments.text("FIRST"), arguments.text("SECOND"),
                            arguments.has("--allow-control-characters"), conductOf(arguments)};
  host::SessionRequest session = sessionOf(arguments, general);
  const host::SharedRoutineRecord record;
  auto first = takeInChild(session, request.first, request);
  if (!first) return tl::unexpected(first.error());
  if (!*first) return kUnusable;
  // What the description causes has been reported once.
  if (session.detail == host::LogDetail::kUsual) session.detail = host::LogDetail::kErrors;
  auto second = takeInChild(session, request.second, request);
  if (!second) return tl::unexpected(second.error());
  if (!*second) return kUnusable;
  if (!arguments.has("--show-secrets")) maskSecrets(**first, **second);
  const Comparison comparison(request, **first, **second);
  host::Result<> written = host::writeToStandardOutput(
      arguments.has("--json") ? comparison.json() : comparison.text(terminalWantsColour()));
  // 1 says that there is a difference.
  if (!written) return host::refused(written.error().text);
  return comparison.isDifferent() ? kDifferent : kSame;
}

}  // namespace

const CommandRow kDiffCommand = {
    "diff", "Compare what two settings files change", kFooter, kRows, {}, &run};

}  // namespace driver_feature::cli
