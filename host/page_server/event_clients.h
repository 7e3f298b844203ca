// The clients that receive a page's events, as server-sent events.
#ifndef HOST_PAGE_SERVER_EVENT_CLIENTS_H_
#define HOST_PAGE_SERVER_EVENT_CLIENTS_H_

#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "host/server/server.h"

namespace driver_feature::page_server {

class EventClients final {
 public:
  // Loop and server must outlive it.
  EventClients(host::EventLoop& loop, host::Server& server);
  ~EventClients();
  EventClients(const EventClients&) = delete;
  EventClients& operator=(const EventClients&) = delete;

  // An event as it is sent; `data` has no line ends.
  static std::string text(std::string_view event, std::string_view data);

  // The response to a client that asks for events; it stays open, and begins with
  // `first`. With too many clients: HTTP_STATUS_SERVICE_UNAVAILABLE.
  host::Response add(const host::Request& request, const std::string& first);

  // Sends an event to all of them.
  void send(std::string_view event, std::string_view data);

  // Ends the responses after a last event.
  void end();

  bool isEmpty() const { return clients_.empty(); }

 private:
  void keepAlive();

  host::EventLoop& loop_;
  host::Server& server_;
  std::set<host::RequestNumber> clients_;
  host::EventLoop::Timer timer_;
  std::shared_ptr<EventClients*> self_;  // Null once it is destroyed.
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_EVENT_CLIENTS_H_
