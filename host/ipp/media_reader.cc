#include "host/ipp/media_reader.h"

#include <string_view>
#include <utility>

#include "host/ipp/ipp_values.h"
#include "host/ipp/media_table.h"
#include "host/ipp/word_meaning.h"

namespace driver_feature::ipp {

namespace {

using Member = std::pair<std::string, ipp_attribute_t*>;

// -1 without one.
int integerNamed(ipp_t* collection, const char* name) {
  ipp_attribute_t* found = ippFindAttribute(collection, name, IPP_TAG_INTEGER);
  return found != nullptr ? ippGetInteger(found, 0) : -1;
}

WantedMargins marginsIn(ipp_t* collection) {
  return {integerNamed(collection, "media-left-margin"),
          integerNamed(collection, "media-bottom-margin"),
          integerNamed(collection, "media-right-margin"),
          integerNamed(collection, "media-top-margin")};
}

bool isMargin(std::string_view name) {
  return name.starts_with("media-") && name.ends_with("-margin");
}

std::vector<Member> membersOf(ipp_t* collection) {
  std::vector<Member> members;
  for (ipp_attribute_t* each = ippFirstAttribute(collection); each != nullptr;
       each = ippNextAttribute(collection)) {
    const char* name = ippGetName(each);
    if (name != nullptr && !isMargin(name)) members.emplace_back(name, each);
  }
  return members;
}

// The only value of the attribute; nothing when there are several or none.
std::optional<std::string> wordIn(ipp_attribute_t* attribute) {
  std::vector<std::string> words = wordsIn(attribute);
  if (words.size() != 1) return std::nullopt;
  return std::move(words.front());
}

std::optional<MediaChoice> sizeIn(const AttributeTable& table, ipp_attribute_t* member,
                                  const WantedMargins& margins) {
  if (ippGetValueTag(member) != IPP_TAG_BEGIN_COLLECTION) return std::nullopt;
  ipp_t* size = ippGetCollection(member, 0);
  const int width = integerNamed(size, "x-dimension");
  const int height = integerNamed(size, "y-dimension");
  if (const MediaEntry* entry = entryOfSize(table, width, height, margins)) {
    return mediaChoice(table, *entry);
  }
  return customChoice(table, width, height);
}

bool take(AskedMedia& asked, const std::optional<MediaChoice>& choice) {
  if (!choice) return false;
  asked.settings.insert(asked.settings.end(), choice->settings.begin(), choice->settings.end());
  asked.sheet = {choice->width, choice->height};
  return true;
}

bool takeMember(AskedMedia& asked, const AttributeTable& table, const Member& member,
                const WantedMargins& margins) {
  const auto& [name, attribute] = member;
  if (name == "media-size") return take(asked, sizeIn(table, attribute, margins));
  const auto word = wordIn(attribute);
  if (!word) return false;
  if (name == "media-size-name") return take(asked, choiceNamed(table, *word));
  const JobAttribute* known = table.find(name);
  if (known == nullptr || !known->isMediaMember) return false;
  const auto value = valueOf(*known, *word);
  if (!value) return false;
  if (!value->empty()) asked.settings.push_back({known->feature->name, *value});
  return true;
}

}  // namespace

std::optional<AskedMedia> mediaIn(const AttributeTable& table, ipp_attribute_t* attribute) {
  const auto word = wordIn(attribute);
  AskedMedia asked;
  if (!word || !take(asked, choiceNamed(table, *word))) return std::nullopt;
  return asked;
}

std::optional<AskedMedia> mediaColIn(const AttributeTable& table, ipp_attribute_t* attribute) {
  const bool isOne =
      ippGetValueTag(attribute) == IPP_TAG_BEGIN_COLLECTION && ippGetCount(attribute) == 1;
  if (!isOne) return std::nullopt;
  ipp_t* collection = ippGetCollection(attribute, 0);
  const WantedMargins margins = marginsIn(collection);
  AskedMedia asked;
  for (const Member& member : membersOf(collection)) {
    if (!takeMember(asked, table, member, margins)) asked.unsupported.push_back(member.first);
  }
  return asked;
}

}  // namespace driver_feature::ipp
