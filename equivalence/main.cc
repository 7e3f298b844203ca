// The program ppd_equivalence: compares, for many PPDs, what libcups writes
// with what the feature library writes for the imported description.

#include <unistd.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "equivalence/exceptions.h"
#include "equivalence/report.h"
#include "equivalence/run_progress.h"
#include "equivalence/runner.h"
#include "host/base/language.h"
#include "host/session/log.h"

namespace driver_feature::equivalence {

namespace {

namespace fs = std::filesystem;

constexpr int kSuccess = 0;
constexpr int kFindings = 1;
constexpr int kUnusable = 2;

struct Arguments {
  RunRequest run;
  std::string root;        // Of names in lists, reports and exceptions.
  std::string list;        // Names, one a line.
  std::string exceptions;  // The file of exceptions.
  std::string output = ".";
  bool complete = false;
  long limitSeconds = 60;
  std::vector<std::string> files;
};

int refuse(const std::string& text) {
  std::cerr << "ppd_equivalence: " << text << std::endl;
  return kUnusable;
}

void addOptions(CLI::App& program, Arguments& arguments) {
  ExaminationRequest& examination = arguments.run.examination;
  program.add_option("--root", arguments.root, "Folder that the names of PPDs begin from");
  program.add_option("--list", arguments.list, "File with the names of PPDs, one a line");
  program.add_option("--exceptions", arguments.exceptions, "File of the known exceptions");
  program.add_option("--output", arguments.output, "Folder for reports and failed descriptions");
  program.add_option("--seed", examination.seed, "Seed of the random choices");
  program.add_option("--vectors", examination.vectors, "Random sets of choices per PPD")
      ->check(CLI::NonNegativeNumber);
  program.add_option("--processes", arguments.run.processes, "PPDs examined at a time")
      ->check(CLI::PositiveNumber);
  program.add_option("--limit", arguments.limitSeconds, "Seconds that one PPD may take")
      ->check(CLI::PositiveNumber);
  program.add_option("--jobs", arguments.run.jobs, "PPDs whose output is kept as a job");
  program.add_option("--library", examination.library, "The feature library");
  program.add_option("--callbacks", examination.routines, "Library of routines, loaded before");
  program.add_option("--description", examination.description,
                     "Compare this description instead of importing the PPD");
  program.add_option("--programs", examination.programs,
                     "Folder of driver-feature and its filter: compare whole jobs, too");
  program.add_option("--pstops", examination.pstops, "The print scheduler's filter pstops");
  program
      .add_option("--whole-vectors", examination.wholeVectors,
                  "Random sets of choices per PPD for whole jobs")
      ->check(CLI::NonNegativeNumber);
  program.add_flag("--complete", arguments.complete, "Every exception has to occur in this run");
  program.add_option("FILE", arguments.files, "PPDs");
}

std::string nameOf(const std::string& file, const std::string& root) {
  if (root.empty()) return file;
  const fs::path relative =
      fs::weakly_canonical(file).lexically_relative(fs::weakly_canonical(root));
  return relative.empty() || *relative.begin() == ".." ? file : relative.string();
}

// Nothing, after a message, when that fails.
std::optional<std::vector<Task>> tasksOf(const Arguments& arguments) {
  std::vector<Task> tasks;
  for (const std::string& file : arguments.files) {
    tasks.push_back({nameOf(file, arguments.root), file});
  }
  if (!arguments.list.empty()) {
    std::ifstream list(arguments.list);
    if (!list) {
      refuse(arguments.list + ": cannot be read");
      return std::nullopt;
    }
    for (std::string name; std::getline(list, name);) {
      if (name.empty() || name.starts_with('#')) continue;
      tasks.push_back({name, (fs::path(arguments.root) / name).string()});
    }
  }
  if (tasks.empty()) {
    refuse("there is no PPD to examine; name files, or a list with --list");
    return std::nullopt;
  }
  return tasks;
}

std::optional<Exceptions> readExceptions(const std::string& path) {
  if (path.empty()) return Exceptions();
  std::ifstream file(path);
  auto exceptions = file ? Exceptions::read(file) : host::refused("cannot be read");
  if (exceptions) return std::move(*exceptions);
  refuse(path + ": " + exceptions.error().text);
  return std::nullopt;
}

bool writeFile(const fs::path& path, const std::string& text) {
  std::ofstream file(path);
  file << text;
  file.close();
  if (file) return true;
  refuse(path.string() + ": cannot be written");
  return false;
}

// Makes the folder, and removes from it the files of an earlier run, which are
// named by numbers. Other files are not ours and stay.
void prepareFolder(const fs::path& folder, const std::string& ending) {
  fs::create_directories(folder);
  std::vector<fs::path> old;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    const std::string number = entry.path().stem().string();
    const bool isNumber = number.find_first_not_of("0123456789") == std::string::npos;
    if (isNumber && entry.path().extension() == ending) old.push_back(entry.path());
  }
  for (const fs::path& file : old) fs::remove(file);
}

void prepareFolders(Arguments& arguments) {
  const fs::path output = arguments.output;
  prepareFolder(output / "descriptions", ".xml");
  prepareFolder(output / "jobs", ".ps");
  arguments.run.descriptionFolder = output / "descriptions";
  if (arguments.run.jobs > 0) arguments.run.jobFolder = output / "jobs";
}

int runAll(const Arguments& arguments, const std::vector<Task>& tasks, Report& report) {
  const fs::path output = arguments.output;
  std::ofstream records(output / "records.jsonl");
  RunProgress progress(std::cerr, ::isatty(STDERR_FILENO) != 0, tasks.size());
  const auto start = std::chrono::steady_clock::now();
  examineAll(tasks, arguments.run, [&](const nlohmann::json& record) {
    records << record.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    progress.step(report.add(record), time.count());
  });
  progress.finish();
  records.close();
  if (!records) return refuse((output / "records.jsonl").string() + ": cannot be written");
  report.close(arguments.complete);
  nlohmann::json json = report.toJson();
  json["seed"] = arguments.run.examination.seed;
  json["random_vectors"] = arguments.run.examination.vectors;
  json["seconds"] = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const std::string jsonText = json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
  const std::string text = report.toText();
  std::cout << text;
  if (!writeFile(output / "report.json", jsonText + "\n")) return kUnusable;
  if (!writeFile(output / "report.txt", text)) return kUnusable;
  return report.hasFailures() ? kFindings : kSuccess;
}

int runProgram(int argc, char** argv) {
  CLI::App program("Compares the output of imported PPDs with that of libcups.");
  Arguments arguments;
  addOptions(program, arguments);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? kSuccess : kUnusable;
  }
  arguments.run.limit = std::chrono::seconds(arguments.limitSeconds);
  const auto tasks = tasksOf(arguments);
  if (!tasks) return kUnusable;
  auto exceptions = readExceptions(arguments.exceptions);
  if (!exceptions) return kUnusable;
  prepareFolders(arguments);
  Report report(std::move(*exceptions));
  return runAll(arguments, *tasks, report);
}

}  // namespace

}  // namespace driver_feature::equivalence

int main(int argc, char** argv) {
  try {
    driver_feature::host::useEnglish();
    return driver_feature::equivalence::runProgram(argc, argv);
  } catch (const std::exception& error) {
    return driver_feature::equivalence::refuse(error.what());
  }
}
