#include "host/server/server.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/base/language.h"
#include "host/base/text.h"

namespace driver_feature::host {

namespace {

constexpr int kWaitingClients = 128;
constexpr EventLoop::Milliseconds kRest{100};

bool isAddress(const std::string& name) {
  std::array<unsigned char, sizeof(in6_addr)> bytes{};
  return ::inet_pton(AF_INET, name.c_str(), bytes.data()) == 1 ||
         ::inet_pton(AF_INET6, name.c_str(), bytes.data()) == 1;
}

struct Place {
  std::string host, port;
};

Result<Place> split(const std::string& place) {
  const std::size_t colon = place.rfind(':');
  Place parts;
  if (colon != std::string::npos) {
    parts = {place.substr(0, colon), place.substr(colon + 1)};
    if (parts.host.starts_with('[') && parts.host.ends_with(']')) {
      parts.host = parts.host.substr(1, parts.host.size() - 2);
    }
  }
  const bool isNumber = !parts.port.empty() && parts.port.size() <= 5 &&
                        parts.port.find_first_not_of("0123456789") == std::string::npos;
  if (!isNumber || std::stol(parts.port) > 65535 || parts.host.empty()) {
    return refused("cannot listen at " + inQuotes(place) +
                   "; give ADDRESS:PORT, such as 127.0.0.1:8631, [::1]:8631 or *:8631");
  }
  return parts;
}

// The socket that listens at the address; -1 with errno set.
int listenAt(const addrinfo& address) {
  const int listener = ::socket(address.ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (listener == -1) return -1;
  const int on = 1;
  ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  if (address.ai_family == AF_INET6) {
    ::setsockopt(listener, IPPROTO_IPV6, IPV6_V6ONLY, &on, sizeof on);
  }
  if (::bind(listener, address.ai_addr, address.ai_addrlen) == 0 &&
      ::listen(listener, kWaitingClients) == 0) {
    return listener;
  }
  const int error = errno;
  ::close(listener);
  errno = error;
  return -1;
}

std::string placeOf(int listener) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  if (::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
      ::getnameinfo(reinterpret_cast<sockaddr*>(&address), size, host.data(), host.size(),
                    port.data(), port.size(), NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
    return "";
  }
  const std::string name = host.data();
  const bool hasColon = name.find(':') != std::string::npos;
  return (hasColon ? "[" + name + "]" : name) + ":" + port.data();
}

}  // namespace

Server::Server(EventLoop& loop, const Limits& limits, Handler handler)
    : loop_(loop), limits_(limits), handler_(std::move(handler)) {
  useEnglish();
  names_ = {"localhost", "127.0.0.1", "::1"};
  // Whoever listens at all addresses has names that it does not know. A name that
  // is an address was not given by another place's name server.
  isOwnName_ = [this](const std::string& name) {
    return names_.contains(name) || (isAnyAddress_ && isAddress(name));
  };
}

Server::~Server() {
  if (rest_) loop_.cancel(*rest_);
  connections_.clear();
  for (const int listener : listeners_) {
    loop_.forget(listener);
    ::close(listener);
  }
}

Result<> Server::listen(const std::string& place) {
  auto parts = split(place);
  if (!parts) return failureOf(parts);
  const bool isAny = parts->host == "*";
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_PASSIVE;
  addrinfo* found = nullptr;
  const int error =
      ::getaddrinfo(isAny ? nullptr : parts->host.c_str(), parts->port.c_str(), &wanted, &found);
  if (error != 0) {
    return refused("cannot listen at " + inQuotes(place) + ": " + ::gai_strerror(error));
  }
  int reason = 0;
  const std::size_t before = listeners_.size();
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    const int listener = listenAt(*address);
    if (listener == -1) {
      reason = errno;
      continue;
    }
    listeners_.push_back(listener);
    places_.push_back(placeOf(listener));
    loop_.watch(listener, POLLIN, [this, listener](short) { accept(listener); });
  }
  ::freeaddrinfo(found);
  if (listeners_.size() == before) {
    return fail(Problem::Kind::kNotLoaded,
                "cannot listen at " + place + ": " + std::strerror(reason));
  }
  isAnyAddress_ = isAnyAddress_ || isAny || parts->host == "0.0.0.0" || parts->host == "::";
  if (!isAny) names_.insert(toLower(parts->host));
  return {};
}

void Server::addName(const std::string& name) {
  names_.insert(toLower(name));
}

int Server::reachablePort() const {
  for (const std::string& place : places_) {
    if (place.starts_with("127.") || place.starts_with("[::1]:")) continue;
    return std::stoi(place.substr(place.rfind(':') + 1));
  }
  return 0;
}

void Server::reply(RequestNumber request, const Response& response) {
  const auto found = connections_.find(request);
  if (found != connections_.end()) found->second->reply(response);
}

void Server::sendMore(RequestNumber request, std::string_view bytes) {
  const auto found = connections_.find(request);
  if (found != connections_.end()) found->second->sendMore(bytes);
}

void Server::finish(RequestNumber request) {
  const auto found = connections_.find(request);
  if (found != connections_.end()) found->second->finish();
}

void Server::accept(int listener) {
  if (rest_) return;
  auto relay = Relay::accept(listener);
  // The client may have gone again; or there are too many open files, and it still
  // waits.
  if (!relay) {
    takeClients(false);
    rest_ = loop_.after(kRest, [this] {
      rest_.reset();
      takeClients(connections_.size() < limits_.connections);
    });
    return;
  }
  const RequestNumber number = ++lastNumber_;
  connections_.emplace(
      number, std::make_unique<Connection>(
                  std::move(*relay), number,
                  ConnectionSetting{loop_, limits_, handler_, isOwnName_, identity_, encryption_,
                                    [this](RequestNumber over) { remove(over); }}));
  makeRoom();
}

// Clients wait to be taken as long as there is no room. Those that only keep a
// connection for later make room first.
void Server::makeRoom() {
  if (connections_.size() < limits_.connections) return;
  for (auto& [number, connection] : connections_) {
    if (!connection->isIdle() || number == lastNumber_) continue;
    remove(number);
    return;
  }
  takeClients(false);
}

void Server::takeClients(bool isWilling) {
  for (const int listener : listeners_) loop_.change(listener, isWilling ? POLLIN : 0);
}

void Server::remove(RequestNumber number) {
  connections_.erase(number);
  if (!rest_) takeClients(connections_.size() < limits_.connections);
}

}  // namespace driver_feature::host
