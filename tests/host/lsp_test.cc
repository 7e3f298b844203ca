// The language server as a program: what it does with input that no client sends.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "host/program_runner.h"

namespace {

class LspTest : public ProgramTest {
 protected:
  // With this input; the output goes to the file, if one is given.
  RunResult serve(const std::string& input, const std::string& output = "") const {
    write("input", input);
    return run({"lsp", "--stdio"}, [output] {
      ::dup2(::open("input", O_RDONLY), STDIN_FILENO);
      if (!output.empty()) ::dup2(::open(output.c_str(), O_WRONLY), STDOUT_FILENO);
    });
  }
};

std::string message(const std::string& json) {
  return "Content-Length: " + std::to_string(json.size()) + "\r\n\r\n" + json;
}

const std::string kInitialize =
    message(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}})");
const std::string kShutdown = message(R"({"jsonrpc":"2.0","id":2,"method":"shutdown"})");
const std::string kExit = message(R"({"jsonrpc":"2.0","method":"exit"})");
const std::string kShutDownReply = message(R"({"id":2,"jsonrpc":"2.0","result":null})");

TEST_F(LspTest, Lsp_NoInput_EndsWithZero) {
  EXPECT_EQ(serve(""), success(""));
  EXPECT_EQ(run({"lsp"}, [] { ::close(STDIN_FILENO); }), success(""));
}

TEST_F(LspTest, Lsp_WholeSession_EndsWithZero) {
  const RunResult result = serve(kInitialize + kShutdown + kExit + "not read any more");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(result.output.ends_with(kShutDownReply)) << result.output;
}

TEST_F(LspTest, Lsp_SessionThatBreaksOff_EndsWithOne) {
  EXPECT_EQ(serve(kInitialize).status, 1);
  EXPECT_EQ(serve(kExit), failure(1, ""));
  EXPECT_EQ(serve(kInitialize + "Content-Length: 50\r\n\r\n{").status, 1);
}

TEST_F(LspTest, Lsp_NotAMessage_EndsWithTwo) {
  EXPECT_EQ(serve("hello\r\n\r\n"),
            failure(2,
                    "driver-feature: a line in the head of a message has no colon; is this a "
                    "language client?\n"));
  EXPECT_EQ(serve("Content-Length: 99999999999\r\n\r\n"),
            failure(2,
                    "driver-feature: the length of a message is not a number from 0 to "
                    "268435456\n"));
}

TEST_F(LspTest, Lsp_NotJson_IsAnErrorAndTheServerGoesOn) {
  const std::string error =
      message(R"({"error":{"code":-32700,"message":"the message is not JSON in UTF-8"},)"
              R"("id":null,"jsonrpc":"2.0"})");
  const std::string deep = std::string(100000, '[');
  const RunResult result =
      serve(message("{") + message(deep) + message("") + kInitialize + kShutdown + kExit);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.output.starts_with(error + error + error)) << result.output;
}

TEST_F(LspTest, Lsp_OutputThatCannotBeWritten_EndsWithOne) {
  EXPECT_EQ(serve(kInitialize, "/dev/full"),
            failure(1, "driver-feature: the client does not read any more\n"));
}

TEST_F(LspTest, Lsp_OptionThatItDoesNotHave_IsRefused) {
  EXPECT_EQ(run({"lsp", "office.xml"}).status, 2);
}

}  // namespace
