// The language server: takes the messages of a client one by one and sends its
// own. It neither reads nor waits; its caller does.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_H_

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"
#include "programs/driver_feature/lsp/answers.h"
#include "programs/driver_feature/lsp/open_text.h"
#include "programs/driver_feature/lsp/text_check.h"

namespace driver_feature::cli {

class LanguageServer {
 public:
  using Send = std::function<void(const std::string& message)>;

  explicit LanguageServer(Send send) : send_(std::move(send)) {}

  // Takes a message. If anything is wrong with it, the client gets an error in
  // reply.
  void take(const std::string& message);

  // Whether the client has asked the server to exit; and the exit status then,
  // which is 0 only if it has asked for the shutdown before.
  bool hasEnded() const { return hasEnded_; }
  int status() const { return isShutDown_ ? 0 : 1; }

  // The exit status when the client has gone without a request to end: a failure unless it has
  // not begun, or has asked for the end.
  int statusOfSilence() const { return isInitialized_ ? status() : 0; }

  // A text that has to be checked: it has been opened, changed or saved since.
  struct Wanted {
    std::string uri;
    std::string text;
  };
  std::optional<Wanted> wanted() const;

  // The check of wanted() has been started; takeReport() is to follow, unless the
  // text is wanted again before.
  void noteStart(const std::string& uri) { unchecked_.erase(uri); }
  bool wants(const std::string& uri) const { return unchecked_.contains(uri); }
  void wantAll();  // Marks all open texts to be checked again.
  void takeReport(const std::string& uri, host::Result<TextReport> report);

  // The libraries of routines that the client has named.
  const std::vector<std::string>& routineLibraries() const { return libraries_; }

 private:
  struct Request {
    const char* method;
    Json (LanguageServer::*handle)(const Json& params);
  };
  struct Notification {
    const char* method;
    void (LanguageServer::*handle)(const Json& params);
  };
  static const Request kRequests[];
  static const Notification kNotifications[];

  void dispatch(const Json& message);
  void reply(const Json& id, const std::string& method, const Json& params);
  void notify(const std::string& method, const Json& params);
  void sendError(const Json& id, int code, const std::string& text);
  void sendNotification(const char* method, Json params);

  Json initialize(const Json& params);
  Json shutdown(const Json& params);
  Json hover(const Json& params);
  Json completion(const Json& params);
  Json outline(const Json& params);
  Json definition(const Json& params);
  Json codeActions(const Json& params);

  void open(const Json& params);
  void change(const Json& params);
  void save(const Json& params);
  void close(const Json& params);

  void store(const std::string& uri, const Json& document, std::string text);
  const OpenText& textOf(const Json& params) const;

  Send send_;
  bool isInitialized_ = false;
  bool isShutDown_ = false;
  bool hasEnded_ = false;
  bool canPlace_ = false;  // What the client can do.
  bool canLink_ = false;
  bool showsTrees_ = false;
  std::vector<std::string> libraries_;
  std::vector<std::string> routines_;
  std::string problem_;  // The last one that has been shown.
  std::map<std::string, std::unique_ptr<OpenText>> texts_;
  std::set<std::string> unchecked_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_LANGUAGE_SERVER_H_
