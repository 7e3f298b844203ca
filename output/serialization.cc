// The set as PostScript, PJL or a job ticket.

#include <utility>

#include "model/driver_feature.h"
#include "model/driver_feature_set.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "output/feature_text.h"
#include "output/group_commands.h"
#include "output/output_routine.h"
#include "output/text_dialect.h"
#include "output/ticket_attributes.h"

#include "VORNWriter.h"

namespace driver_feature {

namespace {

enum PDLType : int { kTypePJL = 0, kTypePostScript = 1, kTypeTicket = 2 };

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

void logMissingFeature(int index) {
  logComposed(Level::kMisuse, "serialize() - Cannot get reference to feature {}",
              toDecimalText(index));
}

void logMissingGroup(int number) {
  logComposed(Level::kMisuse, "serialize() - Cannot get reference to static group {}",
              toDecimalText(number));
}

// Appends the feature's text. `scratch` is anything, kept for its capacity.
void writeFeatureText(CoreFeature& feature, int index, FeatureText& text, std::string& scratch,
                      std::string& output) {
  const TextDialect& dialect = text.dialect();
  if (isInGroup(feature)) {
    if (dialect.logsFeatureInGroup) {
      logComposed(Level::kInformation, "serialize() - Feature {} is in a group",
                  toDecimalText(index));
    }
    return;
  }
  if (readNonEmpty(feature, dialect.commandProperty, scratch)) {
    return text.append(feature, scratch, output);
  }
  if (!readNonEmpty(feature, dialect.routineProperty, scratch)) return;
  if (runTextRoutine(scratch, output)) return;
  logComposed(Level::kMisuse, dialect.featureRoutineMissing, scratch);
}

// The text of the whole set, which takes the place of `output` only when it is
// complete: what a routine throws, or a lack of memory, leaves no half of one.
// The text is made in the memory of `spare`, which then gets that of `output`,
// so that a host which keeps its text from one call to the next costs none. A
// routine that asks for a text in between finds no spare memory.
void writeText(DriverFeatureSet& set, const TextDialect& dialect, std::string& spare,
               std::string& output) {
  std::string text = std::exchange(spare, {});
  text.clear();
  FeatureText featureText(dialect);
  std::string scratch;
  for (int i = 0; i < set.fetchNumberOfFeatures(); ++i) {
    if (DriverFeature* feature = set.fetchFeatureByIndex(i)) {
      writeFeatureText(*feature, i, featureText, scratch, text);
    } else {
      logMissingFeature(i);
    }
  }
  const auto processGroup = dialect.isPostScript ? processPSStaticGroup : processPJLStaticGroup;
  std::string piece;
  for (int j = 0; j < set.fetchNumberOfStaticGroups(); ++j) {
    DriverFeatureStaticGroup* group = set.fetchStaticGroupByIndex(j);
    if (group == nullptr) {
      logMissingGroup(j);
      continue;
    }
    processGroup(*group, piece, true);
    text += piece;
  }
  output.swap(text);
  spare = std::move(text);
}

// Runs the object's ticket routine at top level. False when it names none.
bool runOwnTicketRoutine(CoreFeature& object, VORNWriter& writer) {
  std::string routineName;
  if (!readNonEmpty(object, Property::kAddVORNCallbackRoutine, routineName)) return false;
  if (!runTicketRoutine(routineName, writer, nullptr)) {
    logComposed(Level::kMisuse, "serialize() - Cannot load VORN Command callback: {}", routineName);
  }
  return true;
}

void writeFeatureNode(CoreFeature& feature, VORNWriter& writer, bool includeInstOpt) {
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
  runOwnTicketRoutine(feature, writer);
}

void writeGroupNode(CoreFeature& group, VORNWriter& writer, int numberOfFeatures) {
  for (const TicketNameRow& row : kGroupTicketNames) {
    std::string name;
    if (!readNonEmpty(group, row.property, name)) continue;
    processVORNStaticGroup(group, writer, name, row.jobTicketAttribute, nullptr, true);
    return;
  }
  if (runOwnTicketRoutine(group, writer)) return;
  // Required: prints the number of features, not the group's index; log
  // readers rely on it.
  logComposed(Level::kInformation, "serialize() - StaticGroup {} has no VORN attributes",
              toDecimalText(numberOfFeatures));
}

void writeTicket(DriverFeatureSet& set, std::string& output, bool includeInstOpt,
                 const char* argument1, const char* argument2) {
  // A routine may keep the writer, so it is never freed.
  auto* writer = new VORNWriter;
  writer->initializeJobTicketDOM(argument1, argument2);
  int index = 0;
  for (; index < set.fetchNumberOfFeatures(); ++index) {
    if (DriverFeature* feature = set.fetchFeatureByIndex(index)) {
      writeFeatureNode(*feature, *writer, includeInstOpt);
    } else {
      logMissingFeature(index);
    }
  }
  for (int number = set.fetchNumberOfStaticGroups(); number > 0; --number) {
    if (DriverFeatureStaticGroup* group = set.fetchStaticGroupByIndex(number - 1)) {
      writeGroupNode(*group, *writer, index);
    } else {
      // Required: counted from 1 here.
      logMissingGroup(number);
    }
  }
  writer->serializeTicket(output);
}

}  // namespace

}  // namespace driver_feature

void DriverFeatureSet::serialize(std::string& output, int pdlType, bool includeInstOpt,
                                 const char* ticketArgument1, const char* ticketArgument2) {
  switch (pdlType) {
    case driver_feature::kTypePJL:
      return driver_feature::writeText(*this, driver_feature::kPJL, spareText_, output);
    case driver_feature::kTypePostScript:
      return driver_feature::writeText(*this, driver_feature::kPostScript, spareText_, output);
    case driver_feature::kTypeTicket:
      return driver_feature::writeTicket(*this, output, includeInstOpt, ticketArgument1,
                                         ticketArgument2);
    default:
      driver_feature::logFixed(driver_feature::Level::kMisuse, "serialize() - Invalid PDL type");
  }
}
