// Reads the elements beside a feature description.
#ifndef HOST_DESCRIPTION_ADDITION_READER_H_
#define HOST_DESCRIPTION_ADDITION_READER_H_

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/description/additions.h"
#include "host/description/element_places.h"

namespace driver_feature::host {

// Why a part of an addition could not be read: Problem::cause says it with one of
// these.
inline constexpr const char* kUnknownElementCause = "unknown element";
inline constexpr const char* kUnknownAttributeCause = "unknown attribute";
inline constexpr const char* kMissingAttributeCause = "missing attribute";
inline constexpr const char* kNoNumberCause = "not a number";
inline constexpr const char* kConditionFormCause = "condition without one form";
inline constexpr const char* kNoConditionCause = "no condition";
inline constexpr const char* kUnreadableCause = "unreadable file";
inline constexpr const char* kTextEntryCause = "entry for nothing";
inline constexpr const char* kSecondMediaCause = "second feature of media";

// Reads the elements of one tree into `additions`.
class AdditionReader {
 public:
  AdditionReader(std::string file, const ElementPlaces& places, Additions& additions)
      : file_(std::move(file)), places_(places), additions_(additions) {}

  void readRules(void* element);
  void readTexts(void* element);
  void readPresets(void* element);
  void readPanels(void* element);
  void readMedia(void* element);

  // A root that cannot be read.
  void refuse(void* element, const char* cause, std::string text, std::string remedy);

 private:
  using Names = std::initializer_list<const char*>;

  // Reads the attributes of an element. Each that is not one of `known` is a
  // problem, and so is each of `required` that is missing or empty; false then.
  bool readAttributes(void* element, Names known, Names required);
  // Null without the attribute.
  const std::string* find(const char* attribute) const;
  const std::string& text(const char* attribute) const;  // Empty without it.
  bool has(const char* attribute) const;                 // With a value that is not empty.
  bool isGiven(const char* attribute) const;             // With any value.
  // Nothing without the attribute; a problem for what is not a number.
  std::optional<double> number(void* element, const char* attribute);

  void readHardware(void* element);
  void readRule(void* element);
  bool readCondition(void* element, Condition& condition);
  bool readChoices(void* element, Condition& condition);
  void readText(void* element, TextsOfLanguage& language);
  void readPreset(void* element);
  void readPanel(void* element);
  void readSize(void* element);
  void refuseChild(void* child, void* parent, const std::vector<std::string>& names);
  void refuseChildren(void* element);
  SourcePlace placeOf(void* element) const { return {file_, places_.of(element)}; }
  SourcePlace placeOf(void* element, const char* attribute) const {
    return {file_, places_.of(element, attribute)};
  }

  std::string file_;
  const ElementPlaces& places_;
  Additions& additions_;
  // Of the element that is read. Their strings are used again for the next one.
  std::vector<std::pair<std::string, std::string>> attributes_;
  std::size_t attributeCount_ = 0;
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_ADDITION_READER_H_
