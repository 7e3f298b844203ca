#include "element_tree.h"

#include <cstdlib>

namespace raw_slots {

namespace {

using Subscript = std::string& (*)(void* map, const std::string& name);

// What the host's parser object looks like to the library.
struct Parser {
  void* const* table;
  Subscript subscript;
};

void readTag(void* /*parser*/, void* element, std::string& tag) {
  tag = static_cast<Element*>(element)->tag;
}

// The library has no business in the reserved slots.
void reserved(void* /*parser*/) {
  std::abort();
}

void* firstChild(void* /*parser*/, void* element) {
  std::vector<Element>& children = static_cast<Element*>(element)->children;
  return children.empty() ? nullptr : children.data();
}

void* nextSibling(void* /*parser*/, void* element) {
  return static_cast<Element*>(element)->next;
}

int childCount(void* /*parser*/, void* element) {
  return static_cast<int>(static_cast<Element*>(element)->children.size());
}

void readAttributes(void* parser, void* element, void* map) {
  for (const auto& [name, value] : static_cast<Element*>(element)->attributes) {
    static_cast<Parser*>(parser)->subscript(map, name) = value;
  }
}

void* const kTable[] = {
    reinterpret_cast<void*>(&readTag),        reinterpret_cast<void*>(&reserved),
    reinterpret_cast<void*>(&firstChild),     reinterpret_cast<void*>(&nextSibling),
    reinterpret_cast<void*>(&reserved),       reinterpret_cast<void*>(&childCount),
    reinterpret_cast<void*>(&readAttributes),
};

}  // namespace

void link(Element& root) {
  for (std::size_t i = 0; i < root.children.size(); ++i) {
    link(root.children[i]);
    if (i + 1 < root.children.size()) root.children[i].next = &root.children[i + 1];
  }
}

void* makeParser(void* subscript) {
  static Parser parser{};
  parser = {kTable, reinterpret_cast<Subscript>(subscript)};
  return &parser;
}

}  // namespace raw_slots
