#include "programs/printer/job_process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "host/base/descriptor.h"
#include "host/base/text.h"
#include "programs/printer/conversion.h"
#include "programs/printer/device.h"
#include "programs/printer/stages.h"

namespace driver_feature::printer {

namespace {

int failStage(const std::string& text) {
  host::writeAll(STDERR_FILENO, "ERROR: " + host::printable(text) + "\n");
  return 1;
}

// A file without a name in the job's folder; -1 with errno set.
int temporaryFile(const std::string& document) {
  const std::filesystem::path folder = std::filesystem::path(document).parent_path();
  const int file = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (file != -1) return file;
  std::string name = (folder / "converted-XXXXXX").string();
  const int named = ::mkostemp(name.data(), O_CLOEXEC);
  if (named != -1) ::unlink(name.c_str());
  return named;
}

// The document as PostScript, open at its beginning. -1 after an ERROR line.
int openDocument(const PrintOrder& order) {
  if (order.job.format == "application/postscript") {
    const int file = ::open(order.document.c_str(), O_RDONLY | O_CLOEXEC);
    if (file == -1) failStage(std::string("the document cannot be read: ") + std::strerror(errno));
    return file;
  }
  const int file = temporaryFile(order.document);
  if (file == -1) {
    failStage(std::string("no room to convert the document: ") + std::strerror(errno));
    return -1;
  }
  host::writeAll(STDERR_FILENO, "STATE: +job-interpreting\n");
  const auto converted =
      convert(order.job.format, order.document, file, {order.job.width, order.job.height});
  if (!converted && !isCancelled() && !wasKilled()) failStage(describe(converted.error()));
  if (!converted || isCancelled() || ::lseek(file, 0, SEEK_SET) != 0) {
    ::close(file);
    return -1;
  }
  return file;
}

int runFilter(const PrintOrder& order) {
  ::setenv("PPD", order.queue.c_str(), 1);
  ::setenv("PRINTER", order.job.printer.c_str(), 1);
  for (const char* name : {"CONTENT_TYPE", "FINAL_CONTENT_TYPE", "DRIVER_FEATURE_DESCRIPTION",
                           "DRIVER_FEATURE_ROUTINES", "DRIVER_FEATURE_LIBRARY"}) {
    ::unsetenv(name);
  }
  return runProgram({order.filter, std::to_string(order.job.number), order.job.user, order.job.name,
                     std::to_string(order.job.copies), optionText(order.job.options)});
}

}  // namespace

std::string optionText(const std::vector<host::Setting>& options) {
  std::string text;
  for (const host::Setting& option : options) {
    if (!text.empty()) text += ' ';
    text += option.name + "=";
    const bool isPlain = !option.value.empty() &&
                         option.value.find_first_of(" \t\n\v\f\r\"'\\{}") == std::string::npos;
    if (isPlain) {
      text += option.value;
      continue;
    }
    text += '\'';
    for (const char c : option.value) {
      if (c == '\'' || c == '\\') text += '\\';
      text += c;
    }
    text += '\'';
  }
  return text;
}

int runJobProcess(const PrintOrder& order) {
  const int document = openDocument(order);
  if (document == -1) return wasKilled() ? kTryAgain : 1;
  host::writeAll(STDERR_FILENO, "STATE: +job-printing\n");
  const auto done =
      runStages({{"the filter", [&] { return runFilter(order); }},
                 {"the device", [&] { return runDevice(order.device, order.job); }, false}},
                document, -1);
  if (done || isCancelled()) return done ? 0 : 1;
  host::writeAll(STDERR_FILENO, "DEBUG: " + describe(done.error()) + "\n");
  return wasKilled() ? kTryAgain : 1;
}

}  // namespace driver_feature::printer
