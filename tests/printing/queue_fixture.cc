#include "printing/queue_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

RunResult QueueCommandTest::queue(std::vector<std::string> arguments,
                                  const std::function<void()>& prepare) const {
  arguments.insert(arguments.begin(), {"--library", DRIVER_FEATURE_LIBRARY, "queue"});
  return runIn(folder(), DRIVER_FEATURE_PROGRAM, arguments, prepare);
}

void QueueCommandTest::makeQueue(const std::string& description) {
  EXPECT_EQ(queue({description, "--output", "queue.ppd"}), success(""));
  set("PPD", "queue.ppd");
}

std::string QueueCommandTest::path(const std::string& name) const {
  return (std::filesystem::canonical(folder()) / name).string();
}

std::string QueueCommandTest::withoutStamp(const std::string& ppd) {
  const std::string head = "*PPD-Adobe: \"4.3\"\n";
  EXPECT_THAT(ppd, testing::StartsWith(head + "*DriverFeaturePlain: \""));
  const std::size_t end = ppd.find('\n', head.size());
  return head + ppd.substr(std::min(end, ppd.size() - 1) + 1);
}

std::string QueueCommandTest::lines(const std::string& description,
                                    const std::string& refused) const {
  return "*cupsFilter: \"application/postscript 0 driver-feature-filter\"\n"
         "*cupsFilter: \"application/vnd.cups-postscript 100 driver-feature-filter\"\n"
         "*DriverFeatureDescription: \"" +
         path(description) +
         "\"\n*DriverFeatureLibrary: \"" DRIVER_FEATURE_LIBRARY
         "\"\n*DriverFeatureRefusedValue: \"" +
         refused + "\"\n";
}
