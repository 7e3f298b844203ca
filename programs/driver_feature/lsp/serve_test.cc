#include "programs/driver_feature/lsp/serve.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "programs/driver_feature/lsp/framing.h"
#include "programs/driver_feature/lsp/text_check.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::json;

// A server in a process of its own, and its client.
class ServeTest : public testing::Test {
 protected:
  void start(const std::vector<std::string>& routines = {}) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    client_ = ends[0];
    auto server = host::ChildProcess::start(host::ChildStreams::kDropped, [&](int pipe) {
      ::close(ends[0]);
      std::signal(SIGPIPE, SIG_IGN);  // As the program does.
      host::SessionRequest general;
      general.library = DRIVER_FEATURE_LIBRARY;
      general.routines = routines;
      const auto status = serveLanguage(ends[1], ends[1], general);
      host::writeAll(pipe, status ? "" : status.error().text);
      return status ? *status : 99;
    });
    ASSERT_TRUE(server.has_value());
    ::close(ends[1]);
    server_.emplace(std::move(*server));
  }

  void TearDown() override {
    if (client_ != -1) ::close(client_);
  }

  void send(const std::string& method, const Json& params, int id = 0) {
    Json message = {{"jsonrpc", "2.0"}, {"method", method}, {"params", params}};
    if (id != 0) message["id"] = id;
    host::writeAll(client_, framed(message.dump()));
  }

  // Null when the server has gone.
  Json receive() {
    std::array<char, 4096> buffer;
    while (true) {
      auto message = reader_.take();
      if (message && *message) return Json::parse(**message);
      const ssize_t count = ::read(client_, buffer.data(), buffer.size());
      if (count <= 0) return nullptr;
      reader_.add({buffer.data(), static_cast<std::size_t>(count)});
    }
  }

  void open(const std::string& text) {
    send("initialize", Json::object(), 1);
    receive();
    send("textDocument/didOpen",
         {{"textDocument", {{"uri", uri_}, {"version", 1}, {"text", text}}}});
  }
  void change(const std::string& text) {
    send("textDocument/didChange", {{"textDocument", {{"uri", "u"}, {"version", 2}}},
                                    {"contentChanges", {{{"text", text}}}}});
  }

  // "LINE:CHARACTER CODE" of the next diagnostics.
  std::string diagnostics() {
    const Json message = receive();
    if (message["method"] != "textDocument/publishDiagnostics") return message.dump();
    std::string lines;
    for (const Json& item : message["params"]["diagnostics"]) {
      const Json& start = item["range"]["start"];
      lines += (lines.empty() ? "" : ", ") + std::to_string(start["line"].get<int>()) + ":" +
               std::to_string(start["character"].get<int>()) + " " +
               item["code"].get<std::string>();
    }
    return lines;
  }

  // The exit status, and a blank and the problem if there is one.
  std::string end() {
    const std::string problem = host::readAll(server_->pipe());
    const int status = WEXITSTATUS(server_->wait());
    return std::to_string(status) + (problem.empty() ? "" : " " + problem);
  }
  void closeClient() {
    ::close(client_);
    client_ = -1;
  }

  std::string uri_ = "u";
  int client_ = -1;
  std::optional<host::ChildProcess> server_;
  MessageReader reader_;
};

constexpr const char* kBase =
    "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate' "
    "LoadVORNCallbackHandler='DriverFeatureHostLoad'/>";

std::string description(const std::string& elements) {
  return std::string("<FeatureDescription>") + kBase + "\n" + elements + "</FeatureDescription>";
}

TEST_F(ServeTest, Serve_WholeLife_EndsWithZero) {
  start();
  open(description("<Feature FeatureType='IntEntry' Nam='a' Name='b'/>"));
  EXPECT_EQ(diagnostics(), "1:32 DF203");
  change(description("<Feature FeatureType='IntEntry' Name='b'/>"));
  EXPECT_EQ(diagnostics(), "");
  send("shutdown", nullptr, 2);
  EXPECT_EQ(receive().dump(), R"({"id":2,"jsonrpc":"2.0","result":null})");
  send("exit", nullptr);
  EXPECT_EQ(end(), "0");
}

TEST_F(ServeTest, Serve_TextThatIsNotXml_IsAFindingAndTheServerGoesOn) {
  start();
  open("<FeatureDescription>\n<Feature");
  EXPECT_EQ(diagnostics(), "1:8 DF002");
  change("");
  EXPECT_EQ(diagnostics(), "0:0 DF002");
  change(description(""));
  EXPECT_EQ(diagnostics(), "");
}

TEST_F(ServeTest, Serve_EncodingOfTheFile_MakesNoDifference) {
  start();
  open("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" +
       description("<Feature FeatureType='IntEntry' Name='\xF0\x9F\x96\xA8' Nam='a'/>"));
  EXPECT_EQ(diagnostics(), "1:42 DF203");
}

