// What the file of a shared library says about itself: symbols, segments and
// dynamic entries, of the class (32 or 64 bits) of this program.
#ifndef TESTS_ABI_ELF_FILE_H_
#define TESTS_ABI_ELF_FILE_H_

#include <link.h>

#include <string>
#include <vector>

namespace driver_feature::testing {

class ElfFile {
 public:
  using Address = ElfW(Addr);

  struct Symbol {
    std::string name;
    Address value;
    std::size_t size;  // In bytes.
    bool local;        // Not seen by other libraries.
    bool defined;
  };

  // Reads a file. The test fails, and the object is empty, when the file is
  // not a shared library of this program's class.
  explicit ElfFile(const std::string& path);

  // The whole symbol table, local symbols included; empty when the library has
  // been stripped.
  std::vector<Symbol> symbols() const;

  // The segments of a type (PT_GNU_STACK).
  std::vector<ElfW(Phdr)> segments(unsigned type) const;

  // The values of the dynamic entries with a tag (DT_FLAGS), in order.
  std::vector<Address> dynamicValues(long tag) const;
  // The same for tags whose value is a text (DT_NEEDED).
  std::vector<std::string> dynamicTexts(long tag) const;

 private:
  // A section, null when there is none of that type.
  const ElfW(Shdr) * section(unsigned type) const;
  // The entries of a section that is a table.
  template <class Entry>
  std::vector<Entry> entries(const ElfW(Shdr) * table) const;
  // A text of the string table that belongs to `table`.
  std::string textOf(const ElfW(Shdr) & table, std::size_t offset) const;

  std::string bytes_;
  std::vector<ElfW(Shdr)> sections_;
};

}  // namespace driver_feature::testing

#endif  // TESTS_ABI_ELF_FILE_H_
