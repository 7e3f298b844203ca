#include "equivalence/whole_jobs.h"

#include <cstdio>
#include <fstream>

#include "equivalence/program_run.h"
#include "equivalence/whole_document.h"

namespace driver_feature::equivalence {

namespace {

host::Result<> writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  if (file.fail()) return host::refused(path + ": cannot be written");
  return {};
}

std::vector<std::string> jobArguments(const std::string& options) {
  return {"7", "jane", "two pages", "1", options};
}

// The last line, where a program says why it fails.
std::string lastLine(std::string text) {
  while (text.ends_with('\n')) text.pop_back();
  return text.substr(text.rfind('\n') + 1);
}

// What the program has written, if it has ended well.
host::Result<std::string> outputOf(const std::string& program, ProgramOutput output) {
  if (output.status == 0) return std::move(output.output);
  return host::refused(program + " ends with " + std::to_string(output.status) + ": " +
                       lastLine(output.errors));
}

}  // namespace

WholeJobs::WholeJobs(const WholeJobRequest& request, const ppd_file_t& ppd)
    : request_(request),
      ppd_(ppd),
      queue_(request.description + ".queue.ppd"),
      document_(request.description + ".document.ps"),
      converted_(request.description + ".converted.ps") {}

WholeJobs::~WholeJobs() {
  for (const std::string& file : {queue_, document_, converted_}) std::remove(file.c_str());
}

host::Result<std::unique_ptr<WholeJobs>> WholeJobs::open(const WholeJobRequest& request,
                                                         const ppd_file_t& ppd) {
  std::unique_ptr<WholeJobs> jobs(new WholeJobs(request, ppd));
  std::vector<std::string> arguments;
  if (!request.library.empty()) arguments = {"--library", request.library};
  for (const std::string& routines : request.routines) {
    arguments.insert(arguments.end(), {"--callbacks", routines});
  }
  arguments.insert(arguments.end(),
                   {"queue", request.description, "--ppd", request.ppd, "--output", jobs->queue_});
  auto queue = outputOf("driver-feature queue",
                        runProgram(request.programs + "/driver-feature", arguments, {}));
  if (!queue) return failureOf(queue);
  auto written = writeFile(jobs->document_, kWholeDocument);
  if (!written) return failureOf(written);
  return jobs;
}

host::Result<std::string> WholeJobs::convert(const std::string& ppd,
                                             const std::string& options) const {
  std::vector<std::string> arguments = jobArguments(options);
  arguments.push_back(document_);
  return outputOf("pstops",
                  runProgram(request_.pstops, arguments, {{"PPD", ppd}, {"CONTENT_TYPE", ""}}));
}

// A document that is converted first comes through standard input.
host::Result<std::string> WholeJobs::filter(const std::string& file,
                                            const std::string& options) const {
  const bool isConverted = file == converted_;
  std::vector<std::string> arguments = jobArguments(options);
  if (!isConverted) arguments.push_back(file);
  return outputOf(
      "driver-feature-filter",
      runProgram(request_.programs + "/driver-feature-filter", arguments,
                 {{"PPD", queue_},
                  {"CONTENT_TYPE", isConverted ? "application/pdf" : "application/postscript"},
                  {"DRIVER_FEATURE_LIBRARY", request_.library},
                  {"DRIVER_FEATURE_RULES", "ignore"}},
                 isConverted ? file : ""));
}

host::Result<> WholeJobs::compare(const std::string& options,
                                  std::vector<Difference>& differences) {
  auto peerJob = convert(request_.ppd, options);
  if (!peerJob) return failureOf(peerJob);
  auto directJob = filter(document_, options);
  if (!directJob) return failureOf(directJob);
  const std::string direct = withoutPstopsProcedures(std::move(*directJob));
  const std::string peer = withoutPstopsTexts(std::move(*peerJob), ppd_);
  hasFront_ = !peer.starts_with("%!PS-Adobe-3.0\n%%Title");
  compareText("whole job", peer, direct, differences);
  auto input = convert(queue_, options);
  if (!input) return failureOf(input);
  if (auto written = writeFile(converted_, *input); !written) return written;
  auto converted = filter(converted_, options);
  if (!converted) return failureOf(converted);
  compareText("converted job", expectedOfConverted(*input, withoutJobPatch(direct, ppd_)),
              *converted, differences);
  bytes_ += peer.size() + converted->size();
  return {};
}

}  // namespace driver_feature::equivalence