TEST_F(ServeTest, Serve_ByteOrderMark_IsACharacter) {
  start();
  open("\xEF\xBB\xBF<FeatureDescription Nam=''>" + std::string(kBase) + "</FeatureDescription>");
  EXPECT_EQ(diagnostics(), "0:21 DF203");
}

TEST_F(ServeTest, Serve_RoutineThatEndsTheProcess_EndsTheCheckOnly) {
  start({ROUTINES_LIBRARY});
  open(description("<Feature FeatureType='UIOnly' Name='a' AddPSCallbackRoutine='exitInOutput'/>"));
  EXPECT_EQ(diagnostics(), "1:39 DF808");
  change(description(""));
  EXPECT_EQ(diagnostics(), "");
}

TEST_F(ServeTest, Serve_LibraryOfRoutinesThatIsMissing_IsShown) {
  start({"/nowhere/routines.so"});
  open(description(""));
  EXPECT_EQ(receive()["method"], "window/showMessage");
  send("shutdown", nullptr, 2);
  EXPECT_EQ(receive()["id"], 2);
}

TEST_F(ServeTest, Serve_ChangesWhileACheckRuns_PublishTheLastText) {
  start({ROUTINES_LIBRARY});
  // Checked for ten seconds, unless the next text comes.
  const auto begin = std::chrono::steady_clock::now();
  open(description("<Feature FeatureType='UIOnly' Name='a' AddPSCallbackRoutine='hangInOutput'/>"));
  send("textDocument/hover",
       {{"textDocument", {{"uri", "u"}}}, {"position", {{"line", 0}, {"character", 0}}}}, 3);
  EXPECT_EQ(receive()["id"], 3);
  for (int i = 0; i < 20; ++i) change(description("<Feature FeatureType='IntEntry'/>"));
  change(description(""));
  std::string last = "none";
  for (int i = 0; i < 22 && !last.empty(); ++i) last = diagnostics();
  EXPECT_EQ(last, "");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(9));
}

TEST_F(ServeTest, Serve_FileBesideTheDescriptionComesAndGoes_ChecksAgain) {
  std::string folder = (std::filesystem::temp_directory_path() / "lsp-XXXXXX").string();
  ASSERT_NE(::mkdtemp(folder.data()), nullptr);
  uri_ = "file://" + folder + "/d.xml";
  start();
  open(description("<Feature FeatureType='IntEntry' Name='a'/>"));
  EXPECT_EQ(diagnostics(), "");
  const std::string rules = folder + "/d.rules.xml";
  std::ofstream(rules) << "<FeatureRules><Hardware Feature='Unknown'/></FeatureRules>";
  EXPECT_EQ(diagnostics(), "0:0 DF723");
  std::filesystem::remove_all(folder);
  EXPECT_EQ(diagnostics(), "");
}

TEST_F(ServeTest, Serve_ClientThatNeverBegins_EndsWithZero) {
  start();
  closeClient();
  EXPECT_EQ(end(), "0");
}

TEST_F(ServeTest, Serve_ClientThatGoes_EndsWithOne) {
  start();
  send("initialize", Json::object(), 1);
  receive();
  closeClient();
  EXPECT_EQ(end(), "1");
}

TEST_F(ServeTest, Serve_ClientThatGoesAfterShutdown_EndsWithZero) {
  start();
  send("initialize", Json::object(), 1);
  send("shutdown", nullptr, 2);
  receive();
  receive();
  closeClient();
  EXPECT_EQ(end(), "0");
}

TEST_F(ServeTest, Serve_ClientThatDoesNotRead_EndsWithAProblem) {
  start();
  ::shutdown(client_, SHUT_RD);
  send("initialize", Json::object(), 1);
  EXPECT_EQ(end(), "99 the client does not read any more");
}

TEST_F(ServeTest, Serve_NotTheProtocol_EndsWithAProblem) {
  start();
  host::writeAll(client_, "{\"jsonrpc\":\"2.0\"}\r\n\r\n");
  EXPECT_EQ(end(), "99 the head of a message has no Content-Length");
}

TEST(TextCheckTest, WithoutEncoding_Declaration_KeepsItsLength) {
  EXPECT_EQ(withoutEncoding("<?xml version='1.0' encoding=\"a\"?><b encoding='c'/>"),
            "<?xml version='1.0'             ?><b encoding='c'/>");
  for (const char* text : {"<?xml version='1.0'?><b encoding='c'/>", "<b encoding='c'/>", "",
                           "<?xml encoding='c", "<?xml encoding='?><a b='c'/>"}) {
    EXPECT_EQ(withoutEncoding(text), text);
  }
}

}  // namespace

}  // namespace driver_feature::cli
