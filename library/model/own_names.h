// The names of the library's own objects in a list, for finding the first of a
// name without asking all of them.
#ifndef MODEL_OWN_NAMES_H_
#define MODEL_OWN_NAMES_H_

#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <string_view>

#include "model/name_index.h"

class CoreFeature;

namespace driver_feature {

// Lists with fewer objects have no index.
inline constexpr int kLongList = 16;

// To be called when an object that may be in a list gets another name, and when
// a list loses objects. Every index is made anew at its next use.
void noteNameChange();
unsigned long nameChanges();

// The name of a feature or group of the library's own. Nothing for null and for
// an object of a host's class.
std::optional<std::string_view> nameOfOwn(const CoreFeature* object);

// Belongs to a list that only grows, apart from what noteNameChange() reports.
class OwnNames {
 public:
  // The first position of `name` among the first `count` objects, or -1. Nothing
  // when the objects have to be asked: there is one of a host's class, whose name
  // only it knows, or no memory for the index. `nameAt` returns the name at a
  // position as a std::optional<std::string_view>; nothing for an object that is
  // not the library's own.
  template <class NameAt>
  std::optional<int> find(std::string_view name, int count, const NameAt& nameAt) {
    if (count >= kLongList && isSearchedAgain_) return findIndexed(name, count, nameAt);
    isSearchedAgain_ = count >= kLongList;
    for (int i = 0; i < count; ++i) {
      const std::optional<std::string_view> found = nameAt(i);
      if (!found) return std::nullopt;
      if (*found == name) return i;
    }
    return -1;
  }

 private:
  template <class NameAt>
  std::optional<int> findIndexed(std::string_view name, int count, const NameAt& nameAt) try {
    if (index_ == nullptr) index_ = std::make_unique<NameIndex>();
    if (changes_ != nameChanges()) index_->clear();
    changes_ = nameChanges();
    bool allOwn = true;
    const auto nameOf = [&](std::size_t position) {
      const std::optional<std::string_view> found = nameAt(static_cast<int>(position));
      allOwn = allOwn && found.has_value();
      return found.value_or(std::string_view());
    };
    while (allOwn && index_->count() < static_cast<std::size_t>(count)) {
      if (!nameAt(static_cast<int>(index_->count()))) return std::nullopt;
      index_->add(nameOf);
    }
    const int position = index_->find(name, nameOf);
    return allOwn ? std::optional<int>(position) : std::nullopt;
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }

  // Made when a long list is searched a second time: it takes as long as ten
  // searches of all names. Most lists of a description are searched once, for the
  // default.
  std::unique_ptr<NameIndex> index_;
  unsigned long changes_ = 0;
  bool isSearchedAgain_ = false;
};

}  // namespace driver_feature

#endif  // MODEL_OWN_NAMES_H_
