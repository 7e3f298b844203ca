#include "programs/driver_feature/lsp/text_check.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "host/base/descriptor.h"
#include "host/check/check.h"
#include "host/session/routine_look_up.h"
#include "programs/driver_feature/commands/check_run.h"
#include "programs/driver_feature/lsp/answers.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

Json jsonOf(const check::Finding& finding) {
  Json json = {rowOf(finding.code).name, finding.position.line, finding.position.column,
               finding.sentence, finding.remedy};
  if (finding.fix) {
    json.push_back({finding.fix->offset, finding.fix->length, finding.fix->text});
  }
  return json;
}

check::Finding findingOf(const Json& json) {
  check::Finding finding;
  const check::CodeRow* row = check::findCode(json.at(0).get<std::string>());
  if (row != nullptr) finding.code = row->code;
  finding.position = {json.at(1).get<int>(), json.at(2).get<int>()};
  finding.sentence = json.at(3).get<std::string>();
  finding.remedy = json.at(4).get<std::string>();
  if (json.size() > 5) {
    const Json& fix = json.at(5);
    finding.fix = check::TextEdit{fix.at(0).get<std::size_t>(), fix.at(1).get<std::size_t>(),
                                  fix.at(2).get<std::string>()};
  }
  return finding;
}

// A fault in a file beside the description is reported at its beginning: only the
// open text has places.
check::Finding inOpenText(check::Finding finding) {
  if (finding.file.empty()) return finding;
  finding.sentence =
      finding.file + ":" + std::to_string(finding.position.line) + ": " + finding.sentence;
  finding.position = {};
  finding.fix.reset();
  return finding;
}

// Without the mark, which is not part of the text that is checked.
host::Result<check::FileReport> check(const std::string& path, std::string text,
                                      const host::SessionRequest& general) {
  const auto plugin = loadLibraries(general);
  if (!plugin) return host::Failure(plugin.error());
  const bool isMarked = text.starts_with(kMark);
  if (isMarked) text.erase(0, kMark.size());
  auto report = check::checkText(path, withoutEncoding(std::move(text)), *plugin);
  if (!report || !isMarked) return report;
  for (check::Finding& finding : report->findings) {
    if (!finding.file.empty()) continue;
    if (finding.position.line == 1) ++finding.position.column;
    if (finding.fix) finding.fix->offset += kMark.size();
  }
  return report;
}

int checkInChild(int pipe, const std::string& path, const std::string& text,
                 const host::SessionRequest& general) {
  // The client's messages are not for routines.
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing != -1) ::dup2(nothing, STDIN_FILENO);
  const auto report = check(path, text, general);
  Json json;
  if (report) {
    json["findings"] = Json::array();
    for (const check::Finding& finding : report->findings) {
      json["findings"].push_back(jsonOf(inOpenText(finding)));
    }
    json["routines"] = host::routineNames();
  } else {
    json["problem"] = describe(report.error());
  }
  host::writeAll(pipe, dumped(json));
  return 0;
}

}  // namespace

std::string withoutEncoding(std::string text) {
  if (!text.starts_with("<?xml")) return text;
  const std::size_t end = text.find("?>");
  const std::size_t word = text.find("encoding");
  if (end == std::string::npos || word > end) return text;
  const std::size_t open = text.find_first_of("\"'", word);
  if (open > end) return text;
  const std::size_t close = text.find(text[open], open + 1);
  if (close > end) return text;
  std::fill(text.begin() + static_cast<std::ptrdiff_t>(word),
            text.begin() + static_cast<std::ptrdiff_t>(close) + 1, ' ');
  return text;
}

host::Result<TextCheck> TextCheck::start(const std::string& path, const std::string& text,
                                         const host::SessionRequest& general) {
  const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  auto child = host::ChildProcess::startGroup(
      nothing, [&](int pipe) { return checkInChild(pipe, path, text, general); });
  if (nothing != -1) ::close(nothing);
  if (!child) return failureOf(child);
  return TextCheck(std::move(*child));
}

std::chrono::milliseconds TextCheck::timeLeft() const {
  const auto left = end_ - std::chrono::steady_clock::now();
  return std::max(std::chrono::ceil<std::chrono::milliseconds>(left), std::chrono::milliseconds(0));
}

bool TextCheck::read() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(pipe(), buffer.data(), buffer.size());
  if (count < 0) return errno == EINTR || errno == EAGAIN;
  output_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

host::Result<TextReport> TextCheck::finish() {
  const bool isLate = timeLeft().count() == 0;
  child_.kill();
  const int status = child_.wait();
  const Json json = Json::parse(output_, nullptr, false);
  if (json.is_discarded()) {
    return host::fail(host::Problem::Kind::kNotLoaded,
                      isLate
                          ? "the check has not ended within " + std::to_string(kLongest.count()) +
                                " seconds; is there a routine that does not return?"
                          : "the check has ended with " + host::describeEnd(status));
  }
  if (json.contains("problem")) {
    return host::fail(host::Problem::Kind::kNotLoaded, json.at("problem").get<std::string>());
  }
  TextReport report;
  for (const Json& finding : json.at("findings")) report.findings.push_back(findingOf(finding));
  report.routines = json.at("routines").get<std::vector<std::string>>();
  return report;
}

}  // namespace driver_feature::cli
