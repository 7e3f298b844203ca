#include "programs/printer/device.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "host/base/descriptor.h"
#include "host/base/text.h"
#include "programs/printer/socket_exchange.h"
#include "programs/printer/stages.h"

namespace driver_feature::printer {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBackends = "/usr/lib/cups/backend/";
constexpr const char* kRawPort = "9100";
constexpr int kFirstPause = 1;  // Seconds between two attempts.
constexpr int kLongestPause = 30;
constexpr const char* kNoStatus = "?status=no";

// The part after "SCHEME:" without the slashes of an empty host.
std::string pathOf(const std::string& uri) {
  std::string path = uri.substr(uri.find(':') + 1);
  if (path.starts_with("///")) path.erase(0, 2);
  if (path.starts_with("//localhost/")) path.erase(0, 11);
  return path;
}

std::string schemeOf(const std::string& uri) {
  const std::size_t colon = uri.find(':');
  return colon == std::string::npos ? "" : uri.substr(0, colon);
}

bool isFolder(const std::string& path) {
  std::error_code ignored;
  return path.ends_with('/') || fs::is_directory(path, ignored);
}

struct Address {
  std::string host, port;
};

// Of "socket://HOST[:PORT]"; without a host for others.
Address addressOf(const std::string& uri) {
  std::string rest = uri.substr(uri.find(':') + 1);
  if (!rest.starts_with("//")) return {};
  rest.erase(0, 2);
  rest.erase(std::min(rest.find_first_of("/?"), rest.size()));
  Address address{rest, kRawPort};
  const std::size_t bracket = rest.starts_with('[') ? rest.find(']') : std::string::npos;
  const std::size_t colon = rest.find(':', bracket == std::string::npos ? 0 : bracket);
  if (colon != std::string::npos) address = {rest.substr(0, colon), rest.substr(colon + 1)};
  if (bracket != std::string::npos) address.host = address.host.substr(1, bracket - 1);
  return address;
}

int failWith(const std::string& text) {
  host::writeAll(STDERR_FILENO, "ERROR: " + host::printable(text) + "\n");
  return 1;
}

// Whether there is nothing to print: the filter has refused the job.
bool isEmpty() {
  pollfd polled{STDIN_FILENO, POLLIN, 0};
  while (::poll(&polled, 1, -1) == -1 && errno == EINTR) {
  }
  int waiting = 0;
  return ::ioctl(STDIN_FILENO, FIONREAD, &waiting) == 0 && waiting == 0;
}

// Everything from standard input. False with errno set when it cannot be written.
bool copyTo(int descriptor) {
  std::array<char, 65536> buffer;
  for (;;) {
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
    if (!host::writeAll(descriptor, {buffer.data(), static_cast<std::size_t>(count)})) return false;
  }
}

// A whole file or none: the bytes get its name when all of them are there. So a
// job that is printed a second time, because the server had ended before it could
// note the first one, makes the same file again.
int writeWholeFile(const std::string& path) {
  const std::string temporary = path + ".part";
  const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file == -1) return failWith(temporary + " cannot be written: " + std::strerror(errno));
  if (!copyTo(file) || ::fsync(file) != 0 || ::rename(temporary.c_str(), path.c_str()) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    return failWith(path + " cannot be written: " + std::strerror(error));
  }
  ::close(file);
  return 0;
}

int writeFile(const std::string& path, const Job& job) {
  if (isFolder(path)) {
    return writeWholeFile(fs::path(path) /
                          (job.printer + "-" + std::to_string(job.number) + ".prn"));
  }
  struct stat status {};
  const bool exists = ::stat(path.c_str(), &status) == 0;
  if (!exists || S_ISREG(status.st_mode)) return writeWholeFile(path);
  const int device = ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (device == -1 || !copyTo(device)) {
    return failWith(path + " cannot be written: " + std::strerror(errno));
  }
  return ::close(device) == 0 ? 0 : failWith(path + " cannot be written: " + std::strerror(errno));
}

// A connection; -1 with the reason.
int connectTo(const Address& address, std::string& reason) {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const int error = ::getaddrinfo(address.host.c_str(), address.port.c_str(), &wanted, &found);
  if (error != 0) {
    reason = ::gai_strerror(error);
    return -1;
  }
  int connection = -1;
  for (const addrinfo* one = found; one != nullptr && connection == -1; one = one->ai_next) {
    connection = ::socket(one->ai_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection != -1 && ::connect(connection, one->ai_addr, one->ai_addrlen) == 0) break;
    reason = std::strerror(errno);
    if (connection != -1) ::close(connection);
    connection = -1;
  }
  ::freeaddrinfo(found);
  return connection;
}

int sendTo(const Address& address, bool asksForStatus) {
  int connection = -1;
  std::string reason;
  for (int pause = kFirstPause;; pause = std::min(pause * 2, kLongestPause)) {
    connection = connectTo(address, reason);
    if (connection != -1) break;
    host::writeAll(STDERR_FILENO, "STATE: +connecting-to-device\nWARNING: the printer " +
                                      host::printable(address.host + ": " + reason) + "\n");
    ::sleep(static_cast<unsigned>(pause));
  }
  host::writeAll(STDERR_FILENO, "STATE: -connecting-to-device\n");
  const bool isSent = sendJob(STDIN_FILENO, connection, asksForStatus);
  const int error = errno;
  ::close(connection);
  return isSent ? 0
                : failWith("the printer " + address.host +
                           " stops taking the job: " + std::strerror(error));
}

int runBackend(const std::string& uri, const Job& job) {
  ::setenv("DEVICE_URI", uri.c_str(), 1);
  ::setenv("CONTENT_TYPE", "application/postscript", 1);
  const std::string program = kBackends + schemeOf(uri);
  const std::string number = std::to_string(job.number);
  // Backends expect the URI in place of their name.
  ::execl(program.c_str(), uri.c_str(), number.c_str(), job.user.c_str(), job.name.c_str(), "1", "",
          nullptr);
  return failWith(program + " cannot be run: " + std::strerror(errno));
}

}  // namespace

host::Result<> checkDevice(const std::string& uri) {
  const std::string scheme = schemeOf(uri);
  if (scheme == "file") {
    const std::string path = pathOf(uri);
    if (!path.starts_with('/')) {
      return host::refused("the device " + uri +
                           " needs an absolute path, such as file:/tmp/jobs/");
    }
    std::error_code ignored;
    if (path.ends_with('/') && !fs::is_directory(path, ignored)) {
      return host::refused("the device " + uri + " is not a folder; make it first");
    }
    return {};
  }
  if (scheme == "socket") {
    if (!addressOf(uri).host.empty()) return {};
    return host::refused("the device " + uri + " needs a host, such as socket://printer:9100");
  }
  const bool isName = !scheme.empty() && scheme.find_first_of("/.") == std::string::npos;
  if (isName && ::access((kBackends + scheme).c_str(), X_OK) == 0) return {};
  return host::refused("the device " + uri +
                       " is of an unknown kind; give file:/FOLDER/, socket://HOST:PORT or one that "
                       "the print scheduler has a backend for");
}

int runDevice(const std::string& uri, const Job& job) {
  ::signal(SIGPIPE, SIG_IGN);
  if (isEmpty()) return 0;
  const std::string scheme = schemeOf(uri);
  if (scheme == "file") return writeFile(pathOf(uri), job);
  if (scheme == "socket") return sendTo(addressOf(uri), !uri.ends_with(kNoStatus));
  return runBackend(uri, job);
}

}  // namespace driver_feature::printer
