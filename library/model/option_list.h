// The options of a feature: in which order they are, and which one a search
// finds. Logs nothing of its own.
#ifndef MODEL_OPTION_LIST_H_
#define MODEL_OPTION_LIST_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/core_option.h"
#include "model/own_names.h"

namespace driver_feature {

// Positions count from 0 in the order of addition. Options are never removed,
// so that a position keeps its option. Holds plain pointers and frees none.
//
// A search has the attribute's name resolved once and reads the library's own
// options where they hold their values. As soon as there is one of a host's class,
// it asks the options, and through them the platform: either may add options
// meanwhile. Searches therefore go by position.
class OptionList {
 public:
  void add(CoreOption* option) {
    if (options_.empty()) options_.reserve(kUsual);
    options_.push_back(option);
  }

  int size() const { return static_cast<int>(options_.size()); }

  // The option at a position; null when there is no such position.
  CoreOption* at(int position) const {
    const auto index = static_cast<std::size_t>(position);  // Negative: beyond every list.
    return index < options_.size() ? options_[index] : nullptr;
  }

  // The position of the first option whose property `attribute` is `value`, or
  // -1. Required: the reads are not checked and share one text, so that an
  // unknown attribute with an empty value matches the first option.
  int findPosition(const std::string& attribute, const std::string& value);

  // The first option whose property `attribute` can be read and is `value`, or
  // null.
  CoreOption* findReadable(const std::string& attribute, const std::string& value);

  // The position of the next option after `start`, wrapping around, that is
  // available; nothing when there is none. The option at `start` is not looked
  // at. From outside the list, every option is.
  std::optional<int> findNextAvailable(int start) const;

 private:
  static constexpr std::size_t kUsual = 8;  // Most lists have no more.

  std::optional<int> findAmongOwn(const std::string& attribute, const std::string& value);
  // With a known flag, the library's own options need not be asked for it.
  bool isAvailable(int position, bool isFlagKnown) const;

  std::vector<CoreOption*> options_;
  OwnNames names_;
};

}  // namespace driver_feature

#endif  // MODEL_OPTION_LIST_H_
