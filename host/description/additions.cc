#include "host/description/additions.h"

#include <algorithm>
#include <filesystem>

#include "AttributeMap.h"

#include "host/base/input_file.h"
#include "host/description/addition_reader.h"
#include "host/description/beside_files.h"
#include "host/description/po_file.h"
#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

// How an element beside the description is read.
struct PartRow {
  const char* tag;
  AdditionPart part;
  void (AdditionReader::*read)(void* element);
};

constexpr PartRow kPartRows[] = {
    {"FeatureRules", kRulesPart, &AdditionReader::readRules},
    {"FeatureTexts", kTextsPart, &AdditionReader::readTexts},
    {"FeaturePresets", kPresetsPart, &AdditionReader::readPresets},
    {"FeaturePanels", kPanelsPart, &AdditionReader::readPanels},
    {"FeatureMedia", kMediaPart, &AdditionReader::readMedia},
};

void readElements(const Document& document, unsigned parts, Additions& additions) {
  if (document.root() == document.description()) return;
  const ElementPlaces places(document.root(), document.text());
  AdditionReader reader(document.path(), places, additions);
  forEachChild(document.root(), [&](void* child) {
    const std::string tag = tagOf(child);
    for (const PartRow& row : kPartRows) {
      if ((parts & row.part) != 0 && tag == row.tag) (reader.*row.read)(child);
    }
  });
}

bool exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

// With a remedy, and the cause that all unreadable files have.
void note(Problem problem, const char* remedy, Additions& additions) {
  if (problem.remedy.empty()) problem.remedy = remedy;
  problem.cause = kUnreadableCause;
  additions.problems.push_back(std::move(problem));
}

void readRulesFile(const std::string& path, bool withColumns, Additions& additions) {
  if (!exists(path)) return;
  const auto text = readFile(path);
  if (!text) return note(text.error(), "make it readable, or remove it", additions);
  const auto tree = Document::parseTree(path, *text);
  if (!tree) return note(tree.error(), "", additions);
  void* root = (*tree)->root();
  const ElementPlaces places(root, withColumns ? *text : "");
  AdditionReader reader(path, places, additions);
  if (tagOf(root) == "FeatureRules") return reader.readRules(root);
  reader.refuse(root, kUnknownElementCause, "the root of this file is <" + tagOf(root) + ">",
                "name it <FeatureRules>");
}

void readPoFiles(const std::string& description, Additions& additions) {
  for (const NamedFile& file : poFilesOf(description)) {
    PoTexts read = readPoFile(file.path, file.name);
    additions.texts.push_back(std::move(read.texts));
    additions.problems.insert(additions.problems.end(), read.problems.begin(), read.problems.end());
  }
}

void readPresetFiles(const std::string& description, Additions& additions) {
  for (const NamedFile& file : presetFilesOf(description)) {
    const auto text = readFile(file.path);
    if (!text) {
      note(text.error(), "make it readable, or remove it", additions);
      continue;
    }
    additions.presets.push_back({file.name, "", *text, {file.path, {}}, {file.path, {1, 0}}});
  }
}

}  // namespace

std::vector<std::string> languagesOf(const Document& document) {
  std::vector<std::string> languages;
  const auto add = [&languages](const std::string& language) {
    const bool isNew = std::find(languages.begin(), languages.end(), language) == languages.end();
    if (isNew && !language.empty()) languages.push_back(language);
  };
  if (document.root() != document.description()) {
    forEachChild(document.root(), [&add](void* child) {
      if (tagOf(child) != "FeatureTexts") return;
      AttributeMap attributes;
      pParserInstance->attributes(child, attributes);
      add(attributes["Language"]);
    });
  }
  if (document.path() == kStandardInput) return languages;
  for (const NamedFile& file : poFilesOf(document.path())) add(file.name);
  return languages;
}

Additions readAdditions(const Document& document, unsigned parts) {
  Additions additions;
  readElements(document, parts, additions);
  const std::string& path = document.path();
  if (path == kStandardInput) return additions;
  if ((parts & kRulesPart) != 0) {
    readRulesFile(rulesFileOf(path), !document.text().empty(), additions);
  }
  if ((parts & kTextsPart) != 0) readPoFiles(path, additions);
  if ((parts & kPresetsPart) != 0) readPresetFiles(path, additions);
  return additions;
}

}  // namespace driver_feature::host
