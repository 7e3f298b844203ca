#include "host/ipp/media_attributes.h"

#include <algorithm>
#include <set>

#include "host/ipp/ipp_values.h"
#include "host/ipp/media_entries.h"
#include "host/ipp/media_table.h"

namespace driver_feature::ipp {

namespace {

constexpr ipp_tag_t kMember = IPP_TAG_ZERO;

void addMargins(ipp_t* target, const ChoiceCapability& size) {
  ippAddInteger(target, kMember, IPP_TAG_INTEGER, "media-bottom-margin", size.bottom);
  ippAddInteger(target, kMember, IPP_TAG_INTEGER, "media-left-margin", size.left);
  ippAddInteger(target, kMember, IPP_TAG_INTEGER, "media-right-margin", size.right);
  ippAddInteger(target, kMember, IPP_TAG_INTEGER, "media-top-margin", size.top);
}

ipp_t* sizeCollection(int width, int height) {
  ipp_t* size = ippNew();
  ippAddInteger(size, kMember, IPP_TAG_INTEGER, "x-dimension", width);
  ippAddInteger(size, kMember, IPP_TAG_INTEGER, "y-dimension", height);
  return size;
}

ipp_t* rangesCollection(const CustomSizes& custom) {
  ipp_t* size = ippNew();
  ippAddRange(size, kMember, "x-dimension", custom.leastWidth, custom.mostWidth);
  ippAddRange(size, kMember, "y-dimension", custom.leastHeight, custom.mostHeight);
  return size;
}

// Each width of a roll has the range of lengths.
ipp_t* rollCollection(const CustomSizes& custom, int width) {
  ipp_t* size = ippNew();
  ippAddInteger(size, kMember, IPP_TAG_INTEGER, "x-dimension", width);
  ippAddRange(size, kMember, "y-dimension", custom.leastHeight, custom.mostHeight);
  return size;
}

std::vector<ipp_t*> customSizes(const AttributeTable& table) {
  std::vector<ipp_t*> sizes;
  if (!table.custom) return sizes;
  if (table.custom->width != nullptr) return {rangesCollection(*table.custom)};
  for (const MediaEntry& entry : table.media) {
    sizes.push_back(rollCollection(*table.custom, entry.size.width));
  }
  return sizes;
}

ipp_t* entryCollection(const MediaEntry& entry) {
  ipp_t* collection = ippNew();
  addMediaSize(collection, entry.size.width, entry.size.height);
  addMargins(collection, entry.size);
  return collection;
}

// Custom sheets are taken to have the margins of the usual one.
void addCustomCollections(std::vector<ipp_t*>& database, const AttributeTable& table) {
  for (ipp_t* size : customSizes(table)) {
    ipp_t* collection = ippNew();
    addCollections(collection, kMember, "media-size", {size});
    addMargins(collection, table.media[table.usualMedia].size);
    database.push_back(collection);
  }
}

void addUsualMembers(ipp_t* collection, const AttributeTable& table) {
  for (const JobAttribute& attribute : table.attributes) {
    if (!attribute.isMediaMember || attribute.usual.empty()) continue;
    addWords(collection, kMember, attribute.name, attribute.syntax, {attribute.usual});
  }
}

ipp_t* usualCollection(const AttributeTable& table) {
  ipp_t* collection = entryCollection(table.media[table.usualMedia]);
  addUsualMembers(collection, table);
  return collection;
}

void addNames(ipp_t* printer, const AttributeTable& table) {
  std::vector<std::string> keywords;
  for (const MediaEntry& entry : table.media) keywords.push_back(entry.keyword);
  if (table.custom) {
    const CustomSizes& custom = *table.custom;
    keywords.push_back(sizeName("custom", "min", custom.leastWidth, custom.leastHeight));
    keywords.push_back(sizeName("custom", "max", custom.mostWidth, custom.mostHeight));
  }
  const std::string& usual = table.media[table.usualMedia].keyword;
  addKeywords(printer, kPrinter, "media-supported", keywords);
  addKeywords(printer, kPrinter, "media-default", {usual});
  // What is loaded is not known; the usual sheet is what is printed on without asking.
  addKeywords(printer, kPrinter, "media-ready", {usual});
}

void addSizes(ipp_t* printer, const AttributeTable& table) {
  std::vector<ipp_t*> sizes;
  for (const MediaEntry& entry : table.media) {
    if (!entry.isSecond) sizes.push_back(sizeCollection(entry.size.width, entry.size.height));
  }
  for (ipp_t* size : customSizes(table)) sizes.push_back(size);
  addCollections(printer, kPrinter, "media-size-supported", std::move(sizes));
}

void addMarginLists(ipp_t* printer, const AttributeTable& table) {
  struct Side {
    const char* name;
    int ChoiceCapability::*margin;
  };
  constexpr Side kSides[] = {{"media-bottom-margin-supported", &ChoiceCapability::bottom},
                             {"media-left-margin-supported", &ChoiceCapability::left},
                             {"media-right-margin-supported", &ChoiceCapability::right},
                             {"media-top-margin-supported", &ChoiceCapability::top}};
  for (const Side& side : kSides) {
    std::set<int> margins;
    for (const MediaEntry& entry : table.media) margins.insert(entry.size.*side.margin);
    addIntegers(printer, kPrinter, side.name, IPP_TAG_INTEGER, {margins.begin(), margins.end()});
  }
}

void addCollectionLists(ipp_t* printer, const AttributeTable& table) {
  std::vector<ipp_t*> database;
  for (const MediaEntry& entry : table.media) database.push_back(entryCollection(entry));
  addCustomCollections(database, table);
  addCollections(printer, kPrinter, "media-col-database", std::move(database));
  addCollections(printer, kPrinter, "media-col-default", {usualCollection(table)});
  addCollections(printer, kPrinter, "media-col-ready", {usualCollection(table)});
  std::vector<std::string> members = {"media-bottom-margin", "media-left-margin",
                                      "media-right-margin",  "media-size",
                                      "media-size-name",     "media-top-margin"};
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.isMediaMember) members.push_back(attribute.name);
  }
  addKeywords(printer, kPrinter, "media-col-supported", members);
}

