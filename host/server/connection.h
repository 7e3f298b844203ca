// The requests of one client, one after the other.
#ifndef HOST_SERVER_CONNECTION_H_
#define HOST_SERVER_CONNECTION_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/server/event_loop.h"
#include "host/server/exchange.h"
#include "host/server/framing.h"
#include "host/server/limits.h"
#include "host/server/relay.h"
#include "host/server/tls.h"

namespace driver_feature::host {

// What a server says of itself.
struct Identity {
  std::string program = "driver-feature-printer";  // In the field Server.
  // For requests that call the server by the name of another one.
  http_status_t foreignName = HTTP_STATUS_BAD_REQUEST;
};

// What a connection needs of its server. It outlives the connection.
struct ConnectionSetting {
  EventLoop& loop;
  const Limits& limits;
  const Handler& handler;
  // Whether clients may address this server by that name: the field Host without
  // the port.
  const std::function<bool(const std::string& name)>& isOwnName;
  const Identity& identity;
  const Encryption& encryption;
  // Called when the connection is over, from the loop.
  std::function<void(RequestNumber)> isOver;
};

class Connection final {
 public:
  // `number` becomes that of its requests: it has one at a time.
  Connection(Relay relay, RequestNumber number, ConnectionSetting setting);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // The response to a request that waits for one.
  void reply(const Response& response);

  // More of a response that stays open. A client that has not taken too much of
  // what it had is dropped.
  void sendMore(std::string_view bytes);

  // The end of a response that stays open.
  void finish();

  // Whether it waits for the first byte of a request.
  bool isIdle() const { return phase_ == Phase::kIdle; }

 private:
  static constexpr std::size_t kPiece = 16384;  // Fits into a socket at once.

  enum class Phase {
    kIdle,
    kHandshake,
    kHead,
    kBody,
    kThinking,
    kSending,
    kOpen,
    kLingering,
    kOver
  };

  void handle(short events);
  void proceed();
  bool step();
  bool readHead();
  bool readFields(std::string resource, http_state_t state);
  bool route(http_state_t state);
  bool respondToOptions();
  void beginEncryption();
  void shakeHands();
  bool readBody();
  bool pump();
  bool finishBody();
  void respond(const Response& response, bool isLast);
  void writeOut(const Response& response);
  void writeBody(std::string_view body);
  void afterSending();
  void enter(Phase phase);
  void watchRate();
  void watchOpen();
  void end();

  Relay relay_;
  RequestNumber number_;
  ConnectionSetting setting_;
  Framing framing_;
  Phase phase_ = Phase::kOver;
  std::unique_ptr<BodyTaker> taker_;
  Request request_;
  bool isLast_ = false;          // No request comes after this one.
  bool isAtEnd_ = false;         // The client sends no more.
  bool isUpgrading_ = false;     // The response to a request comes after the handshake.
  std::uint64_t bodyBytes_ = 0;  // Of this body so far.
  std::uint64_t counted_ = 0;    // Bytes of the body, or unsent ones, at the last look.
  bool isBehind_ = false;        // An open response has had unsent bytes since the last look.
  std::function<void()> isOver_;
  std::optional<EventLoop::Timer> timer_;
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_CONNECTION_H_
