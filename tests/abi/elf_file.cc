#include "abi/elf_file.h"

#include <elf.h>

#include <cstring>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace driver_feature::testing {

namespace {

constexpr unsigned char kThisClass = sizeof(void*) == 4 ? ELFCLASS32 : ELFCLASS64;

// The objects of a type that follow one another at `offset`.
template <class Object>
std::vector<Object> objectsAt(const std::string& bytes, std::size_t offset, std::size_t count) {
  std::vector<Object> objects(count);
  if (offset + count * sizeof(Object) > bytes.size()) {
    ADD_FAILURE() << "the file ends inside of a table at " << offset;
    return {};
  }
  if (count > 0) std::memcpy(objects.data(), bytes.data() + offset, count * sizeof(Object));
  return objects;
}

}  // namespace

ElfFile::ElfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  bytes_ = content.str();
  const auto headers = objectsAt<ElfW(Ehdr)>(bytes_, 0, 1);
  if (headers.empty() || std::memcmp(headers[0].e_ident, ELFMAG, SELFMAG) != 0 ||
      headers[0].e_ident[EI_CLASS] != kThisClass || headers[0].e_type != ET_DYN) {
    ADD_FAILURE() << path << " is not a shared library that this program can load";
    bytes_.clear();
    return;
  }
  sections_ = objectsAt<ElfW(Shdr)>(bytes_, headers[0].e_shoff, headers[0].e_shnum);
}

std::vector<ElfFile::Symbol> ElfFile::symbols() const {
  const ElfW(Shdr)* table = section(SHT_SYMTAB);
  std::vector<Symbol> symbols;
  for (const auto& entry : entries<ElfW(Sym)>(table)) {
    // The bits mean the same in both classes.
    symbols.push_back({textOf(*table, entry.st_name), entry.st_value,
                       static_cast<std::size_t>(entry.st_size),
                       ELF32_ST_BIND(entry.st_info) == STB_LOCAL, entry.st_shndx != SHN_UNDEF});
  }
  return symbols;
}

std::vector<ElfW(Phdr)> ElfFile::segments(unsigned type) const {
  std::vector<ElfW(Phdr)> found;
  if (bytes_.empty()) return found;
  const ElfW(Ehdr) header = objectsAt<ElfW(Ehdr)>(bytes_, 0, 1)[0];
  for (const auto& segment : objectsAt<ElfW(Phdr)>(bytes_, header.e_phoff, header.e_phnum)) {
    if (segment.p_type == type) found.push_back(segment);
  }
  return found;
}

std::vector<ElfFile::Address> ElfFile::dynamicValues(long tag) const {
  std::vector<Address> values;
  for (const auto& entry : entries<ElfW(Dyn)>(section(SHT_DYNAMIC))) {
    if (entry.d_tag == tag) values.push_back(entry.d_un.d_val);
  }
  return values;
}

std::vector<std::string> ElfFile::dynamicTexts(long tag) const {
  std::vector<std::string> texts;
  for (const Address offset : dynamicValues(tag)) {
    texts.push_back(textOf(*section(SHT_DYNAMIC), offset));
  }
  return texts;
}

const ElfW(Shdr) * ElfFile::section(unsigned type) const {
  for (const auto& candidate : sections_) {
    if (candidate.sh_type == type) return &candidate;
  }
  return nullptr;
}

template <class Entry>
std::vector<Entry> ElfFile::entries(const ElfW(Shdr) * table) const {
  if (table == nullptr) return {};
  return objectsAt<Entry>(bytes_, table->sh_offset, table->sh_size / sizeof(Entry));
}

std::string ElfFile::textOf(const ElfW(Shdr) & table, std::size_t offset) const {
  const std::size_t start = sections_.at(table.sh_link).sh_offset + offset;
  return start < bytes_.size() ? bytes_.c_str() + start : "";
}

}  // namespace driver_feature::testing
