#include "host/session/exported_symbols.h"

#include <algorithm>
#include <cstdint>

namespace driver_feature::host {

namespace {

// The tables that the loader uses itself.
struct Tables {
  const ElfW(Sym) * symbols = nullptr;
  const char* names = nullptr;
  const std::uint32_t* hash = nullptr;     // DT_HASH
  const std::uint32_t* gnuHash = nullptr;  // DT_GNU_HASH
};

// The loader has made most entries addresses, but not everywhere.
template <class Entry>
const Entry* tableAt(const link_map& library, ElfW(Addr) address) {
  if (address < library.l_addr) address += library.l_addr;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader keeps addresses as numbers.
  return reinterpret_cast<const Entry*>(address);
}

Tables tablesOf(const link_map& library) {
  Tables tables;
  for (const ElfW(Dyn)* entry = library.l_ld; entry->d_tag != DT_NULL; ++entry) {
    const ElfW(Addr) address = entry->d_un.d_ptr;
    if (entry->d_tag == DT_SYMTAB) tables.symbols = tableAt<ElfW(Sym)>(library, address);
    if (entry->d_tag == DT_STRTAB) tables.names = tableAt<char>(library, address);
    if (entry->d_tag == DT_HASH) tables.hash = tableAt<std::uint32_t>(library, address);
    if (entry->d_tag == DT_GNU_HASH) tables.gnuHash = tableAt<std::uint32_t>(library, address);
  }
  return tables;
}

// The table of symbols has no length of its own; the hash table knows the last
// one.
std::size_t countSymbols(const Tables& tables) {
  if (tables.hash != nullptr) return tables.hash[1];
  if (tables.gnuHash == nullptr) return 0;
  const std::uint32_t bucketCount = tables.gnuHash[0];
  const std::uint32_t firstHashed = tables.gnuHash[1];
  const std::uint32_t filterWords = tables.gnuHash[2];
  const auto* buckets =
      tables.gnuHash + 4 + std::size_t{filterWords} * (sizeof(ElfW(Addr)) / sizeof(std::uint32_t));
  const std::uint32_t* chains = buckets + bucketCount;
  std::uint32_t last = *std::max_element(buckets, buckets + bucketCount);
  if (last < firstHashed) return firstHashed;
  while ((chains[last - firstHashed] & 1U) == 0) ++last;
  return std::size_t{last} + 1;
}

bool isFunction(const ElfW(Sym) & symbol) {
  const auto type = ELF64_ST_TYPE(symbol.st_info);  // The same for both classes.
  return symbol.st_shndx != SHN_UNDEF && (type == STT_FUNC || type == STT_GNU_IFUNC);
}

}  // namespace

std::vector<std::string> exportedFunctions(const link_map& library) {
  std::vector<std::string> functions;
  const Tables tables = tablesOf(library);
  if (tables.symbols == nullptr || tables.names == nullptr) return functions;
  const std::size_t count = countSymbols(tables);
  for (std::size_t i = 0; i < count; ++i) {
    const ElfW(Sym)& symbol = tables.symbols[i];
    if (isFunction(symbol)) functions.emplace_back(tables.names + symbol.st_name);
  }
  return functions;
}

}  // namespace driver_feature::host
