// One client's connection: libcups on one side, the network on the other.
#ifndef HOST_SERVER_RELAY_H_
#define HOST_SERVER_RELAY_H_

#include <cups/http.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "host/base/result.h"
#include "host/server/tls.h"

namespace driver_feature::host {

// libcups gets the bytes of the network through a pair of sockets in this process:
// it never waits for a client, because it is given what it asks for, and never
// for room, because what it writes is taken at once.
class Relay {
 public:
  // Takes the next client of the listening socket. Problem: kNotLoaded when there
  // is none, or no descriptor for it.
  static Result<Relay> accept(int listener);

  Relay(Relay&& other) noexcept;
  Relay& operator=(Relay&&) = delete;
  Relay(const Relay&) = delete;
  Relay& operator=(const Relay&) = delete;
  ~Relay();

  http_t* http() const { return http_; }
  int network() const { return network_; }

  // Whether the next bytes of the client begin an encrypted connection.
  bool hasHandshake() const;

  // Encrypts the connection from here on, after shakeHands() has returned kDone.
  // False when that cannot be, or when bytes have come that were not encrypted.
  bool encrypt(const std::shared_ptr<const TlsCredentials>& credentials);
  TlsSession::Step shakeHands() { return tls_->shakeHands(); }
  bool isEncrypted() const { return tls_ != nullptr; }

  // The bytes that have come and not been handed on.
  std::string_view incoming() const { return incoming_; }
  void drop(std::size_t count) { incoming_.erase(0, count); }

  // Reads what has come, up to some room. False at the end or after an error.
  bool receive();

  // Hands on the first bytes. False when libcups did not take what it had.
  bool handOn(std::size_t count);

  // Whether libcups has bytes to read.
  bool hasMore() const;

  // Takes over what libcups has written.
  void collect();

  // Adds to what is to be sent.
  void add(std::string_view text) { outgoing_ += text; }

  // Sends what has been taken over, as much as there is room for. False after an
  // error.
  bool send();
  bool hasUnsent() const { return !outgoing_.empty(); }
  std::size_t unsent() const { return outgoing_.size(); }

  // Tells the client that nothing more is sent.
  void endSending();

 private:
  Relay(http_t* http, int network, int inner) : http_(http), network_(network), inner_(inner) {}

  http_t* http_;
  int network_;
  int inner_;  // The other end of what libcups has for its connection.
  std::unique_ptr<TlsSession> tls_;
  std::string incoming_;
  std::string outgoing_;
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_RELAY_H_
