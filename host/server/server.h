// An HTTP server in one thread, over libcups.
//
//   EventLoop loop;
//   Server server(loop, limits, handler);
//   server.listen("127.0.0.1:8631");
//   loop.run();
//
// A slow or silent client keeps nobody else waiting.
#ifndef HOST_SERVER_SERVER_H_
#define HOST_SERVER_SERVER_H_

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"
#include "host/server/connection.h"

namespace driver_feature::host {

class Server {
 public:
  // The loop must outlive the server. From now on libraries give their words in English.
  Server(EventLoop& loop, const Limits& limits, Handler handler);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Listens at "ADDRESS:PORT", such as 127.0.0.1:8631, [::1]:8631, localhost:8631
  // or *:8631. Refused when it is none of these; kNotLoaded when the system does
  // not allow it.
  Result<> listen(const std::string& place);

  // The addresses at which it listens; with the ports that were chosen for port 0.
  const std::vector<std::string>& places() const { return places_; }

  // Clients may also address it by this name. Requests are refused if their field
  // Host has another name than this, "localhost", the addresses of the loopback
  // interface and those at which it listens.
  void addName(const std::string& name);

  // To be called before clients come.
  void introduceAs(const Identity& identity) { identity_ = identity; }

  // Encrypts connections if clients ask for it, or all of them. To be called
  // before clients come.
  void encrypt(const Encryption& encryption) { encryption_ = encryption; }

  // Whether it can be reached from this machine only.
  bool isLoopbackOnly() const { return reachablePort() == 0; }

  // The first port at which other machines reach it; 0 for none.
  int reachablePort() const;

  // The response to a request that waits for one. Does nothing when the client
  // has gone.
  void reply(RequestNumber request, const Response& response);

  // More of a response that stays open, and its end. Both do nothing when the
  // client has gone.
  void sendMore(RequestNumber request, std::string_view bytes);
  void finish(RequestNumber request);

 private:
  void accept(int listener);
  void makeRoom();
  void takeClients(bool isWilling);
  void remove(RequestNumber number);

  EventLoop& loop_;
  Limits limits_;
  Handler handler_;
  std::function<bool(const std::string&)> isOwnName_;
  Identity identity_;
  Encryption encryption_;
  std::set<std::string> names_;
  bool isAnyAddress_ = false;
  std::vector<int> listeners_;
  std::vector<std::string> places_;
  std::map<RequestNumber, std::unique_ptr<Connection>> connections_;
  RequestNumber lastNumber_ = 0;
  std::optional<EventLoop::Timer> rest_;  // Until clients are taken again.
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_SERVER_H_
