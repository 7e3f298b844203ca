#include "equivalence/report.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace driver_feature::equivalence {

namespace {

using Json = nlohmann::json;

// Figures of a record that are added up, and what they are called.
struct FigureRow {
  const char* key;
  const char* words;
};

constexpr std::array<FigureRow, 12> kFigures = {
    {{"options", "options"},
     {"choices", "choices"},
     {"jcl_options", "JCL options"},
     {"custom_options", "options with custom values"},
     {"vectors", "vectors compared"},
     {"bytes", "bytes compared"},
     {"difference_count", "texts that differ"},
     {"whole_jobs", "whole jobs compared"},
     {"whole_bytes", "bytes of whole jobs"},
     {"fronts", "PPDs with job-control language in front of them"},
     {"check_errors", "errors of the check"},
     {"check_warnings", "warnings of the check"}}};

std::string textOf(const Json& record, const char* key) {
  const auto found = record.find(key);
  return found != record.end() && found->is_string() ? found->get<std::string>() : "";
}

std::string firstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

std::string differenceText(const Json& difference) {
  std::string text = "    " + textOf(difference, "part") + " at byte " +
                     std::to_string(difference.at("offset").get<long>()) + " (" +
                     std::to_string(difference.at("peer_size").get<long>()) +
                     " bytes in libcups, " + std::to_string(difference.at("our_size").get<long>()) +
                     " here), " + textOf(difference, "vector") + "\n";
  text += "      libcups: " + textOf(difference, "peer") + "\n";
  text += "      here:    " + textOf(difference, "ours") + "\n";
  return text;
}

}  // namespace

bool Report::add(const Json& record) {
  const std::string ppd = textOf(record, "ppd");
  examined_.insert(ppd);
  ++figures_["files"];
  for (const FigureRow& row : kFigures) {
    const auto found = record.find(row.key);
    if (found != record.end()) figures_[row.key] += found->get<long>();
  }
  Failure failure;
  for (const Json& entry : record.at("causes")) {
    const std::string cause = entry.get<std::string>();
    ++causes_[cause];
    if (const std::string* reason = exceptions_.find(cause, ppd)) {
      excepted_.push_back({cause, ppd, *reason});
    } else {
      failure.causes.push_back(cause);
    }
  }
  if (record.at("causes").empty()) ++figures_["equal"];
  if (failure.causes.empty()) return false;
  failure.record = record;
  failures_[ppd] = failure;
  return true;
}

void Report::close(bool complete) {
  idleExceptions_ = exceptions_.idle(examined_, complete);
  std::sort(excepted_.begin(), excepted_.end());
}

Json Report::toJson() const {
  Json report = {{"figures", figures_},
                 {"causes", causes_},
                 {"failures", Json::array()},
                 {"exceptions", Json::array()},
                 {"idle_exceptions", idleExceptions_}};
  for (const auto& [ppd, failure] : failures_) report["failures"].push_back(failure.record);
  for (const auto& [cause, ppd, reason] : excepted_) {
    report["exceptions"].push_back({{"cause", cause}, {"ppd", ppd}, {"reason", reason}});
  }
  return report;
}

std::string Report::figuresText() const {
  const auto figure = [this](const std::string& key) {
    const auto found = figures_.find(key);
    return std::to_string(found != figures_.end() ? found->second : 0);
  };
  const auto row = [](const std::string& number, const std::string& words) {
    return std::string(number.size() < 14 ? 14 - number.size() : 0, ' ') + number + "  " + words +
           "\n";
  };
  std::string text = row(figure("files"), "PPDs") + row(figure("equal"), "of them equal");
  for (const FigureRow& entry : kFigures) text += row(figure(entry.key), entry.words);
  return text;
}

std::string Report::toText() const {
  std::string text = figuresText();
  if (!causes_.empty()) text += "\nPPDs by cause:\n";
  for (const auto& [cause, count] : causes_) {
    text.append("  ").append(cause).append(": ").append(std::to_string(count)).append("\n");
  }
  if (!excepted_.empty()) text += "\nExceptions:\n";
  for (const auto& [cause, ppd, reason] : excepted_) {
    text.append("  ").append(ppd).append(": ").append(cause).append(": ").append(reason);
    text += "\n";
  }
  if (!failures_.empty()) text += "\nFailures:\n";
  for (const auto& [ppd, failure] : failures_) {
    text += "  " + ppd + ":";
    for (const std::string& cause : failure.causes) text += " [" + cause + "]";
    const std::string detail = firstLine(textOf(failure.record, "detail"));
    text += (detail.empty() ? "" : " " + detail) + "\n";
    const auto differences = failure.record.find("differences");
    if (differences == failure.record.end()) continue;
    for (const Json& difference : *differences) text += differenceText(difference);
  }
  if (!idleExceptions_.empty()) text += "\nExceptions that have not occurred; remove them:\n";
  for (const std::string& entry : idleExceptions_) text += "  " + entry + "\n";
  return text;
}

}  // namespace driver_feature::equivalence
