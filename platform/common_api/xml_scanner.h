// Reads plain documents, which nearly all descriptions are, several times as
// fast as libraries for all of XML.
#ifndef PLATFORM_COMMON_API_XML_SCANNER_H_
#define PLATFORM_COMMON_API_XML_SCANNER_H_

#include <cstddef>

#include "xml_cursor.h"
#include "xml_element.h"

namespace driver_feature {

constexpr int kHighestDepth = 256;  // Of nested elements.

// How many elements a text of this size has at most, apart from unusual ones.
constexpr std::size_t usualElements(std::size_t size) {
  constexpr std::size_t kUsualText = 64;  // Of one element.
  return size / kUsualText + 1;
}

// The root of a document in UTF-8, with its elements in `elements`; or null if
// the document is not plain or not well-formed. It is for readTree() to
// decide which of the two it is, and to name the place.
//
// What this reads is well-formed XML that readTree() accepts as well. Not plain
// are a document type, an encoding other than UTF-8, a byte order mark,
// namespaces, names beyond ASCII, more than 64 attributes in one tag, and
// elements nested deeper than kHighestDepth.
//
// The text ends with a NUL character at text[size], and must outlive the
// elements. Values are resolved in it, so no other reader can use it
// afterwards.
Element* scanPlainText(char* text, std::size_t size, Names names, Elements& elements);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_SCANNER_H_
