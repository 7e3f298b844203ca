#include "host/page/ticket_makers.h"

namespace driver_feature::page {

namespace {

using Makers = std::vector<std::optional<std::size_t>>;

// Takes the nodes in their order. A node that is nobody's by its name is made by a
// routine between its neighbours.
class Alignment {
 public:
  Alignment(const std::vector<TicketNode>& nodes, const std::vector<TicketMaker>& makers,
            bool backwards)
      : nodes_(nodes), makers_(makers), backwards_(backwards), result_(nodes.size()) {}

  Makers make() {
    for (std::size_t number = 0; number < makers_.size(); ++number) {
      const std::size_t place = backwards_ ? makers_.size() - 1 - number : number;
      if (makers_[place].isFree) {
        routines_.push_back(place);
      } else {
        match(place);
      }
    }
    take(nodes_.size());
    return std::move(result_);
  }

 private:
  std::size_t placeOf(std::size_t node) const {
    return backwards_ ? nodes_.size() - 1 - node : node;
  }

  void match(std::size_t maker) {
    for (std::size_t node = next_; node < nodes_.size(); ++node) {
      if (nodes_[placeOf(node)].name == makers_[maker].name) {
        take(node);
        result_[placeOf(node)] = maker;
        next_ = node + 1;
        return;
      }
      // Nobody could have made the nodes before.
      if (routines_.empty()) return;
    }
  }

  // The nodes before this one are made by the routines since the last match.
  void take(std::size_t end) {
    for (; next_ < end; ++next_) {
      if (routines_.size() == 1) result_[placeOf(next_)] = routines_.front();
    }
    routines_.clear();
  }

  const std::vector<TicketNode>& nodes_;
  const std::vector<TicketMaker>& makers_;
  bool backwards_;
  Makers result_;
  std::size_t next_ = 0;
  std::vector<std::size_t> routines_;
};

}  // namespace

Makers makersOf(const std::vector<TicketNode>& nodes, const std::vector<TicketMaker>& makers) {
  Makers made = Alignment(nodes, makers, false).make();
  const Makers backwards = Alignment(nodes, makers, true).make();
  for (std::size_t i = 0; i < made.size(); ++i) {
    if (made[i] != backwards[i]) made[i].reset();
  }
  return made;
}

}  // namespace driver_feature::page
