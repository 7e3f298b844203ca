// The live page of one description: a browser's requests, and their responses.
#ifndef HOST_PAGE_SERVER_PAGE_H_
#define HOST_PAGE_SERVER_PAGE_H_

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "host/base/file_watch.h"
#include "host/page_server/event_clients.h"
#include "host/page_server/picture.h"
#include "host/page_server/worker.h"
#include "host/server/server.h"

namespace driver_feature::page_server {

struct PageSetting {
  Worker::Setting worker;
  // Whether it is a page for the description's author: it shows and watches the
  // description, and writes files beside it.
  bool isForAuthor = true;
  std::string ghostscript = "gs";
  // Finds out why a description cannot be used; nothing for a page that does not
  // say it. As findFindings(); null when `done` has been called already.
  using Check = std::function<host::Result<std::unique_ptr<ChildText>>(
      host::EventLoop& loop, const page::PageRequest& request,
      const std::function<void(const std::string& findings)>& done)>;
  Check check = {};
  std::size_t requestBytes = 4 << 20;
};

class Page final {
 public:
  using Answer = std::variant<host::Response, std::unique_ptr<host::BodyTaker>>;

  // Loads the description, and watches it. Loop and server must outlive the page.
  Page(host::EventLoop& loop, host::Server& server, PageSetting setting);
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  // The response to a request for `name`, the part after the page's own address;
  // empty for the page itself.
  Answer handle(const host::Request& request, const std::string& name);

  // What cannot be watched; nothing if everything can.
  const std::optional<host::Problem>& watchProblem() const { return watchProblem_; }

  bool hasClients() const { return !clients_.isEmpty(); }

 private:
  // Turns the worker's reply, which is empty when nothing is loaded, into the
  // response.
  using Made = std::function<host::Response(const std::string& reply)>;

  Answer answer(const host::Request& request, const std::string& name);
  Answer get(const host::Request& request, const std::string& name);
  Answer getPicture(const host::Request& request);
  host::Response listen(const host::Request& request);
  bool isPictureCurrent() const;
  std::string pictureText() const;
  host::Response pictureResponse() const;
  host::Response getSource(const host::Request& request) const;
  Answer ask(const std::string& request, Made made);
  void takeRequest(host::RequestNumber number, const std::string& name, const std::string& body);
  void save(host::RequestNumber number, const nlohmann::json& request);
  void replyWithText(host::RequestNumber number, const std::string& file, bool replaces,
                     const std::string& settings);
  void expect(host::RequestNumber number) { expected_.insert(number); }
  void reply(host::RequestNumber number, host::Response response);
  std::string notLoaded() const;

  void noteLoaded(const nlohmann::json& state);
  void noteFailed(const std::string& why);
  void noteCrash(const std::string& what);
  void noteState(const nlohmann::json& state);
  void noteFile();
  void find(std::unique_ptr<ChildText>& check,
            const std::function<void(const std::string& findings)>& then);
  void tellModel();
  // Which model and state there are now, and whether there are any.
  std::string presence() const;
  void wantPicture();
  void notePicture(const Picture::Result& result);

  host::EventLoop& loop_;
  host::Server& server_;
  PageSetting setting_;
  std::shared_ptr<const bool> life_;        // Ends with the page.
  std::set<host::RequestNumber> expected_;  // Requests that wait for their response.
  EventClients clients_;
  Picture picture_;
  Picture::Result pictureResult_;
  std::string postScript_;     // Of the last state,
  long postScriptSerial_ = 0;  // which has had it since this one,
  long drawnSerial_ = 0;       // and the one whose picture has been ordered.
  std::vector<std::pair<host::RequestNumber, long>> pictureWaits_;
  std::unique_ptr<ChildText> check_;
  std::unique_ptr<ChildText> crashCheck_;  // The one that a loaded description does not end.
  std::string ended_;                      // Why nothing is loaded.
  std::string findings_ = "[]";            // What the check has found about that.
  std::optional<host::Problem> watchProblem_;
  host::FileWatch watch_;
  std::optional<host::EventLoop::Timer> quiet_;
  std::unique_ptr<Worker> worker_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_PAGE_H_
