// The elements of texts, presets, panels and media sizes.

#include <string_view>
#include <utility>

#include "XMLDocument.h"

#include "host/base/text.h"
#include "host/description/addition_reader.h"
#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

// A sentence may be broken into lines, which say nothing about how it is shown.
std::string joinedLines(const std::string& text) {
  std::string joined;
  for (const char character : text) {
    const bool isBlank = std::string_view(" \t\r\n").find(character) != std::string_view::npos;
    if (!isBlank) {
      joined += character;
    } else if (!joined.empty() && joined.back() != ' ') {
      joined += ' ';
    }
  }
  if (joined.ends_with(' ')) joined.pop_back();
  return joined;
}

}  // namespace

void AdditionReader::readTexts(void* element) {
  if (!readAttributes(element, {"Language"}, {"Language"})) return;
  TextsOfLanguage language{text("Language"), {}, placeOf(element, "Language")};
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Text") return refuseChild(child, element, {"Text"});
    readText(child, language);
  });
  additions_.texts.push_back(std::move(language));
}

void AdditionReader::readText(void* element, TextsOfLanguage& language) {
  refuseChildren(element);
  if (!readAttributes(element, {"For"}, {"For"})) return;
  const XMLContent content = XMLDocument::contentOf(element);
  language.texts.push_back({text("For"), joinedLines(content.text), placeOf(element, "For")});
}

void AdditionReader::readPresets(void* element) {
  readAttributes(element, {}, {});
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Preset") return refuseChild(child, element, {"Preset"});
    readPreset(child);
  });
}

void AdditionReader::readPreset(void* element) {
  refuseChildren(element);
  if (!readAttributes(element, {"Name", "Text"}, {"Name"})) return;
  XMLContent content = XMLDocument::contentOf(element);
  const int line = places_.lineOf(element, content);
  additions_.presets.push_back({text("Name"),
                                text("Text"),
                                std::move(content.text),
                                placeOf(element, "Name"),
                                {file_, {line, 0}}});
}

void AdditionReader::readPanels(void* element) {
  readAttributes(element, {}, {});
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Panel") return refuseChild(child, element, {"Panel"});
    readPanel(child);
  });
}

void AdditionReader::readPanel(void* element) {
  if (!readAttributes(element, {"Name", "Text"}, {"Name"})) return;
  Panel panel{text("Name"), text("Text"), {}, placeOf(element, "Name")};
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Member") return refuseChild(child, element, {"Member"});
    refuseChildren(child);
    if (!readAttributes(child, {"Feature"}, {"Feature"})) return;
    panel.members.push_back({text("Feature"), placeOf(child, "Feature")});
  });
  additions_.panels.push_back(std::move(panel));
}

void AdditionReader::readMedia(void* element) {
  if (!readAttributes(element, {"Feature", "Default"}, {"Feature"})) return;
  MediaSizes& media = additions_.media;
  const std::string feature = text("Feature");
  if (!media.feature.empty() && media.feature != feature) {
    return refuse(element, kSecondMediaCause,
                  "a second feature, " + inQuotes(feature) + ", chooses the page size beside " +
                      inQuotes(media.feature),
                  "give the sizes of one feature");
  }
  if (media.feature.empty()) media.place = placeOf(element, "Feature");
  media.feature = feature;
  if (has("Default")) media.usual = text("Default");
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Size") return refuseChild(child, element, {"Size"});
    readSize(child);
  });
}

void AdditionReader::readSize(void* element) {
  refuseChildren(element);
  struct Row {
    const char* attribute;
    double MediaSize::*member;
  };
  constexpr Row kRows[] = {{"Width", &MediaSize::width},       {"Height", &MediaSize::height},
                           {"LeftMargin", &MediaSize::left},   {"BottomMargin", &MediaSize::bottom},
                           {"RightMargin", &MediaSize::right}, {"TopMargin", &MediaSize::top}};
  if (!readAttributes(
          element,
          {"Option", "Width", "Height", "LeftMargin", "BottomMargin", "RightMargin", "TopMargin"},
          {"Option", "Width", "Height"})) {
    return;
  }
  MediaSize size;
  size.option = text("Option");
  size.place = placeOf(element, "Option");
  bool isComplete = true;
  for (const Row& row : kRows) {
    const auto value = number(element, row.attribute);
    if (value) size.*row.member = *value;
    isComplete = isComplete && (value || !isGiven(row.attribute));
  }
  if (isComplete) additions_.media.sizes.push_back(std::move(size));
}

}  // namespace driver_feature::host
