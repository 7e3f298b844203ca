#include "equivalence/whole_jobs.h"

#include <cstdio>
#include <fstream>

#include "equivalence/program_run.h"
#include "equivalence/whole_document.h"

namespace driver_feature::equivalence {

namespace {

bool writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  return !file.fail();
}

std::vector<std::string> jobArguments(const std::string& options) {
  return {"7", "jane", "two pages", "1", options};
}

// The last line, where a program says why it fails.
std::string lastLine(std::string text) {
  while (text.ends_with('\n')) text.pop_back();
  return text.substr(text.rfind('\n') + 1);
}

bool isDone(const std::string& program, const ProgramOutput& output, std::string& problem) {
  if (output.status == 0) return true;
  problem =
      program + " ends with " + std::to_string(output.status) + ": " + lastLine(output.errors);
  return false;
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

std::unique_ptr<WholeJobs> WholeJobs::open(const WholeJobRequest& request, const ppd_file_t& ppd,
                                           std::string& problem) {
  std::unique_ptr<WholeJobs> jobs(new WholeJobs(request, ppd));
  std::vector<std::string> arguments;
  if (!request.library.empty()) arguments = {"--library", request.library};
  for (const std::string& routines : request.routines) {
    arguments.insert(arguments.end(), {"--callbacks", routines});
  }
  arguments.insert(arguments.end(),
                   {"queue", request.description, "--ppd", request.ppd, "--output", jobs->queue_});
  const ProgramOutput queue = runProgram(request.programs + "/driver-feature", arguments, {});
  if (!isDone("driver-feature queue", queue, problem)) return nullptr;
  if (writeFile(jobs->document_, kWholeDocument)) return jobs;
  problem = jobs->document_ + ": cannot be written";
  return nullptr;
}

bool WholeJobs::convert(const std::string& ppd, const std::string& options, std::string& job,
                        std::string& problem) const {
  std::vector<std::string> arguments = jobArguments(options);
  arguments.push_back(document_);
  ProgramOutput output =
      runProgram(request_.pstops, arguments, {{"PPD", ppd}, {"CONTENT_TYPE", ""}});
  job = std::move(output.output);
  return isDone("pstops", output, problem);
}

// A document that is converted first comes through standard input.
bool WholeJobs::filter(const std::string& file, const std::string& options, std::string& job,
                       std::string& problem) const {
  const bool isConverted = file == converted_;
  std::vector<std::string> arguments = jobArguments(options);
  if (!isConverted) arguments.push_back(file);
  ProgramOutput output =
      runProgram(request_.programs + "/driver-feature-filter", arguments,
                 {{"PPD", queue_},
                  {"CONTENT_TYPE", isConverted ? "application/pdf" : "application/postscript"},
                  {"DRIVER_FEATURE_LIBRARY", request_.library}},
                 isConverted ? file : "");
  job = std::move(output.output);
  return isDone("driver-feature-filter", output, problem);
}

bool WholeJobs::compare(const std::string& options, std::vector<Difference>& differences,
                        std::string& problem) {
  std::string peer;
  std::string direct;
  if (!convert(request_.ppd, options, peer, problem)) return false;
  if (!filter(document_, options, direct, problem)) return false;
  direct = withoutPstopsProcedures(std::move(direct));
  peer = withoutPstopsTexts(std::move(peer), ppd_);
  hasFront_ = !peer.starts_with("%!PS-Adobe-3.0\n%%Title");
  compareText("whole job", peer, direct, differences);
  std::string input;
  std::string converted;
  if (!convert(queue_, options, input, problem)) return false;
  if (!writeFile(converted_, input)) {
    problem = converted_ + ": cannot be written";
    return false;
  }
  if (!filter(converted_, options, converted, problem)) return false;
  compareText("converted job", expectedOfConverted(input, withoutJobPatch(direct, ppd_)), converted,
              differences);
  bytes_ += peer.size() + converted.size();
  return true;
}

}  // namespace driver_feature::equivalence
