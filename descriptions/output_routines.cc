#include <string>

#include "AttributeMap.h"
#include "VORNWriter.h"

#include "descriptions/feature_access.h"
#include "descriptions/office_routines.h"
#include "descriptions/printer_text.h"

namespace driver_feature {

namespace {

std::string pageSizeCommand(const std::string& widthAndHeight) {
  return "<< /PageSize [" + widthAndHeight + "] >> setpagedevice\n";
}

bool isPrivate(const Features& features) {
  return features.text("HoldJob") == "Private";
}

// Empty for no watermark.
std::string watermarkText(const Features& features) {
  if (features.text("Watermark") == "Custom") return features.text("WatermarkText");
  return features.optionText("Watermark", "PSCommand");
}

_xmlNode* addGroup(VORNWriter& writer, _xmlNode* parent, std::string name,
                   bool jobTicketAttribute) {
  std::string syntax = "collection";
  if (parent != nullptr) return writer.createChildGroupCommandNode(parent, name, syntax);
  return writer.createGroupCommandNode(name, syntax, jobTicketAttribute);
}

// A group that the writer has refused takes no commands.
void addCommand(VORNWriter& writer, _xmlNode* group, std::string name, std::string syntax,
                std::string value) {
  if (group != nullptr) writer.createChildCommandNode(group, name, syntax, value);
}

}  // namespace

}  // namespace driver_feature

using driver_feature::addCommand;
using driver_feature::addGroup;
using driver_feature::decimalText;
using driver_feature::Features;
using driver_feature::isPrivate;
using driver_feature::pageSizeCommand;
using driver_feature::pjlSet;
using driver_feature::pjlString;
using driver_feature::pointsOf;
using driver_feature::postScriptString;
using driver_feature::watermarkText;

void JobWriteBegin(DriverFeatureSet* set, std::string& output) {
  output += "\x1B%-12345X@PJL JOB NAME = " + pjlString(Features(set).text("JobName")) + "\r\n";
}

void JobWriteEnd(DriverFeatureSet* /*set*/, std::string& output) {
  output += "@PJL ENTER LANGUAGE = POSTSCRIPT\r\n";
}

void OfficeWriteCopies(DriverFeatureSet* set, std::string& output) {
  const Features features(set);
  const std::string number = std::to_string(features.whole("Copies"));
  const bool collated = features.text("Collate") == "On";
  output += pjlSet("COPIES", collated ? "1" : number);
  output += pjlSet("QTY", collated ? number : "1");
}

void OfficeWriteHoldPin(DriverFeatureSet* set, std::string& output) {
  const Features features(set);
  if (!isPrivate(features)) return;
  output += pjlSet("HOLDTYPE", "PRIVATE");
  output += pjlSet("HOLDKEY", pjlString(features.text("HoldPin")));
}

void OfficeWritePageSize(DriverFeatureSet* set, std::string& output) {
  const Features features(set);
  if (features.text("PageSize") == "Custom") {
    output += pageSizeCommand(std::to_string(pointsOf(features.decimal("CustomPageWidth"))) + " " +
                              std::to_string(pointsOf(features.decimal("CustomPageHeight"))));
  } else {
    output += pageSizeCommand(features.optionText("PageSize", "PSCommand"));
  }
}

void OfficeWriteWatermark(DriverFeatureSet* set, std::string& output) {
  const Features features(set);
  const std::string text = watermarkText(features);
  if (text.empty()) return;
  const std::string size = std::to_string(features.whole("WatermarkSize"));
  // Runs before each page is painted. The text is centred on what can be
  // printed on, whatever the page's size and orientation.
  output += "<< /BeginPage { pop gsave\n";
  output += "  clippath pathbbox newpath\n";
  output += "  3 -1 roll add 2 div 3 1 roll add 2 div exch translate\n";
  output += "  " + decimalText(features.decimal("WatermarkAngle")) + " rotate 0.8 setgray\n";
  output += "  /Helvetica-Bold findfont " + size + " scalefont setfont\n";
  output += "  " + postScriptString(text) + " dup stringwidth pop -2 div " + size +
            " -0.35 mul moveto show\n";
  output += "grestore } >> setpagedevice\n";
}

void LabelWritePageSize(DriverFeatureSet* set, std::string& output) {
  const Features features(set);
  output += pageSizeCommand(features.optionText("RollWidth", "PSCommand") + " " +
                            std::to_string(pointsOf(features.decimal("LabelLength"))));
}

void OfficeAddCustomPageSize(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  const Features features(set);
  if (features.text("PageSize") != "Custom") return;
  _xmlNode* group = addGroup(*writer, parent, "media-size", false);
  addCommand(*writer, group, "x-dimension", "float", features.text("CustomPageWidth"));
  addCommand(*writer, group, "y-dimension", "float", features.text("CustomPageHeight"));
}

void OfficeAddHoldPin(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  const Features features(set);
  if (!isPrivate(features)) return;
  _xmlNode* group = addGroup(*writer, parent, "job-password", true);
  addCommand(*writer, group, "password", "octetString", features.text("HoldPin"));
  addCommand(*writer, group, "encryption", "keyword", "none");
}

void OfficeAddPageExceptions(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  const Features features(set);
  auto* exceptions = features.findRecords("PageExceptions");
  if (exceptions == nullptr) return;
  for (int i = 0; i < exceptions->fetchNumberOfDynamicEntries(); ++i) {
    // Loads the record into the features of the template.
    exceptions->getDynamicEntryByIndex(static_cast<unsigned>(i));
    _xmlNode* group = addGroup(*writer, parent, "page-overrides", true);
    addCommand(*writer, group, "first-page", "integer", features.text("ExceptionFirstPage"));
    addCommand(*writer, group, "last-page", "integer", features.text("ExceptionLastPage"));
    addCommand(*writer, group, "media-type", "keyword",
               features.optionText("ExceptionMediaType", "TESKCommand"));
    addCommand(*writer, group, "sides", "keyword",
               features.optionText("ExceptionDuplex", "TESKCommand"));
  }
}

int OfficeComparePages(AttributeMap& first, AttributeMap& second) {
  for (const char* name : {"ExceptionFirstPage", "ExceptionLastPage"}) {
    const int none = 0;
    int left = 0;
    int right = 0;
    first.loadMapVariable(name, left, &none);
    second.loadMapVariable(name, right, &none);
    if (left != right) return left < right ? -1 : 1;
  }
  return 0;
}

void OfficeAddWatermark(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  const Features features(set);
  const std::string text = watermarkText(features);
  if (text.empty()) return;
  _xmlNode* group = addGroup(*writer, parent, "x-watermark", true);
  addCommand(*writer, group, "text", "name", text);
  addCommand(*writer, group, "angle", "float", features.text("WatermarkAngle"));
  addCommand(*writer, group, "size", "integer", features.text("WatermarkSize"));
}
