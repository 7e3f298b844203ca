#include "host/page_server/worker.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

namespace driver_feature::page_server {
namespace {

// A process that never has its description loaded.
int loadForever(int socket, const page::PageRequest&) {
  char byte = 0;
  return ::read(socket, &byte, 1) == 0 ? 0 : 1;
}

TEST(WorkerTest, MoreQuestionsThanItKeeps_AreRefusedAtOnce) {
  host::EventLoop loop;
  Worker::Setting setting;
  setting.run = loadForever;
  const auto ignore = [](const auto&...) {};
  Worker worker(loop, setting, {ignore, ignore, ignore, ignore});
  std::vector<nlohmann::json> replies;
  for (int i = 0; i < 202; ++i) {
    worker.ask("{}",
               [&](const std::string& reply) { replies.push_back(nlohmann::json::parse(reply)); });
  }
  ASSERT_EQ(replies.size(), 2U);
  EXPECT_EQ(replies[0]["ok"], false);
  EXPECT_EQ(replies[0]["problem"], "too much is asked at once");
}

}  // namespace
}  // namespace driver_feature::page_server
