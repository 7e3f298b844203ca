// How texts of descriptions and users are counted and shown: as UTF-8, where
// a byte that is not valid UTF-8 counts as itself.
#ifndef HOST_BASE_TEXT_H_
#define HOST_BASE_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::host {

// The characters (code points) of a text, each as the bytes that spell it.
// The parts point into `text`.
std::vector<std::string_view> splitCharacters(std::string_view text);

// The number of terminal columns that a text takes: two for East Asian wide
// characters and emoji, none for combining marks.
std::size_t displayWidth(std::string_view text);

// The text on one line and harmless to a terminal: a line end, a tab and a
// carriage return are written as \n, \t and \r, other control characters as \xNN.
std::string printable(std::string_view text);

// The text with U+XXXX in place of each character beyond ASCII that cannot be
// seen or is not defined by Unicode: blanks other than the ordinary one, marks
// of direction, private characters. Japanese and Chinese blanks stay.
std::string spellOutInvisible(std::string_view text);

// The byte as \xNN.
std::string escapedByte(char byte);

// The byte as %NN, with capital digits, as URIs and workflow commands have it.
std::string percentEncoded(char byte);

// The text with each %NN replaced by its byte; anything else is kept. In the
// query of a URL a plus sign is a blank, as browsers write it.
enum class PlusSign { kItself, kBlank };
std::string percentDecoded(std::string_view text, PlusSign plus = PlusSign::kItself);

// "1 file", "2 files": `several` is the plural of words that need more than an
// "s".
std::string counted(long count, const std::string& one);
std::string counted(long count, const std::string& one, const std::string& several);

// The text without the characters of `blanks` at its ends.
std::string_view trimmed(std::string_view text, std::string_view blanks);

// The text between double quotes, for messages.
std::string inQuotes(std::string_view text);

// The text with small letters in place of the capital ones of ASCII, whatever
// the locale.
std::string toLower(std::string text);
char toLower(char character);

// The texts with `separator` between each two.
std::string join(const std::vector<std::string>& texts, const std::string& separator);

// "A4, A3, A5": what there is to choose from, for messages. Of more than ten
// names the first ten, and how many more there are.
std::string listed(const std::vector<std::string>& names);

}  // namespace driver_feature::host

#endif  // HOST_BASE_TEXT_H_
