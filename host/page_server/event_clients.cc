#include "host/page_server/event_clients.h"

namespace driver_feature::page_server {

namespace {

constexpr std::size_t kMostClients = 40;
// A comment shows both sides, and what is between them, that the other is there.
constexpr host::EventLoop::Milliseconds kBetweenComments{15000};
constexpr std::string_view kComment = ":\n\n";

}  // namespace

std::string EventClients::text(std::string_view event, std::string_view data) {
  std::string text = "event: ";
  text.append(event).append("\ndata: ").append(data).append("\n\n");
  return text;
}

EventClients::EventClients(host::EventLoop& loop, host::Server& server)
    : loop_(loop), server_(server), self_(std::make_shared<EventClients*>(this)) {
  keepAlive();
}

EventClients::~EventClients() {
  *self_ = nullptr;
  loop_.cancel(timer_);
  end();
}

host::Response EventClients::add(const host::Request& request, const std::string& first) {
  if (clients_.size() >= kMostClients) {
    return host::plainResponse(HTTP_STATUS_SERVICE_UNAVAILABLE);
  }
  host::Response response{HTTP_STATUS_OK, "text/event-stream", "retry: 1000\n\n" + first};
  if (request.method != host::Method::kGet) return response;
  clients_.insert(request.number);
  response.isOver = [self = self_, number = request.number] {
    if (*self != nullptr) (*self)->clients_.erase(number);
  };
  return response;
}

void EventClients::send(std::string_view event, std::string_view data) {
  const std::string whole = text(event, data);
  for (const host::RequestNumber client : clients_) server_.sendMore(client, whole);
}

void EventClients::end() {
  send("bye", "{}");
  for (const host::RequestNumber client : clients_) server_.finish(client);
}

void EventClients::keepAlive() {
  timer_ = loop_.after(kBetweenComments, [this] {
    for (const host::RequestNumber client : clients_) server_.sendMore(client, kComment);
    keepAlive();
  });
}

}  // namespace driver_feature::page_server
