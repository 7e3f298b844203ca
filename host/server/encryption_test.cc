// Encrypted connections, with libcups as the client.
#include <cups/cups.h>
#include <gnutls/gnutls.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "host/server/server.h"
#include "host/server/server_fixture.h"
#include "support/loopback_client.h"

namespace driver_feature::host {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

// A body that comes back.
class MirrorTaker final : public BodyTaker {
 public:
  std::optional<Response> take(std::string_view bytes) override {
    body_ += bytes;
    return std::nullopt;
  }
  std::optional<Response> finish(RequestNumber /*request*/) override {
    return Response{HTTP_STATUS_OK, "text/x", body_};
  }

 private:
  std::string body_;
};

std::variant<Response, std::unique_ptr<BodyTaker>> mirror(const Request& request) {
  if (request.method == Method::kPost) return std::make_unique<MirrorTaker>();
  return Response{HTTP_STATUS_OK, "text/x",
                  request.path + (request.isEncrypted ? " encrypted" : " in the clear")};
}

class EncryptionTest : public ServingTest {
 protected:
  // Keys take long to make: one for all tests.
  static void SetUpTestSuite() {
    std::string name = (fs::temp_directory_path() / "encryption-XXXXXX").string();
    folder_ = new fs::path(::mkdtemp(name.data()));
    ASSERT_NE(::cupsMakeServerCredentials(folder_->c_str(), "localhost", 0, nullptr,
                                          std::time(nullptr) + 86400),
              0);
    // Where libcups' client notes the certificates that it has seen.
    ::setenv("HOME", folder_->c_str(), 1);
  }
  static void TearDownTestSuite() {
    fs::remove_all(*folder_);
    delete folder_;
  }

  void start(bool isRequired = false, Limits limits = {}) {
    auto loaded = TlsCredentials::load(*folder_ / "localhost.crt", *folder_ / "localhost.key");
    ASSERT_TRUE(loaded);
    auto server = std::make_unique<Server>(loop_, limits, mirror);
    server->encrypt({*loaded, isRequired});
    serve(std::move(server));
  }

  static fs::path* folder_;
};

fs::path* EncryptionTest::folder_ = nullptr;

// A client of libcups.
class CupsClient {
 public:
  CupsClient(int port, http_encryption_t encryption)
      : http_(::httpConnect2("localhost", port, nullptr, AF_INET, encryption, 1, 5000, nullptr)) {}
  ~CupsClient() { ::httpClose(http_); }
  CupsClient(const CupsClient&) = delete;
  CupsClient& operator=(const CupsClient&) = delete;

  std::string get(const char* path) {
    if (http_ == nullptr) return "(no connection)";
    ::httpClearFields(http_);
    if (::httpGet(http_, path) != 0) return "(not sent)";
    return response();
  }

  std::string post(const std::string& body) {
    if (http_ == nullptr) return "(no connection)";
    ::httpClearFields(http_);
    ::httpSetLength(http_, body.size());
    if (::httpPost(http_, "/mirror") != 0) return "(not sent)";
    ::httpWrite2(http_, body.data(), body.size());
    return response();
  }

 private:
  std::string response() {
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) status = ::httpUpdate(http_);
    if (status != HTTP_STATUS_OK) return "(status " + std::to_string(status) + ")";
    std::string body;
    std::array<char, 65536> buffer;
    for (ssize_t count = 0; (count = ::httpRead2(http_, buffer.data(), buffer.size())) > 0;) {
      body.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return body;
  }

