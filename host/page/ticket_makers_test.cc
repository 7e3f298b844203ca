#include "host/page/ticket_makers.h"

#include <gtest/gtest.h>

namespace driver_feature::page {
namespace {

std::vector<TicketNode> nodesNamed(const std::vector<std::string_view>& names) {
  std::vector<TicketNode> nodes(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) nodes[i].name = names[i];
  return nodes;
}

// Two features of one node's name, and a routine between them.
TEST(TicketMakersTest, NodesOfOneName_AreCertainOnlyWhenAllAreThere) {
  const std::vector<TicketMaker> makers = {
      {"A", "n", false, false}, {"R", "", true, false}, {"B", "n", false, false}};
  using Makers = std::vector<std::optional<std::size_t>>;
  EXPECT_EQ(makersOf(nodesNamed({"n", "x", "n"}), makers), (Makers{0, 1, 2}));
  EXPECT_EQ(makersOf(nodesNamed({"n", "n"}), makers), (Makers{0, 2}));
  EXPECT_EQ(makersOf(nodesNamed({"n"}), makers), Makers{std::nullopt});
}

}  // namespace
}  // namespace driver_feature::page
