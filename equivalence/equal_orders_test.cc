#include "equivalence/equal_orders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "equivalence/peer.h"

namespace driver_feature::equivalence {

namespace {

std::string block(const std::string& title, const std::string& code = "") {
  return "[{\n%%BeginFeature: *" + title + "\n" + code + "%%EndFeature\n} stopped cleartomark\n";
}

const std::string kA = block("A 1", "code\n");  // Order dependency 10.
const std::string kB = block("B 1");            // Order dependency 10.
const std::string kC = block("C 1");            // Order dependency 20.

class EqualOrdersTest : public testing::Test {
 protected:
  void SetUp() override {
    // The tests run at the same time, each in a process of its own.
    const std::string path =
        testing::TempDir() + "equal_orders_test." + std::to_string(::getpid()) + ".ppd";
    std::ofstream file(path);
    file << "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*LanguageEncoding: ISOLatin1\n"
            "*NonUIOrderDependency: 30 AnySetup *CustomC True\n";
    for (const std::string option : {"A", "B", "C"}) {
      file << "*OpenUI *" << option
           << "/Text: PickOne\n*OrderDependency: " << (option == "C" ? "20" : "10") << " AnySetup *"
           << option << "\n*Default" << option << ": 1\n*" << option
           << " 1/Text: \"code\"\n*CloseUI: *" << option << "\n";
    }
    file.close();
    auto opened = Peer::open(path);
    std::filesystem::remove(path);
    ASSERT_TRUE(opened) << opened.error().text;
    peer_ = std::move(*opened);
  }

  bool ordersOnly(const std::string& peer, const std::string& ours) {
    return differsInEqualsOnly(peer_->file(), peer, ours);
  }

  std::unique_ptr<Peer> peer_;
};

TEST_F(EqualOrdersTest, EqualsInAnotherOrder_AreReported) {
  EXPECT_TRUE(ordersOnly(kA + kB + kC, kB + kA + kC));
}

TEST_F(EqualOrdersTest, AnythingElse_IsADifference) {
  EXPECT_FALSE(ordersOnly(kA + kB + kC, kA + kC + kB));
  EXPECT_FALSE(ordersOnly(kA + kB, kB + block("A 1", "other\n")));
  EXPECT_FALSE(ordersOnly(kA + kB, kA));
  EXPECT_FALSE(ordersOnly(kA + kB, kB + kA + kA));
  EXPECT_FALSE(ordersOnly(kA + kB, kB + kA + "text"));
  EXPECT_FALSE(ordersOnly(kA + kB + "text", kB + kA));
  EXPECT_FALSE(ordersOnly("", kA));
  EXPECT_FALSE(ordersOnly(block("D 1") + kA, kA + block("D 1")));
}

TEST_F(EqualOrdersTest, CustomChoice_HasItsOwnOrder) {
  const std::string custom = block("CustomC True");
  const std::string other = block("CustomB True");
  EXPECT_FALSE(ordersOnly(kC + custom, custom + kC));
  EXPECT_TRUE(ordersOnly(kA + other + custom, other + kA + custom));
}

TEST_F(EqualOrdersTest, WholeJob_EqualsInAnotherOrder_TheirSectionIsNamed) {
  EXPECT_EQ(sectionOfEquals(peer_->file(), "front\n" + kA + kB + "text\n" + kC + "end",
                            "front\n" + kB + kA + "text\n" + kC + "end"),
            "AnySetup");
}

TEST_F(EqualOrdersTest, WholeJob_AnythingElse_IsADifference) {
  ppd_file_t& file = peer_->file();
  EXPECT_EQ(sectionOfEquals(file, kA + kB, kA + kB), std::nullopt);
  EXPECT_EQ(sectionOfEquals(file, kA + kB + "end", kB + kA + "End"), std::nullopt);
  EXPECT_EQ(sectionOfEquals(file, kA + kC, kC + kA), std::nullopt);
  EXPECT_EQ(sectionOfEquals(file, kA + kB, kB + block("A 1", "other\n")), std::nullopt);
  EXPECT_EQ(sectionOfEquals(file, kA + "text\n" + kB, kB + kA + "text\n"), std::nullopt);
  EXPECT_EQ(sectionOfEquals(file, kA + kB, kA), std::nullopt);
}

}  // namespace

}  // namespace driver_feature::equivalence
