#include "host/page/ticket_owners.h"

#include <algorithm>
#include <optional>
#include <set>

#include "host/session/group_view.h"

namespace driver_feature::page {

namespace {

// A node of the ticket's text.
struct Node {
  std::string_view name;  // As the ticket spells it.
  std::size_t begin = 0;  // Of its first line.
  std::size_t end = 0;    // Behind its last line.
  std::size_t headEnd = 0;
  std::vector<Node> children;
};

// What a feature or group is expected to have made, in the order of the ticket.
struct Maker {
  std::string_view owner;
  std::string name;      // Of its node, as the ticket spells it.
  bool isFree = false;   // A routine makes any nodes, or none.
  bool isGroup = false;  // Its children are those of the group.
};

std::string spelled(std::string_view text) {
  std::string result;
  for (const char character : text) {
    switch (character) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\t':
        result += "&#9;";
        break;
      case '\n':
        result += "&#10;";
        break;
      case '\r':
        result += "&#13;";
        break;
      default:
        result += character;
    }
  }
  return result;
}

// Reads the lines of a ticket: each node begins on a line of its own.
class TicketReader {
 public:
  explicit TicketReader(std::string_view text) : text_(text) {}

  // The nodes of a section.
  std::vector<Node> section(std::string_view tag) {
    const std::string start = "  <" + std::string(tag) + ">\n";
    const std::size_t found = text_.find(start);
    if (found == std::string_view::npos) return {};
    at_ = found + start.size();
    return nodes("  </" + std::string(tag) + ">");
  }

 private:
  std::string_view line() const {
    return text_.substr(at_, std::min(text_.find('\n', at_), text_.size()) - at_);
  }
  void next() { at_ = std::min(at_ + line().size() + 1, text_.size()); }

  static std::string_view trimmed(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
  }

  std::vector<Node> nodes(std::string_view last) {
    std::vector<Node> found;
    while (at_ < text_.size() && trimmed(line()) != trimmed(last)) found.push_back(node());
    return found;
  }

  Node node() {
    constexpr std::string_view kName = " name=\"";
    Node node;
    node.begin = at_;
    const std::string_view text = line();
    const std::size_t name = std::min(text.find(kName), text.size() - 1);
    node.name = text.substr(std::min(name + kName.size(), text.size()));
    node.name = node.name.substr(0, std::min(node.name.find('"'), node.name.size()));
    next();
    node.headEnd = at_;
    const bool isOpen = trimmed(text).starts_with("<Group") && !text.ends_with("/>");
    if (isOpen) {
      node.children = nodes("</Group>");
      next();
    }
    node.end = at_;
    return node;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// By node, the number of its maker; nothing where that is not certain.
using Makers = std::vector<std::optional<std::size_t>>;

// Takes the nodes in their order. A node that is nobody's by its name is made by a
// routine between its neighbours.
class Alignment {
 public:
  Alignment(const std::vector<Node>& nodes, const std::vector<Maker>& makers, bool backwards)
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

  const std::vector<Node>& nodes_;
  const std::vector<Maker>& makers_;
  bool backwards_;
  Makers result_;
  std::size_t next_ = 0;
  std::vector<std::size_t> routines_;
};

class TicketWalk {
 public:
  TicketWalk(const host::Session& session, const Catalog& catalog)
      : session_(session), catalog_(catalog) {}

  void own(const std::vector<Node>& nodes, bool ofJob) {
    own(nodes, topMakers(ofJob), ofJob ? "TESKJTAttributeName" : "TESKOAAttributeName", {});
  }

  std::vector<OwnedPart>& parts() { return parts_; }

 private:
  std::vector<Maker> topMakers(bool ofJob) const {
    std::vector<Maker> makers;
    for (const CatalogFeature& feature : catalog_.features()) {
      if (!feature.isInGroup) addTop(*feature.view, feature.name, ofJob, makers);
    }
    const auto& groups = session_.model().index.groups();
    for (std::size_t i = groups.size(); i > 0; --i) {
      const host::GroupEntry& group = groups[i - 1];
      if (group.kind != host::GroupKind::kStatic || !group.outer.empty()) continue;
      const auto view = host::findStaticGroup(session_.features(), group.name);
      if (view && !view->isTemplate()) addTop(*view, group.name, ofJob, makers);
    }
    return makers;
  }

  // The names are tried in this order; a group goes by the first two.
  template <class View>
  static void addTop(const View& view, std::string_view owner, bool ofJob,
                     std::vector<Maker>& makers) {
    constexpr bool kIsGroup = std::is_same_v<View, host::StaticGroupView>;
    const std::string ofJobName = view.command("TESKJTAttributeName");
    const std::string ofOutput = view.command("TESKOAAttributeName");
    const std::string other = kIsGroup ? "" : view.command("NonVORNAttributeName");
    const bool isOfOutput = ofJobName.empty() && !ofOutput.empty();
    const std::string& name = !ofJobName.empty() ? ofJobName : isOfOutput ? ofOutput : other;
    if (!name.empty()) {
      if (isOfOutput != ofJob) makers.push_back({owner, spelled(name), false, kIsGroup});
    } else if (!view.command("AddVORNCallbackRoutine").empty()) {
      makers.push_back({owner, "", true, false});
    }
  }

  std::vector<Maker> membersOf(const std::string& name, const std::string& property) const {
    std::vector<Maker> makers;
    const auto group = host::findStaticGroup(session_.features(), name);
    if (!group) return makers;
    for (const std::string& member : group->memberNames()) {
      if (const CatalogFeature* feature = catalog_.find(member)) {
        addMember(*feature->view, feature->name, property, makers);
      } else if (const auto inner = host::findStaticGroup(session_.features(), member)) {
        addMember(*inner, nameOf(member), property, makers);
      }
    }
    return makers;
  }

  template <class View>
  static void addMember(const View& view, std::string_view owner, const std::string& property,
                        std::vector<Maker>& makers) {
    const std::string name = view.command(property);
    if (!name.empty()) {
      makers.push_back({owner, spelled(name), false, std::is_same_v<View, host::StaticGroupView>});
    } else if (!view.command("AddVORNCallbackRoutine").empty()) {
      makers.push_back({owner, "", true, false});
    }
  }

  std::string_view nameOf(const std::string& group) const {
    const auto& groups = session_.model().index.groups();
    const auto found = std::ranges::find(groups, group, &host::GroupEntry::name);
    return found != groups.end() ? std::string_view(found->name) : std::string_view();
  }

  // Only what both ways of reading agree on is certain.
  void own(const std::vector<Node>& nodes, const std::vector<Maker>& makers,
           const std::string& property, std::set<std::string_view> around) {
    const Makers forwards = Alignment(nodes, makers, false).make();
    const Makers backwards = Alignment(nodes, makers, true).make();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (!forwards[i] || forwards[i] != backwards[i]) continue;
      const Node& node = nodes[i];
      const Maker& maker = makers[*forwards[i]];
      const bool isNew = around.insert(maker.owner).second;
      if (!maker.isGroup || node.children.empty() || !isNew) {
        parts_.push_back({node.begin, node.end, maker.owner});
      } else {
        parts_.push_back({node.begin, node.headEnd, maker.owner});
        own(node.children, membersOf(std::string(maker.owner), property), property, around);
        parts_.push_back({node.children.back().end, node.end, maker.owner});
      }
      if (isNew) around.erase(maker.owner);
    }
  }

  const host::Session& session_;
  const Catalog& catalog_;
  std::vector<OwnedPart> parts_;
};

}  // namespace

std::vector<OwnedPart> ticketOwners(const host::Session& session, const Catalog& catalog,
                                    std::string_view ticket) {
  const host::LogSilence silence;
  TicketWalk walk(session, catalog);
  TicketReader reader(ticket);
  walk.own(reader.section("JobTicketAttributes"), true);
  walk.own(reader.section("OutputAttributes"), false);
  return std::move(walk.parts());
}

}  // namespace driver_feature::page
