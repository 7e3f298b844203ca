// What a queue's jobs say about media when a tray is chosen: the same as
// libcups writes of the printer's PPD, though the queue's has a filter.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kPpd =
    "*PPD-Adobe: \"4.3\"\n*NickName: \"Trays\"\n"
    "*OpenUI *PageSize: PickOne\n*OrderDependency: 20 AnySetup *PageSize\n*DefaultPageSize: A4\n"
    "*PageSize A4: \"size a4\"\n*PageSize A5: \"size a5\"\n*CloseUI: *PageSize\n"
    "*OpenUI *PageRegion: PickOne\n*OrderDependency: 30 AnySetup *PageRegion\n"
    "*DefaultPageRegion: A4\n*PageRegion A4: \"region a4\"\n*PageRegion A5: \"region a5\"\n"
    "*CloseUI: *PageRegion\n*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n"
    "*ImageableArea A4: \"9 9 586 833\"\n*ImageableArea A5: \"9 9 411 586\"\n"
    "*OpenUI *InputSlot: PickOne\n*OrderDependency: 10 AnySetup *InputSlot\n"
    "*DefaultInputSlot: Auto\n*InputSlot Auto: \"\"\n*InputSlot Upper: \"upper\"\n"
    "*InputSlot Lower: \"lower\"\n*CloseUI: *InputSlot\n"
    "*OpenUI *ManualFeed: Boolean\n*OrderDependency: 10 AnySetup *ManualFeed\n"
    "*DefaultManualFeed: False\n*ManualFeed True: \"hand\"\n*ManualFeed False: \"no hand\"\n"
    "*CloseUI: *ManualFeed\n";

using Choices = std::vector<std::pair<std::string, std::string>>;

class QueueMediaTest : public QueueCommandTest {
 protected:
  void makeQueueOf(const std::string& ppd) {
    write("trays.ppd", ppd);
    command({"import", "trays.ppd", "--output", "trays.xml"});
    EXPECT_EQ(queue({"trays.xml", "--ppd", "trays.ppd", "--output", "queue.ppd"}), success(""));
    set("PPD", "queue.ppd");
  }

  // What libcups writes of the PPD.
  std::string libcupsText(const std::string& file, const Choices& choices) const {
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(
        ppdOpenFile((folder() / file).c_str()), &ppdClose);
    if (!ppd) return "no PPD";
    ppdMarkDefaults(ppd.get());
    for (const auto& [option, choice] : choices) {
      ppdMarkOption(ppd.get(), option.c_str(), choice.c_str());
    }
    const std::unique_ptr<char, decltype(&std::free)> text(
        ppdEmitString(ppd.get(), PPD_ORDER_ANY, 0), &std::free);
    return text ? text.get() : "";
  }

  // The set-up of the job in job.ps.
  std::string setUp(const std::string& options) const {
    const std::string job = filter(options).output;
    const std::string begin = "%%BeginSetup\n";
    const std::size_t start = job.find(begin) + begin.size();
    return job.substr(start, job.find("%%EndSetup") - start);
  }

  void expectThePrintersSetUp() const {
    for (const std::string slot : {"", "Auto", "Upper", "Lower"}) {
      for (const std::string feed : {"", "True", "False"}) {
        for (const std::string size : {"", "PageSize", "PageRegion"}) {
          Choices choices;
          if (!slot.empty()) choices.emplace_back("InputSlot", slot);
          if (!feed.empty()) choices.emplace_back("ManualFeed", feed);
          if (!size.empty()) choices.emplace_back(size, "A5");
          std::string options;
          for (const auto& [option, choice] : choices) options += option + "=" + choice + " ";
          const std::string expected = libcupsText("trays.ppd", choices);
          EXPECT_EQ(setUp(options), expected) << options;
          EXPECT_EQ(libcupsText("queue.ppd", choices), expected) << options;
        }
      }
    }
  }
};

TEST_F(QueueMediaTest, PpdWithoutFilter_WritesNoSizeWithATray) {
  makeQueueOf(kPpd);
  expectThePrintersSetUp();
  EXPECT_THAT(setUp("InputSlot=Upper PageSize=A5"), Not(HasSubstr("a5")));
  EXPECT_THAT(setUp("PageSize=A5"), HasSubstr("size a5"));
}

TEST_F(QueueMediaTest, PpdWithFilter_WritesTheSizeWithATray) {
  makeQueueOf(kPpd + "*cupsFilter: \"application/vnd.cups-postscript 0 another\"\n");
  expectThePrintersSetUp();
  EXPECT_THAT(setUp("InputSlot=Upper PageSize=A5"), HasSubstr("size a5"));
}

TEST_F(QueueMediaTest, PpdWithRulesForTrays_KeepsThem) {
  makeQueueOf(kPpd + "*RequiresPageRegion Upper: True\n");
  expectThePrintersSetUp();
  EXPECT_THAT(setUp("InputSlot=Upper PageSize=A5"), HasSubstr("region a5"));
  EXPECT_THAT(setUp("InputSlot=Lower PageSize=A5"), Not(HasSubstr("a5")));
  makeQueueOf(kPpd + "*RequiresPageRegion All: True\n");
  expectThePrintersSetUp();
  EXPECT_THAT(setUp("InputSlot=Lower PageSize=A5"), HasSubstr("region a5"));
}

TEST_F(QueueMediaTest, QueueWrittenAgain_IsTheSame) {
  makeQueueOf(kPpd);
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*RequiresPageRegion All: False\n"));
  EXPECT_EQ(queue({"trays.xml", "--ppd", "queue.ppd"}), success(read("queue.ppd")));
}

}  // namespace
