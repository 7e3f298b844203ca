// Encryption of connections, which never waits for a client.
//
// libcups' own encryption waits for the other side: it is for clients. So this room
// uses the library below it, GnuTLS, in the form that does not wait.
#ifndef HOST_SERVER_TLS_H_
#define HOST_SERVER_TLS_H_

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>

#include "host/base/result.h"

namespace driver_feature::host {

// A server's certificate and its key.
class TlsCredentials final {
 public:
  // Reads two PEM files: a certificate, with those that vouch for it after it, and its
  // key. Refused, with the file, when they cannot be read or do not fit.
  static Result<std::shared_ptr<const TlsCredentials>> load(const std::string& certificate,
                                                            const std::string& key);
  ~TlsCredentials();
  TlsCredentials(const TlsCredentials&) = delete;
  TlsCredentials& operator=(const TlsCredentials&) = delete;

 private:
  friend class TlsSession;
  struct Parts;
  explicit TlsCredentials(std::unique_ptr<Parts> parts);

  std::unique_ptr<Parts> parts_;
};

// Whether a connection is encrypted.
struct Encryption {
  std::shared_ptr<const TlsCredentials> credentials;  // Null: never.
  bool isRequired = false;  // A request that comes in the clear is refused.
};

// One encrypted connection over a socket that does not block.
class TlsSession final {
 public:
  enum class Step { kDone, kNeedsInput, kNeedsRoom, kFailed };

  // The socket stays the caller's. Problem: kNotLoaded when there is no memory for it.
  static Result<std::unique_ptr<TlsSession>> start(
      std::shared_ptr<const TlsCredentials> credentials, int socket);
  ~TlsSession();
  TlsSession(const TlsSession&) = delete;
  TlsSession& operator=(const TlsSession&) = delete;

  // Goes on with the agreement on keys as far as it can.
  Step shakeHands();

  // As recv() and send() on the socket: -1 with errno EAGAIN when they would have to
  // wait. After that, send() must get the same bytes again, or more. A buffer for
  // what is received has at least 16 KiB, so that nothing is left in here, where
  // poll() does not see it.
  ssize_t receive(char* buffer, std::size_t size);
  ssize_t send(const char* bytes, std::size_t size);

  // Says, if there is room for it, that nothing more is sent.
  void sayEnd();

 private:
  struct Parts;
  explicit TlsSession(std::unique_ptr<Parts> parts);

  std::unique_ptr<Parts> parts_;
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_TLS_H_