void addMember(ipp_t* printer, const JobAttribute& attribute) {
  const std::string supported = attribute.name + "-supported";
  if (attribute.feature != nullptr && !attribute.feature->isList()) {
    const IntegerRange range = rangeOf(*attribute.feature);
    ippAddRange(printer, kPrinter, supported.c_str(), range.least, range.most);
  } else {
    std::vector<std::string> words;
    for (const WordValue& value : attribute.values) words.push_back(value.word);
    addWords(printer, kPrinter, supported, attribute.syntax, words);
  }
  if (!attribute.usual.empty()) {
    addWords(printer, kPrinter, attribute.name + "-default", attribute.syntax, {attribute.usual});
  }
}

}  // namespace

void addMediaSize(ipp_t* target, int width, int height) {
  addCollections(target, kMember, "media-size", {sizeCollection(width, height)});
}

void addMediaAttributes(ipp_t* printer, const AttributeTable& table,
                        std::vector<std::string>& names) {
  addNames(printer, table);
  addSizes(printer, table);
  addMarginLists(printer, table);
  addCollectionLists(printer, table);
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.isMediaMember) addMember(printer, attribute);
  }
  names.insert(names.end(), {"media", "media-col"});
}

ipp_t* mediaColOf(const AttributeTable& table, const std::vector<host::Setting>& settings) {
  ipp_t* collection = ippNew();
  if (const MediaEntry* entry = entryOfSettings(table, settings)) {
    addMediaSize(collection, entry->size.width, entry->size.height);
    addMargins(collection, entry->size);
  }
  for (const host::Setting& setting : settings) {
    for (const JobAttribute& attribute : table.attributes) {
      const bool isIt = attribute.isMediaMember && attribute.feature != nullptr &&
                        attribute.feature->name == setting.name;
      if (!isIt) continue;
      const WordValue* value = attribute.valueOfChoice(setting.value);
      const bool isList = attribute.feature->isList();
      if (isList && value == nullptr) continue;
      addWords(collection, kMember, attribute.name, attribute.syntax,
               {isList ? value->word : setting.value});
    }
  }
  if (ippFirstAttribute(collection) != nullptr) return collection;
  ippDelete(collection);
  return nullptr;
}

}  // namespace driver_feature::ipp
