#include "model/notification.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct NotifyRow {
  const char* name;
  bool suppressUpdate;
  bool ticketLoading;
  std::vector<std::string> events;
};

const NotifyRow kNotifyRows[] = {
    {"wanted", false, false, {kUpdateCalled}},
    {"suppressed by the caller", true, false, {}},
    {"a ticket is being loaded", false, true, {}},
    {"suppressed during a ticket", true, true, {}},
};

TEST(NotificationTest, NotifyUpdate_EachCombination_CallsOnlyWhenNothingSilencesIt) {
  for (const NotifyRow& row : kNotifyRows) {
    SCOPED_TRACE(row.name);
    RecordingHost host;
    host.registerUpdateCallback();
    notification().ticketLoading = row.ticketLoading;
    notifyUpdate(row.suppressUpdate);
    EXPECT_EQ(host.takeEvents(), row.events);
  }
}

TEST(NotificationTest, NotifyUpdate_NoCallback_DoesNothing) {
  RecordingHost host;
  notifyUpdate(false);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(NotificationTest, CallUpdateCallback_DuringATicket_CallsAllTheSame) {
  RecordingHost host;
  host.registerUpdateCallback();
  notification().ticketLoading = true;
  callUpdateCallback();
  EXPECT_THAT(host.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST(NotificationTest, CallUpdateCallback_NoCallback_DoesNothing) {
  RecordingHost host;
  callUpdateCallback();
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing
