#include "host/page/ticket_owners.h"

#include <algorithm>
#include <set>

#include "host/page/ticket_makers.h"
#include "host/page/ticket_nodes.h"
#include "host/session/group_view.h"

namespace driver_feature::page {

namespace {

class TicketWalk {
 public:
  TicketWalk(const host::Session& session, const Catalog& catalog)
      : session_(session), catalog_(catalog) {}

  void own(const std::vector<TicketNode>& nodes, bool ofJob) {
    own(nodes, topMakers(ofJob), ofJob ? "TESKJTAttributeName" : "TESKOAAttributeName", {});
  }

  std::vector<OwnedPart>& parts() { return parts_; }

 private:
  std::vector<TicketMaker> topMakers(bool ofJob) const {
    std::vector<TicketMaker> makers;
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
                     std::vector<TicketMaker>& makers) {
    constexpr bool kIsGroup = std::is_same_v<View, host::StaticGroupView>;
    const std::string ofJobName = view.command("TESKJTAttributeName");
    const std::string ofOutput = view.command("TESKOAAttributeName");
    const std::string other = kIsGroup ? "" : view.command("NonVORNAttributeName");
    const bool isOfOutput = ofJobName.empty() && !ofOutput.empty();
    const std::string& name = !ofJobName.empty() ? ofJobName : isOfOutput ? ofOutput : other;
    if (!name.empty()) {
      if (isOfOutput != ofJob) makers.push_back({owner, spelledInTicket(name), false, kIsGroup});
    } else if (!view.command("AddVORNCallbackRoutine").empty()) {
      makers.push_back({owner, "", true, false});
    }
  }

  std::vector<TicketMaker> membersOf(const std::string& name, const std::string& property) const {
    std::vector<TicketMaker> makers;
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
                        std::vector<TicketMaker>& makers) {
    const std::string name = view.command(property);
    if (!name.empty()) {
      makers.push_back(
          {owner, spelledInTicket(name), false, std::is_same_v<View, host::StaticGroupView>});
    } else if (!view.command("AddVORNCallbackRoutine").empty()) {
      makers.push_back({owner, "", true, false});
    }
  }

  std::string_view nameOf(const std::string& group) const {
    const auto& groups = session_.model().index.groups();
    const auto found = std::ranges::find(groups, group, &host::GroupEntry::name);
    return found != groups.end() ? std::string_view(found->name) : std::string_view();
  }

  void own(const std::vector<TicketNode>& nodes, const std::vector<TicketMaker>& makers,
           const std::string& property, std::set<std::string_view> around) {
    const auto made = makersOf(nodes, makers);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (!made[i]) continue;
      const TicketNode& node = nodes[i];
      const TicketMaker& maker = makers[*made[i]];
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
  walk.own(ticketNodes(ticket, "JobTicketAttributes"), true);
  walk.own(ticketNodes(ticket, "OutputAttributes"), false);
  return std::move(walk.parts());
}

}  // namespace driver_feature::page
