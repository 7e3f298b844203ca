// Limits for each client.
#ifndef HOST_SERVER_LIMITS_H_
#define HOST_SERVER_LIMITS_H_

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace driver_feature::host {

struct Limits {
  std::size_t connections = 100;
  std::size_t headBytes = 16384;           // Of the request line and the fields.
  std::uint64_t bodyBytes = 4ULL << 30;    // Of one request.
  std::uint64_t bodyRate = 1024;           // Least bytes of a body in each `quiet` time.
  std::size_t unsentBytes = 16 << 20;      // Of a response that stays open.
  std::chrono::milliseconds idle{30000};   // Between two requests.
  std::chrono::milliseconds head{10000};   // From its first byte to its end.
  std::chrono::milliseconds quiet{30000};  // Without the bytes of a body, or without room for ours.
  std::chrono::milliseconds linger{2000};  // For what a client sends after it was refused.
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_LIMITS_H_
