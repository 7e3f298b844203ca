#include "programs/driver_feature/lsp/serve.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "host/base/descriptor.h"
#include "host/base/file_watch.h"
#include "host/description/beside_files.h"
#include "programs/driver_feature/lsp/framing.h"
#include "programs/driver_feature/lsp/language_server.h"
#include "programs/driver_feature/lsp/text_check.h"
#include "programs/driver_feature/lsp/uri.h"

namespace driver_feature::cli {

namespace {

class Service {
 public:
  Service(int input, int output, const host::SessionRequest& general)
      : input_(input), output_(output), general_(general), server_([this](const std::string& text) {
          canWrite_ = canWrite_ && host::writeAll(output_, framed(text));
        }) {}

  host::Result<int> run() {
    while (!server_.hasEnded()) {
      const Events events = wait();
      if (events.files && filesBeside_.takeChanges()) checkAgain();
      if (events.input) {
        host::Result<bool> more = readMessages();
        if (!more) return failureOf(more);
        if (!*more && !server_.hasEnded()) return server_.statusOfSilence();
      } else if (check_) {
        followCheck(events.check);
      } else {
        startCheck();
      }
      if (!canWrite_) {
        return host::fail(host::Problem::Kind::kNotWritten, "the client does not read any more");
      }
    }
    return server_.status();
  }

 private:
  struct Events {
    bool input = false;
    bool check = false;
    bool files = false;
  };

  // Returns at once when there is something to check.
  Events wait() const {
    std::array<pollfd, 3> waiting{};
    waiting[0] = {input_, POLLIN, 0};
    waiting[1] = {check_ ? check_->pipe() : -1, POLLIN, 0};
    waiting[2] = {filesBeside_.descriptor(), POLLIN, 0};
    int milliseconds = server_.wanted() ? 0 : -1;
    if (check_) milliseconds = static_cast<int>(check_->timeLeft().count());
    ::poll(waiting.data(), waiting.size(), milliseconds);
    return {waiting[0].revents != 0, waiting[1].revents != 0, waiting[2].revents != 0};
  }

  // False at the end of the input.
  host::Result<bool> readMessages() {
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(input_, buffer.data(), buffer.size());
    if (count < 0) return errno == EINTR || errno == EAGAIN;
    reader_.add({buffer.data(), static_cast<std::size_t>(count)});
    while (!server_.hasEnded()) {
      auto message = reader_.take();
      if (!message) return failureOf(message);
      if (!*message) break;
      server_.take(**message);
    }
    if (check_ && server_.wants(checked_)) check_.reset();  // Its text is an old one.
    return count > 0;
  }

  // A file beside a description has changed.
  void checkAgain() {
    server_.wantAll();
    check_.reset();
  }

  // What cannot be watched is checked when the text changes.
  void watch(const std::string& path) {
    if (watched_.insert(path).second) (void)host::watchBeside(path, filesBeside_);
  }

  void startCheck() {
    const auto wanted = server_.wanted();
    if (!wanted) return;
    server_.noteStart(wanted->uri);
    watch(pathOf(wanted->uri));
    host::SessionRequest request = general_;
    for (const std::string& library : server_.routineLibraries()) {
      request.routines.push_back(library);
    }
    auto check = TextCheck::start(pathOf(wanted->uri), wanted->text, request);
    if (!check) {
      server_.takeReport(wanted->uri, failureOf(check));
      return;
    }
    checked_ = wanted->uri;
    check_.emplace(std::move(*check));
  }

  void followCheck(bool isReadable) {
    const bool goes = check_->timeLeft().count() > 0 && (!isReadable || check_->read());
    if (goes) return;
    server_.takeReport(checked_, check_->finish());
    check_.reset();
  }

  int input_;
  int output_;
  host::SessionRequest general_;
  bool canWrite_ = true;
  LanguageServer server_;
  MessageReader reader_;
  std::optional<TextCheck> check_;
  std::string checked_;  // Its text.
  host::FileWatch filesBeside_;
  std::set<std::string> watched_;  // The descriptions whose files are.
};

}  // namespace

host::Result<int> serveLanguage(int input, int output, const host::SessionRequest& general) {
  return Service(input, output, general).run();
}

}  // namespace driver_feature::cli
