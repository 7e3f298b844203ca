// Static groups as nodes of a job ticket.

#include "model/core_feature_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "model/vocabulary.h"
#include "output/group_commands.h"
#include "output/group_trail.h"
#include "output/output_routine.h"
#include "output/ticket_attributes.h"

namespace driver_feature {

namespace {

// What stays the same while one top-level group is written.
struct TicketGroupWriter {
  DriverFeatureSet* set;
  VORNWriter& writer;
  bool jobTicketAttribute;

  void writeGroup(CoreFeature& object, std::string& attributeName, _xmlNode* parentNode,
                  bool topLevel, const GroupTrail* outer);
  void writeMember(CoreFeature& member, int index, std::string& attributeName, _xmlNode* groupNode,
                   const GroupTrail& trail);
  void runMemberRoutine(CoreFeature& member, int index, _xmlNode* groupNode);
};

void TicketGroupWriter::writeGroup(CoreFeature& object, std::string& attributeName,
                                   _xmlNode* parentNode, bool topLevel, const GroupTrail* outer) {
  if (isBeingWritten(object, outer)) return;
  // Required: the flag is looked at before the type.
  if (isInGroup(object) && topLevel) {
    logFixed(Level::kInformation, "processVORNStaticGroup() - Static group is in a group");
    return;
  }
  auto* group = object.getFeatureType() == kStaticGroup
                    ? dynamic_cast<IntermediateStaticFeatureGroup*>(&object)
                    : nullptr;
  if (group == nullptr) {
    logFixed(Level::kInformation,
             "processVORNStaticGroup() - Static group is not a standard static group");
    return;
  }
  std::string syntax;
  if (!createTicketAttributes(*group, syntax)) return;
  _xmlNode* groupNode =
      parentNode != nullptr
          ? writer.createChildGroupCommandNode(parentNode, attributeName, syntax)
          : writer.createGroupCommandNode(attributeName, syntax, jobTicketAttribute);
  if (groupNode == nullptr) return;
  const GroupTrail trail{&object, outer};
  for (int i = 0; i < group->fetchNumberOfFeaturesInGroup(); ++i) {
    CoreFeature* member = group->fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (member == nullptr) {
      logComposed(Level::kMisuse, "processVORNStaticGroup() - Cannot get reference to feature {}",
                  toDecimalText(i));
      continue;
    }
    writeMember(*member, i, attributeName, groupNode, trail);
  }
}

void TicketGroupWriter::writeMember(CoreFeature& member, int index, std::string& attributeName,
                                    _xmlNode* groupNode, const GroupTrail& trail) {
  const Property nameProperty =
      jobTicketAttribute ? Property::kTESKJTAttributeName : Property::kTESKOAAttributeName;
  member.getFeatureProperty(nameText(nameProperty), attributeName);
  if (attributeName.empty()) {
    runMemberRoutine(member, index, groupNode);
    return;
  }
  if (member.getFeatureType() == kStaticGroup) {
    writeGroup(member, attributeName, groupNode, false, &trail);
    return;
  }
  std::string syntax;
  std::string value;
  if (createTicketNodeAttributes(member, syntax, value)) {
    writer.createChildCommandNode(groupNode, attributeName, syntax, value);
  }
}

void TicketGroupWriter::runMemberRoutine(CoreFeature& member, int index, _xmlNode* groupNode) {
  std::string routineName;
  if (!readNonEmpty(member, Property::kAddVORNCallbackRoutine, routineName)) {
    logComposed(Level::kMisuse,
                "processVORNStaticGroup() - Cannot get feature attribute for feature {}",
                toDecimalText(index));
    return;
  }
  if (runTicketRoutine(routineName, set, writer, groupNode)) return;
  logComposed(Level::kMisuse, "processVORNStaticGroup() - Cannot load VORN Command callback: {}",
              routineName);
}

}  // namespace

void processVORNStaticGroup(CoreFeature& group, DriverFeatureSet* set, VORNWriter& writer,
                            std::string& attributeName, bool jobTicketAttribute,
                            _xmlNode* parentNode, bool topLevel) {
  TicketGroupWriter{set, writer, jobTicketAttribute}.writeGroup(group, attributeName, parentNode,
                                                                topLevel, nullptr);
}

}  // namespace driver_feature
