#include "host/diff.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/changes.h"
#include "host/console.h"
#include "host/emit.h"
#include "host/line_diff.h"
#include "host/process_copy.h"
#include "host/settings_file.h"
#include "host/settings_text.h"

namespace driver_feature {

namespace {

using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

// What is compared, in the order of the texts that take() answers.
struct Section {
  const char* name;
  OutputForm form;
};
constexpr Section kOutputs[] = {
    {"ps", OutputForm::kPostScript}, {"pjl", OutputForm::kPjl}, {"ticket", OutputForm::kTicket}};

// The settings without their comments, and the outputs. Nothing at all after a
// line on standard error.
Texts take(const SessionRequest& request, const std::string& file, bool allowControlCharacters) {
  const StandardOutputDiversion diversion;
  Changes changes;
  changes.files = {file};
  changes.allowControlCharacters = allowControlCharacters;
  int status = kSuccess;
  const auto session = openChanged(request, changes, status);
  if (!session) return {};
  Texts texts = {composeSettings(session->features(), session->model())};
  for (const Section& output : kOutputs) {
    texts.emplace_back();
    session->features().serialize(texts.back(), static_cast<int>(output.form), false, "", "");
  }
  return texts;
}

std::optional<Texts> takeInCopy(const SessionRequest& request, const std::string& file,
                                bool allowControlCharacters) {
  auto texts =
      runInCopy(CopyStreams::kShared, [&] { return take(request, file, allowControlCharacters); });
  if (texts && !texts->empty()) return texts;
  if (!texts) complain(file + ": the values and outputs could not be made");
  return std::nullopt;
}

// The lines of the settings that are no comments. They show every byte as
// they are.
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

bool hasChange(const std::vector<DiffLine>& lines) {
  return std::ranges::any_of(lines, [](const DiffLine& line) { return line.mark != ' '; });
}

bool isColoured() {
  const char* refused = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  return ::isatty(STDOUT_FILENO) != 0 && (refused == nullptr || *refused == '\0') &&
         terminal != nullptr && std::string(terminal) != "dumb";
}

std::string composeLine(const DiffLine& line, bool coloured) {
  const std::string text = line.mark + line.text;
  const char* colour = line.mark == '-' ? "31" : line.mark == '+' ? "32" : "36";
  if (!coloured || line.mark == ' ') return text + "\n";
  return "\033[" + std::string(colour) + "m" + text + "\033[0m\n";
}

class Comparison {
 public:
  Comparison(const DiffRequest& request, const Texts& first, const Texts& second)
      : request_(request), first_(first), second_(second) {
    // Each setting stands for itself, and has no use for its neighbours.
    add("settings", settingLines(first[0]), settingLines(second[0]), 0);
    for (std::size_t i = 0; i < std::size(kOutputs); ++i) {
      constexpr std::size_t kContext = 3;
      add(kOutputs[i].name, visibleLines(first[i + 1]), visibleLines(second[i + 1]), kContext);
    }
  }

  bool isDifferent() const { return !parts_.empty(); }

  std::string text(bool coloured) const {
    std::string text;
    for (const Part& part : parts_) {
      text += composeLine({'-', "-- " + request_.first + " (" + part.name + ")"}, coloured);
      text += composeLine({'+', "++ " + request_.second + " (" + part.name + ")"}, coloured);
      for (const DiffLine& line : part.lines) text += composeLine(line, coloured);
    }
    return text;
  }

  std::string json() const {
    Json outputs = Json::object();
    for (const Part& part : parts_) {
      Json lines = Json::array();
      for (const DiffLine& line : part.lines) lines.push_back(line.mark + line.text);
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
    std::vector<DiffLine> lines;
  };

  void add(const std::string& name, const Texts& first, const Texts& second, std::size_t context) {
    const std::vector<DiffLine> lines = diffLines(first, second);
    if (!hasChange(lines)) return;
    std::vector<DiffLine> shown = withContext(lines, context);
    if (context == 0) std::erase_if(shown, [](const DiffLine& line) { return line.mark == '@'; });
    parts_.push_back({name, shown});
  }

  Json valuesJson() const {
    std::map<std::string, std::string> before;
    for (const SettingsLine& line : parseSettings(first_[0]).features) {
      before[line.setting.name] = line.setting.value;
    }
    Json values = Json::array();
    for (const SettingsLine& line : parseSettings(second_[0]).features) {
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

}  // namespace

int diff(const SessionRequest& sessionRequest, const DiffRequest& request) {
  const auto first = takeInCopy(sessionRequest, request.first, request.allowControlCharacters);
  if (!first) return kUnusable;
  SessionRequest again = sessionRequest;
  // What the description causes has been told once.
  if (again.detail == LogDetail::kUsual) again.detail = LogDetail::kErrors;
  const auto second = takeInCopy(again, request.second, request.allowControlCharacters);
  if (!second) return kUnusable;
  const Comparison comparison(request, *first, *second);
  const std::string text = request.json ? comparison.json() : comparison.text(isColoured());
  if (const WriteProblem problem = writeToStandardOutput(text)) {
    complain(*problem);
    return kUnusable;
  }
  return comparison.isDifferent() ? kDifferent : kSame;
}

}  // namespace driver_feature
