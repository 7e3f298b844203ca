#include "programs/printer/socket_exchange.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <string>
#include <thread>

#include "host/base/descriptor.h"

namespace driver_feature::printer {
namespace {

constexpr const char* kBegin = "\033%-12345X@PJL\r\n@PJL INFO STATUS\r\n@PJL USTATUS DEVICE=ON\r\n";
constexpr const char* kEnd = "\033%-12345X@PJL\r\n@PJL USTATUSOFF\r\n\033%-12345X";

struct Outcome {
  bool isSent = false;
  std::string printed;  // By the device.
  std::string lines;    // For the server.
};

// Sends a job to a device that runs in a thread with its end of the connection.
Outcome sendTo(const std::string& job, const std::function<std::string(int)>& device,
               bool asksForStatus = true) {
  ::signal(SIGPIPE, SIG_IGN);
  std::array<int, 2> ends{-1, -1};
  std::array<int, 2> input{-1, -1};
  EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
  EXPECT_EQ(::pipe(input.data()), 0);
  Outcome outcome;
  std::thread printer([&] {
    outcome.printed = device(ends[1]);
    ::close(ends[1]);
  });
  std::thread filter([&] {
    host::writeAll(input[1], job);
    ::close(input[1]);
  });
  testing::internal::CaptureStderr();
  outcome.isSent = sendJob(input[0], ends[0], asksForStatus);
  outcome.lines = testing::internal::GetCapturedStderr();
  ::close(input[0]);
  ::close(ends[0]);
  filter.join();
  printer.join();
  return outcome;
}

std::string everything(int connection) {
  std::string bytes;
  std::array<char, 65536> buffer;
  for (ssize_t count = 0; (count = ::read(connection, buffer.data(), buffer.size())) > 0;) {
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return bytes;
}

TEST(SocketExchange, JobInPjl_IsSentBetweenQuestionsOfState) {
  const std::string job = "\033%-12345X@PJL SET COPIES=1\r\n" + std::string(300000, 'j');
  const Outcome outcome = sendTo(job, [](int connection) {
    // It says its state before it takes more of the job.
    host::writeAll(connection, "@PJL INFO STATUS\r\nCODE=40021\r\nDISPLAY=\"DOOR\"\r\n\f");
    std::string bytes = everything(connection);
    host::writeAll(connection, "@PJL USTATUS DEVICE\r\nCODE=10001\r\n\f");
    return bytes;
  });
  EXPECT_TRUE(outcome.isSent);
  EXPECT_EQ(outcome.printed, kBegin + job + kEnd);
  EXPECT_EQ(outcome.lines, "STATE: +cover-open-error\nINFO: DOOR\nSTATE: -cover-open-error\n");
}

TEST(SocketExchange, OtherJobs_ArriveAsTheyAre) {
  for (const std::string job : {"%!PS-Adobe-3.0\nshowpage\n", "short", "\033%-12345X"}) {
    EXPECT_EQ(sendTo(job, everything).printed, job);
  }
  const std::string pjl = "\033%-12345X@PJL\r\n";
  EXPECT_EQ(sendTo(pjl, everything, /*asksForStatus=*/false).printed, pjl);
}

TEST(SocketExchange, DeviceThatStopsTakingTheJob_IsReported) {
  const Outcome outcome = sendTo(std::string(1000000, 'j'), [](int connection) {
    std::array<char, 10> buffer;
    return std::string(::read(connection, buffer.data(), buffer.size()) > 0 ? "some" : "none");
  });
  EXPECT_FALSE(outcome.isSent);
  EXPECT_EQ(outcome.printed, "some");
}

}  // namespace
}  // namespace driver_feature::printer
