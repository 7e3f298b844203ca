// A set as a job ticket.

#include "model/driver_feature.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "output/group_commands.h"
#include "output/missing_objects.h"
#include "output/output_routine.h"
#include "output/serialization.h"
#include "output/ticket_attributes.h"

#include "VORNWriter.h"

namespace driver_feature {

namespace {

// A property that may hold a feature's ticket name, and the kind of node that
// it makes.
struct TicketNameRow {
  Property property;
  bool jobTicketAttribute;
  bool onlyWithInstallableOptions;
};

constexpr TicketNameRow kTicketNames[] = {
    {Property::kTESKJTAttributeName, true, false},
    {Property::kTESKOAAttributeName, false, false},
    {Property::kInstOptAttributeName, true, true},
    {Property::kNonVORNAttributeName, true, false},
};

// Required: a group goes by its first two names only.
constexpr TicketNameRow kGroupTicketNames[] = {kTicketNames[0], kTicketNames[1]};

// Runs the object's ticket routine at top level. False when it names none.
bool runOwnTicketRoutine(CoreFeature& object, DriverFeatureSet* set, VORNWriter& writer) {
  std::string routineName;
  if (!readNonEmpty(object, Property::kAddVORNCallbackRoutine, routineName)) return false;
  if (!runTicketRoutine(routineName, set, writer, nullptr)) {
    logComposed(Level::kMisuse, "serialize() - Cannot load VORN Command callback: {}", routineName);
  }
  return true;
}

void writeFeatureNode(CoreFeature& feature, DriverFeatureSet* set, VORNWriter& writer,
                      bool includeInstOpt) {
  if (isInGroup(feature)) return;
  for (const TicketNameRow& row : kTicketNames) {
    std::string name;
    if (row.onlyWithInstallableOptions && !includeInstOpt) continue;
    if (!readNonEmpty(feature, row.property, name)) continue;
    std::string syntax;
    std::string value;
    if (createTicketNodeAttributes(feature, syntax, value)) {
      writer.createCommandNode(name, syntax, value, row.jobTicketAttribute);
    }
    return;
  }
  runOwnTicketRoutine(feature, set, writer);
}

void writeGroupNode(CoreFeature& group, DriverFeatureSet* set, VORNWriter& writer,
                    int numberOfFeatures) {
  for (const TicketNameRow& row : kGroupTicketNames) {
    std::string name;
    if (!readNonEmpty(group, row.property, name)) continue;
    processVORNStaticGroup(group, set, writer, name, row.jobTicketAttribute, nullptr, true);
    return;
  }
  if (runOwnTicketRoutine(group, set, writer)) return;
  // Required: prints the number of features, not the group's index; log
  // readers rely on it.
  logComposed(Level::kInformation, "serialize() - StaticGroup {} has no VORN attributes",
              toDecimalText(numberOfFeatures));
}

}  // namespace

void writeTicket(const OutputSource& source, bool includeInstOpt, const char* argument1,
                 const char* argument2, std::string& output) {
  // A routine may keep the writer, so it is never freed.
  auto* writer = new VORNWriter;
  writer->initializeJobTicketDOM(argument1, argument2);
  int index = 0;
  for (; index < source.features.fetchNumberOfFeatures(); ++index) {
    if (DriverFeature* feature = source.features.fetchFeatureByIndex(index)) {
      writeFeatureNode(*feature, source.set, *writer, includeInstOpt);
    } else {
      logMissingFeature(index);
    }
  }
  for (int number = source.groups.staticGroupCount(); number > 0; --number) {
    if (DriverFeatureStaticGroup* group = source.groups.staticGroupAt(number - 1)) {
      writeGroupNode(*group, source.set, *writer, index);
    } else {
      // Required: counted from 1 here.
      logMissingGroup(number);
    }
  }
  writer->serializeTicket(output);
}

}  // namespace driver_feature
