// Queues of descriptions that leave the page size to the tray: it is set when somebody
// chooses one. And queues whose options are settings of features, and nothing else.

#include <gmock/gmock.h>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

// libcups marks no size for it, because the tray that is chosen by default says it.
const std::string kTrays =
    "*PPD-Adobe: \"4.3\"\n*NickName: \"Trays\"\n"
    "*OpenUI *PageSize: PickOne\n*OrderDependency: 20 AnySetup *PageSize\n*DefaultPageSize: A4\n"
    "*PageSize A4: \"size a4\"\n*PageSize A5: \"size a5\"\n*CloseUI: *PageSize\n"
    "*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n"
    "*ImageableArea A4: \"9 9 586 833\"\n*ImageableArea A5: \"9 9 411 586\"\n"
    "*RequiresPageRegion All: False\n"
    "*OpenUI *InputSlot: PickOne\n*OrderDependency: 10 AnySetup *InputSlot\n"
    "*DefaultInputSlot: Upper\n*InputSlot Upper: \"upper\"\n*InputSlot Lower: \"lower\"\n"
    "*CloseUI: *InputSlot\n"
    "*OpenUI *ManualFeed: Boolean\n*OrderDependency: 10 AnySetup *ManualFeed\n"
    "*DefaultManualFeed: False\n*ManualFeed True: \"hand\"\n*ManualFeed False: \"no hand\"\n"
    "*CloseUI: *ManualFeed\n";

class UnsetSizeTest : public QueueCommandTest {
 protected:
  UnsetSizeTest() {
    write("trays.ppd", kTrays);
    command({"import", "trays.ppd", "--output", "trays.xml"});
    makeQueue("trays.xml");
  }

  std::string job(const std::string& options) const { return filter(options).output; }
};

TEST_F(UnsetSizeTest, Size_NobodyHasChosen_IsNotSet) {
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*DriverFeatureUnsetSize: \"A4\"\n"));
  EXPECT_THAT(job(""), Not(HasSubstr("size a4")));
  EXPECT_THAT(job("InputSlot=Lower media=Lower"), Not(HasSubstr("size a4")));
}

TEST_F(UnsetSizeTest, Size_AJobChooses_IsSet) {
  EXPECT_THAT(job("PageSize=A5"), HasSubstr("size a5"));
  EXPECT_THAT(job("PageSize=A4 InputSlot=Lower"), HasSubstr("size a4"));
  EXPECT_THAT(job("media=A4"), HasSubstr("size a4"));
  EXPECT_THAT(job("media=A5"), HasSubstr("size a5"));
}

TEST_F(UnsetSizeTest, Size_TheQueueChooses_IsSet) {
  std::string ppd = read("queue.ppd");
  const std::string usual = "*DefaultPageSize: A4";
  ppd.replace(ppd.find(usual), usual.size(), "*DefaultPageSize: A5");
  write("queue.ppd", ppd);
  EXPECT_THAT(job(""), HasSubstr("size a5"));
}

// libcups takes back the tray where paper is fed by hand.
TEST_F(UnsetSizeTest, DirectQueue_SetsWhatOptionsNameAndNothingElse) {
  EXPECT_THAT(job("ManualFeed=True"), Not(HasSubstr("upper")));
  write("queue.ppd", read("queue.ppd") + "*DriverFeatureDirect: \"true\"\n");
  EXPECT_THAT(job("ManualFeed=True"), HasSubstr("upper"));
  EXPECT_THAT(job("PageSize=A5"), HasSubstr("size a5"));
  EXPECT_THAT(job("media=A5"), Not(HasSubstr("size a5")));
}

}  // namespace
