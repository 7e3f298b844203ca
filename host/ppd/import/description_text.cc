#include "host/ppd/import/description_text.h"

#include <libxml/tree.h>

#include <memory>
#include <new>

#include "host/ppd/byte_escapes.h"

namespace driver_feature::ppd {

namespace {

const xmlChar* xmlText(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

template <class Pointer>
Pointer checked(Pointer pointer) {
  if (pointer == nullptr) throw std::bad_alloc();
  return pointer;
}

// Fills `node`. Returns whether any value has been escaped.
bool fill(xmlNode* node, const ImportedElement& element) {
  bool escaped = false;
  for (const auto& [name, bytes] : element.attributes) {
    const std::string text = escapeBytes(bytes);
    escaped = escaped || text != bytes;
    checked(xmlNewProp(node, xmlText(name), xmlText(text)));
  }
  for (const ImportedElement& child : element.children) {
    const xmlChar* content = child.content.empty() ? nullptr : xmlText(child.content);
    xmlNode* childNode = checked(xmlNewTextChild(node, nullptr, xmlText(child.tag), content));
    escaped = fill(childNode, child) || escaped;
  }
  return escaped;
}

}  // namespace

std::string descriptionText(const ImportedElement& root) {
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
      checked(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"))), &xmlFreeDoc);
  xmlNode* node = checked(xmlNewDocNode(document.get(), nullptr, xmlText(root.tag), nullptr));
  xmlDocSetRootElement(document.get(), node);
  if (fill(node, root)) {
    checked(xmlNewProp(node, reinterpret_cast<const xmlChar*>("ByteEscapes"),
                       reinterpret_cast<const xmlChar*>("yes")));
  }
  xmlChar* bytes = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(document.get(), &bytes, &size, "UTF-8", 1);
  const std::unique_ptr<xmlChar, void (*)(void*)> owner(checked(bytes), xmlFree);
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace driver_feature::ppd
