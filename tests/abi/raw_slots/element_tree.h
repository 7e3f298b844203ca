// A feature description as a tree in memory, and a parser for it that is made
// of nothing but a table of functions in the order of the host's parser.
#ifndef TESTS_ABI_RAW_SLOTS_ELEMENT_TREE_H_
#define TESTS_ABI_RAW_SLOTS_ELEMENT_TREE_H_

#include <string>
#include <utility>
#include <vector>

namespace raw_slots {

struct Element {
  std::string tag;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<Element> children;
  Element* next = nullptr;  // The next sibling, once link() has run.
};

// Links every child of the tree to its sibling. The tree must not move after it.
void link(Element& root);

// The parser object: its first word points to its table. `subscript` is the
// address of the attribute map's operator[]; the parser fills maps with it.
void* makeParser(void* subscript);

}  // namespace raw_slots

#endif  // TESTS_ABI_RAW_SLOTS_ELEMENT_TREE_H_
