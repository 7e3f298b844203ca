// Names of attributes and keywords, as IPP has them.
#ifndef HOST_IPP_WORDS_H_
#define HOST_IPP_WORDS_H_

#include <optional>
#include <map>
#include <string>
#include <string_view>

namespace driver_feature::ipp {

// Whether the text is a keyword: a small letter, then small letters, digits, "-",
// "." and "_", 255 characters at most.
bool isKeyword(std::string_view text);

// A keyword for a name of a description: "TonerSave" becomes "toner-save", "+3"
// "plus-3", "2 Holes" "n-2-holes". Different names may get the same.
std::string keywordFor(std::string_view name);

// The name without the differences that do not matter: capital letters, blanks,
// hyphens, dots and underscores.
std::string bareName(std::string_view name);

// Whether the word is one of those between blanks.
bool isAmong(std::string_view words, std::string_view word);

// The whole text as a number.
std::optional<int> integerIn(std::string_view text);
std::optional<double> decimalIn(std::string_view text);

// Words that must differ from each other.
class DistinctWords {
 public:
  bool has(const std::string& word) const { return words_.contains(word); }

  // Adds the word; one that is there already gets a number: "word-2". Returns it.
  std::string add(const std::string& word);

 private:
  // Each word, and the last number that it was tried with: thousands may be alike.
  std::map<std::string, int> words_;
};

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_WORDS_H_
