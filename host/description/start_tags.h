// The places of the start tags of an XML text, which a tree does not keep.
#ifndef HOST_DESCRIPTION_START_TAGS_H_
#define HOST_DESCRIPTION_START_TAGS_H_

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/position.h"

namespace driver_feature::host {

struct AttributePlace {
  Position name;
  Position value;      // Of the first character after the quotation mark.
  std::string source;  // What is written between the quotation marks.
};

// Text that is more than blanks, without those around it.
struct TextPlace {
  Position position;
  std::string text;  // As it is written, references unresolved.
};

struct StartTag {
  Position position;                                 // Of the "<".
  std::string name;                                  // With prefix.
  bool isInNamespace = false;                        // By its prefix, or by a default namespace.
  std::map<std::string, AttributePlace> attributes;  // By name with prefix.
  std::vector<TextPlace> texts;                      // In the element, outside of those in it.
};

// The start tags of a well-formed document without entity declarations, in
// the order of the text. What is not well-formed gives fewer tags, never a
// failure.
std::vector<StartTag> findStartTags(std::string_view utf8);

// A comment, and the element that follows it.
struct XmlComment {
  Position position;    // Of the "<".
  std::string text;     // Between "<!--" and "-->".
  Position element;     // Where the next element begins; line 0 without one.
  Position elementEnd;  // Just after its end tag.
};

// The comments outside of the document type, with the same reservations.
std::vector<XmlComment> findComments(std::string_view utf8);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_START_TAGS_H_
