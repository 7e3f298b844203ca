// What tests see of a text: through the scanner, and through libxml2.
#ifndef PLATFORM_COMMON_API_SCANNED_ELEMENTS_H_
#define PLATFORM_COMMON_API_SCANNED_ELEMENTS_H_

#include <string>

#include "xml_plain_text.h"
#include "xml_reader.h"
#include "xml_scanner.h"

namespace driver_feature {

// The elements of a text, one a line: depth, line, tag and attributes. Empty if
// the text is not plain.
inline std::string elementsOf(Element* element, int depth) {
  std::string text;
  for (; element != nullptr; element = element->nextSibling()) {
    text += std::to_string(depth) + ' ' + std::to_string(element->line()) + ' ';
    text += nameAt(element->tag());
    for (AttributeReader attribute(*element); attribute.read();) {
      text.append(" ").append(attribute.name()).append("=[").append(attribute.value()) += ']';
    }
    text += '\n' + elementsOf(element->firstChild(), depth + 1);
  }
  return text;
}

inline std::string scan(std::string text, Names names = Names::kPlain) {
  Elements elements;
  return elementsOf(scanPlainText(text.data(), text.size(), names, elements), 0);
}

// The same through libxml2. Empty if it refuses the text.
inline std::string readCarefully(const std::string& text) {
  XMLProblem problem;
  const TreePointer tree = readTree(text, "test.xml", problem);
  if (!tree) return "";
  PlainText plain = plainTextOf(*tree);
  Elements elements;
  Element* root = scanPlainText(plain.text.data(), plain.text.size(), Names::kAny, elements);
  if (root == nullptr) return "what is written of the tree cannot be read";
  for (std::size_t i = 0; i < elements.size(); ++i) elements[i].setLine(plain.lines[i]);
  return elementsOf(root, 0);
}

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_SCANNED_ELEMENTS_H_
