#include "programs/printer/visits.h"

#include <algorithm>
#include <utility>

#include "host/page_server/admission.h"
#include "host/page_server/random_name.h"

namespace driver_feature::printer {

namespace {

using std::chrono::minutes;
using std::chrono::seconds;

// Each has a process.
constexpr std::size_t kMostVisits = 8;
// For pages that were closed, and for pages that are open but unused.
constexpr minutes kLongestAlone{5};
constexpr minutes kLongestOpen{60};
// A page that has just been asked for has not begun to listen.
constexpr seconds kLeastAlone{10};
constexpr host::EventLoop::Milliseconds kBetweenLooks{30000};

host::Response redirection(const host::Request& request, const std::string& path) {
  host::Response response{HTTP_STATUS_SEE_OTHER, "text/plain; charset=utf-8", path + "\n"};
  response.fields = page_server::safeFields();
  const std::string query = request.query.empty() ? "" : "?" + request.query;
  response.fields.push_back({"Location", path + query});
  return response;
}

host::Response refusal(http_status_t status, const std::string& text) {
  host::Response response{status, "text/plain; charset=utf-8", text + "\n"};
  response.fields = page_server::safeFields();
  return response;
}

}  // namespace

Visits::Visits(host::EventLoop& loop, host::Server& server) : loop_(loop), server_(server) {
  timer_ = loop_.after(kBetweenLooks, [this] { endOldOnes(); });
}

Visits::~Visits() {
  loop_.cancel(timer_);
}

page_server::Page::Answer Visits::handle(const host::Request& request, const std::string& printer,
                                         const std::string& rest, const Hardware& hardware,
                                         const page::PageRequest& process) {
  if (rest.empty()) return begin(request, printer, hardware, process);
  const std::size_t slash = std::min(rest.find('/'), rest.size());
  const auto found = visits_.find(rest.substr(0, slash));
  if (slash < rest.size() && found != visits_.end() && found->second.printer == printer) {
    found->second.used = host::EventLoop::Clock::now();
    return found->second.page->handle(request, rest.substr(slash + 1));
  }
  // A page that has been left open and is read anew begins again.
  const bool isPage = slash + 1 == rest.size() && request.method == host::Method::kGet;
  if (isPage) return redirection(request, "/page/" + printer + "/");
  return refusal(HTTP_STATUS_NOT_FOUND, "404 Not Found: this visit has ended");
}

page_server::Page::Answer Visits::begin(const host::Request& request, const std::string& printer,
                                        const Hardware& hardware,
                                        const page::PageRequest& process) {
  if (!page_server::mayOpen(request)) return refusal(HTTP_STATUS_FORBIDDEN, "403 Forbidden");
  if (request.method != host::Method::kGet) {
    return refusal(HTTP_STATUS_METHOD_NOT_ALLOWED, "405 Method Not Allowed");
  }
  const auto name = page_server::randomName();
  if (!name || !makeRoom()) {
    return refusal(HTTP_STATUS_SERVICE_UNAVAILABLE,
                   "503 Service Unavailable: there are too many visitors; try again in "
                   "some minutes");
  }
  page_server::PageSetting setting;
  setting.worker.request = process;
  setting.worker.request.mode = "printer";
  setting.worker.run = page::runPageProcess;
  for (const auto* settings : {&hardware.kept, &hardware.given}) {
    for (const host::Setting& each : *settings) {
      setting.worker.beginning.emplace_back(each.name, each.value);
    }
  }
  setting.isForAuthor = false;
  visits_[*name] = {printer,
                    std::make_unique<page_server::Page>(loop_, server_, std::move(setting)),
                    host::EventLoop::Clock::now()};
  return redirection(request, "/page/" + printer + "/" + *name + "/");
}

// The visit that has been left alone for longest makes room for a new one.
bool Visits::makeRoom() {
  if (visits_.size() < kMostVisits) return true;
  auto oldest = visits_.end();
  for (auto visit = visits_.begin(); visit != visits_.end(); ++visit) {
    if (visit->second.page->hasClients()) continue;
    if (oldest == visits_.end() || visit->second.used < oldest->second.used) oldest = visit;
  }
  if (oldest == visits_.end()) return false;
  if (host::EventLoop::Clock::now() - oldest->second.used < kLeastAlone) return false;
  visits_.erase(oldest);
  return true;
}

void Visits::endOldOnes() {
  const auto now = host::EventLoop::Clock::now();
  std::erase_if(visits_, [now](const auto& visit) {
    const auto longest = visit.second.page->hasClients() ? kLongestOpen : kLongestAlone;
    return now - visit.second.used > longest;
  });
  timer_ = loop_.after(kBetweenLooks, [this] { endOldOnes(); });
}

}  // namespace driver_feature::printer