  http_t* http_;
};

const std::string kUpgrade =
    "OPTIONS * HTTP/1.1\r\nHost: localhost\r\nConnection: upgrade\r\n"
    "Upgrade: TLS/1.2,TLS/1.1\r\n\r\n";

TEST_F(EncryptionTest, Client_MayEncryptFromTheBeginningOrLaterOrNot) {
  start();
  const std::string body(300000, 'b');
  const struct {
    http_encryption_t encryption;
    const char* page;
  } kCases[] = {{HTTP_ENCRYPTION_ALWAYS, "/page encrypted"},
                {HTTP_ENCRYPTION_REQUIRED, "/page encrypted"},
                {HTTP_ENCRYPTION_NEVER, "/page in the clear"}};
  for (const auto& one : kCases) {
    CupsClient client(port_, one.encryption);
    EXPECT_EQ(client.get("/page"), one.page) << one.encryption;
    EXPECT_EQ(client.post(body), body) << one.encryption;
    EXPECT_EQ(client.get("/page"), one.page) << one.encryption;
  }
}

TEST_F(EncryptionTest, RequiredEncryption_RefusesRequestsInTheClear) {
  start(/*isRequired=*/true);
  test::LoopbackClient plain(port_);
  plain.send("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
  EXPECT_TRUE(plain.receiveUpTo("\r\n\r\n").starts_with("HTTP/1.1 426 Upgrade Required\r\n"));
  EXPECT_EQ(CupsClient(port_, HTTP_ENCRYPTION_REQUIRED).get("/page"), "/page encrypted");
  EXPECT_EQ(CupsClient(port_, HTTP_ENCRYPTION_ALWAYS).get("/page"), "/page encrypted");
}

TEST_F(EncryptionTest, SlowHandshake_KeepsNobodyWaitingAndEnds) {
  Limits limits;
  limits.head = milliseconds(300);
  start(/*isRequired=*/false, limits);
  test::LoopbackClient silent(port_);
  silent.send("\x16\x03\x01");
  test::LoopbackClient upgrading(port_);
  upgrading.send(kUpgrade);
  EXPECT_TRUE(
      upgrading.receiveUpTo("\r\n\r\n").starts_with("HTTP/1.1 101 Switching Protocols\r\n"));
  EXPECT_EQ(CupsClient(port_, HTTP_ENCRYPTION_ALWAYS).get("/page"), "/page encrypted");
  EXPECT_EQ(silent.receiveAll(), "(end)");
  EXPECT_EQ(upgrading.receiveAll(), "(end)");
}

TEST_F(EncryptionTest, NoHandshake_EndsTheConnection) {
  start();
  test::LoopbackClient client(port_);
  // A message that servers send.
  client.send(std::string("\x16\x03\x01\0\x04\x02\0\0\0", 9));
  const std::string received = client.receiveAll();
  // The alert that says so.
  EXPECT_TRUE(received.starts_with("\x15\x03")) << received;
  EXPECT_TRUE(received.ends_with("(end)")) << received;
}

// What somebody on the way has put before the encrypted part must not count as
// the client's.
TEST_F(EncryptionTest, BytesInTheClearAfterTheUpgrade_EndTheConnection) {
  start();
  test::LoopbackClient client(port_);
  client.send(kUpgrade + "GET /page HTTP/1.1\r\nHost: localhost\r\n\r\n");
  EXPECT_EQ(client.receiveUpTo("(none)"),
            "HTTP/1.1 101 Switching Protocols\r\nConnection: Upgrade\r\n"
            "Upgrade: TLS/1.2, HTTP/1.1\r\n\r\n(end)");
}

TEST_F(EncryptionTest, OptionsWithoutUpgrade_SayWhatIsAllowed) {
  start();
  test::LoopbackClient client(port_);
  client.send(
      "OPTIONS * HTTP/1.1\r\nHost: localhost\r\n\r\nGET /p HTTP/1.1\r\nHost: localhost\r\n\r\n");
  const std::string received = client.receiveUpTo("/p in the clear");
  EXPECT_TRUE(received.starts_with("HTTP/1.1 200 OK\r\n")) << received;
  EXPECT_NE(received.find("Allow: GET, HEAD, OPTIONS, POST\r\n"), std::string::npos) << received;
  EXPECT_TRUE(received.ends_with("/p in the clear")) << received;
  test::LoopbackClient foreign(port_);
  foreign.send("OPTIONS * HTTP/1.1\r\nHost: evil.example\r\n\r\n");
  EXPECT_TRUE(foreign.receiveUpTo("\r\n\r\n").starts_with("HTTP/1.1 400 Bad Request\r\n"));
}

TEST(Encryption, ServerWithoutCertificate_TakesNoHandshake) {
  EventLoop loop;
  Server server(loop, {}, mirror);
  ASSERT_TRUE(server.listen("127.0.0.1:0"));
  EXPECT_TRUE(server.isLoopbackOnly());
  const std::string place = server.places().front();
  test::LoopbackClient client(std::stoi(place.substr(place.rfind(':') + 1)));
  client.send("\x16\x03\x01\n\n");
  loop.after(milliseconds(300), [&loop] { loop.stop(); });
  loop.run();
  EXPECT_EQ(client.receiveAll(), "(end)");
}

TEST(Encryption, AnyAddress_IsNotOfTheLoopbackOnly) {
  EventLoop loop;
  Server server(loop, {}, mirror);
  ASSERT_TRUE(server.listen("0.0.0.0:0"));
  EXPECT_FALSE(server.isLoopbackOnly());
}

// Each of them is one step, so that others get their turn.
TEST_F(EncryptionTest, Warnings_InTheHandshake_AreTakenOneByOne) {
  const auto loaded = TlsCredentials::load(*folder_ / "localhost.crt", *folder_ / "localhost.key");
  ASSERT_TRUE(loaded);
  std::array<int, 2> ends{-1, -1};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()), 0);
  auto session = TlsSession::start(*loaded, ends[0]);
  ASSERT_TRUE(session);
  gnutls_session_t client = nullptr;
  gnutls_certificate_credentials_t trust = nullptr;
  ASSERT_EQ(::gnutls_certificate_allocate_credentials(&trust), 0);
  ASSERT_EQ(::gnutls_init(&client, GNUTLS_CLIENT | GNUTLS_NONBLOCK), 0);
  ASSERT_EQ(::gnutls_priority_set_direct(client, "NORMAL:-VERS-ALL:+VERS-TLS1.2", nullptr), 0);
  ASSERT_EQ(::gnutls_credentials_set(client, GNUTLS_CRD_CERTIFICATE, trust), 0);
  ::gnutls_transport_set_int(client, ends[1]);
  EXPECT_EQ(::gnutls_handshake(client), GNUTLS_E_AGAIN);
  EXPECT_EQ((*session)->shakeHands(), TlsSession::Step::kNeedsInput);
  const std::string warning("\x15\x03\x03\x00\x02\x01\x5a", 7);
  for (int i = 0; i < 3; ++i) ::send(ends[1], warning.data(), warning.size(), 0);
  for (int left = 14; left >= 0; left -= 7) {
    EXPECT_EQ((*session)->shakeHands(), TlsSession::Step::kNeedsInput);
    int unread = -1;
    ::ioctl(ends[0], FIONREAD, &unread);
    EXPECT_EQ(unread, left);
  }
  EXPECT_EQ(::gnutls_handshake(client), GNUTLS_E_AGAIN);
  EXPECT_EQ((*session)->shakeHands(), TlsSession::Step::kDone);
  EXPECT_EQ(::gnutls_handshake(client), GNUTLS_E_SUCCESS);
  ::gnutls_deinit(client);
  ::gnutls_certificate_free_credentials(trust);
  for (const int end : ends) ::close(end);
}

}  // namespace
}  // namespace driver_feature::host
