#include "host/program_runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

fs::path makeFolder() {
  std::string path = (fs::temp_directory_path() / "driver-feature-test-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("cannot make a folder");
  return path;
}

void redirect(int stream, const fs::path& file) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(descriptor, stream);
  close(descriptor);
}

[[noreturn]] void startProgram(const std::string& program, std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  std::string name = program;
  pointers.push_back(name.data());
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  execv(program.c_str(), pointers.data());
  _exit(127);
}

}  // namespace

void PrintTo(const RunResult& result, std::ostream* stream) {
  *stream << "status " << result.status << "\noutput:\n"
          << result.output << "\nerrors:\n"
          << result.errors;
}

ProgramTest::ProgramTest() : folder_(makeFolder()) {}

ProgramTest::~ProgramTest() {
  fs::remove_all(folder_);
}

RunResult ProgramTest::run(const std::vector<std::string>& arguments,
                           const std::function<void()>& prepare) const {
  return runIn(folder_, DRIVER_FEATURE_PROGRAM, arguments, prepare);
}

RunResult ProgramTest::runIn(const fs::path& folder, const std::string& program,
                             const std::vector<std::string>& arguments,
                             const std::function<void()>& prepare) {
  const fs::path streams = makeFolder();
  // What is still in this program's buffer must not reach the child's output.
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    redirect(STDOUT_FILENO, streams / "output");
    redirect(STDERR_FILENO, streams / "errors");
    if (chdir(folder.c_str()) != 0) _exit(126);
    if (prepare) prepare();
    startProgram(program, arguments);
  }
  int status = 0;
  waitpid(child, &status, 0);
  RunResult result;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  result.output = readFile(streams / "output");
  result.errors = readFile(streams / "errors");
  fs::remove_all(streams);
  return result;
}

void ProgramTest::letCrashesEndPrograms() {
  const char* options = std::getenv("ASAN_OPTIONS");
  const std::string all = std::string(options != nullptr ? options : "") + ":handle_segv=0";
  ::setenv("ASAN_OPTIONS", all.c_str(), /*overwrite=*/1);
}

void ProgramTest::write(const std::string& name, const std::string& content) const {
  std::ofstream file(folder_ / name, std::ios::binary);
  file << content;
  if (!file.flush()) throw std::runtime_error("cannot write " + name);
}

void ProgramTest::describe(const std::string& name, const std::vector<std::string>& lines) const {
  std::string text = "<FeatureDescription>\n";
  for (const std::string& line : lines) text += line + "\n";
  write(name, text + "</FeatureDescription>\n");
}

std::string ProgramTest::feature(const std::string& type, const std::string& name,
                                 const std::string& attributes, const std::string& options) {
  return "<Feature FeatureType='" + type + "' Name='" + name + "' " + attributes + ">" + options +
         "</Feature>";
}

std::string ProgramTest::read(const std::string& name) const {
  return readFile(folder_ / name);
}

std::vector<std::string> ProgramTest::fileNames() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

RunResult success(const std::string& output) {
  return {0, output, ""};
}

RunResult failure(int status, const std::string& errors) {
  return {status, "", errors};
}
