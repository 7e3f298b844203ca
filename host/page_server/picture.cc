#include "host/page_server/picture.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <utility>

#include "host/base/input_file.h"
#include "host/page_server/device_report.h"
#include "host/page_server/picture_program.h"

namespace driver_feature::page_server {

namespace {

namespace fs = std::filesystem;

constexpr host::EventLoop::Milliseconds kLongestDrawing{10000};
constexpr int kNotFound = 127;

void limit(int resource, rlim_t most) {
  const struct rlimit limits { most, most };
  ::setrlimit(static_cast<__rlimit_resource>(resource), &limits);
}

// Becomes Ghostscript. What settings do can cost time and room: both are limited.
int draw(int pipe, const std::string& program, const fs::path& folder) {
  ::dup2(pipe, STDOUT_FILENO);
  if (::chdir(folder.c_str()) != 0) return kNotFound;
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_CPU, 10);
  limit(RLIMIT_FSIZE, 64 << 20);
  limit(RLIMIT_AS, static_cast<rlim_t>(1) << 30);
  ::execlp(program.c_str(), "gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-dNOPROMPT",
           "-sDEVICE=png16m", "-r96", "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4",
           "-sOutputFile=page.png", "--permit-file-read=settings.ps", "page.ps",
           static_cast<char*>(nullptr));
  return kNotFound;
}

bool writeText(const fs::path& file, std::string_view text) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << text;
  return static_cast<bool>(stream.flush());
}

std::string problemOf(const DeviceReport& report, std::optional<int> status) {
  if (!status) {
    return "Ghostscript did not draw the page within " +
           std::to_string(kLongestDrawing.count() / 1000) + " seconds.";
  }
  if (WIFEXITED(*status) && WEXITSTATUS(*status) == kNotFound) {
    return "There is no picture: Ghostscript (gs) is not installed.";
  }
  if (!report.failure.empty()) {
    return "The PostScript of the settings has an error: " + report.failure + ".";
  }
  if (!report.isWhole || *status != 0) {
    return "Ghostscript cannot draw the page; it ended with " + host::describeEnd(*status) + ".";
  }
  return "";
}

}  // namespace

Picture::Picture(host::EventLoop& loop, std::string program, Done done)
    : loop_(loop), program_(std::move(program)), done_(std::move(done)) {}

Picture::~Picture() {
  if (timer_) loop_.cancel(*timer_);
  run_.reset();
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

void Picture::want(long serial, std::string settings) {
  wish_ = {serial, std::move(settings)};
  if (!run_ && !timer_) start();
}

void Picture::start() {
  const Wish wish = *std::exchange(wish_, std::nullopt);
  std::error_code error;
  if (folder_.empty()) {
    std::string name = (fs::temp_directory_path(error) / "driver-feature-page-XXXXXX").string();
    if (::mkdtemp(name.data()) != nullptr) folder_ = name;
  }
  fs::remove(folder_ / "page.png", error);
  const bool isWritten = !folder_.empty() && writeText(folder_ / "page.ps", kPictureProgram) &&
                         writeText(folder_ / "settings.ps", wish.settings);
  if (!isWritten) {
    return failLater(wish.serial, "There is no picture: no temporary files can be written.");
  }
  auto run = ChildText::start(
      loop_, kLongestDrawing, [this](int pipe) { return draw(pipe, program_, folder_); },
      [this, serial = wish.serial](const std::string& printed, std::optional<int> status) {
        finish(serial, printed, status);
      });
  if (!run) return failLater(wish.serial, "There is no picture: " + describe(run.error()) + ".");
  run_ = std::move(*run);
}

void Picture::failLater(long serial, const std::string& problem) {
  timer_ = loop_.after(host::EventLoop::Milliseconds(0), [this, serial, problem] {
    timer_.reset();
    done_({serial, "null", problem, ""});
    if (wish_ && !run_ && !timer_) start();
  });
}

void Picture::finish(long serial, const std::string& printed, std::optional<int> status) {
  const std::unique_ptr<ChildText> ended = std::move(run_);
  const DeviceReport report = readDeviceReport(printed);
  auto png = host::readFile((folder_ / "page.png").string());
  Result result{serial, report.isWhole ? report.device : "null", problemOf(report, status), ""};
  if (png && report.isWhole && status == 0) result.png = std::move(*png);
  if (wish_) start();
  done_(result);
}

}  // namespace driver_feature::page_server
