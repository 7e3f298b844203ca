#include "host/description/xml_fault.h"

#include <optional>
#include <vector>

#include "host/description/source_text.h"

namespace driver_feature::host {

namespace {

// A message of the parser and ours. Each "*" of the message means
// any text, which $1, $2 and $3 repeat.
struct FaultRow {
  const char* message;
  const char* text;
  const char* remedy;
  char mark = 0;  // The last one before the parser's place is the fault.
};

constexpr FaultRow kRows[] = {
    {"xmlParseEntityRef: no name", "\"&\" begins a reference here, and no name follows it",
     "write &amp; for the character itself", '&'},
    {"EntityRef: expecting ';'", "\"&\" begins a reference here, and no \";\" ends it",
     "write &amp; for the character itself, or end the reference with \";\"", '&'},
    {"Entity '*' not defined", "there is no entity \"&$1;\"",
     "write the character itself or its number, as in &#160;; the names are amp, lt, gt, quot and "
     "apos",
     '&'},
    {"entity '*' is declared; *", "entity \"$1\" is declared, which is not accepted",
     "remove the declaration and write the text itself where the entity is used"},
    {"attribute '*' is given a default value; *",
     "attribute \"$1\" is given a default value, which is not accepted",
     "remove the declaration and give the value to each element"},
    {"xmlParseCharRef: invalid xmlChar value *", "character number $1 is not allowed in XML",
     "remove it, or write a byte escape such as &#xF71B; with ByteEscapes=\"yes\"", '&'},
    {"xmlParseCharRef: invalid *", "the number of this character is not understood",
     "write it as in &#10; or &#x0A;", '&'},
    {"CharRef: *", "the number of this character is not understood",
     "write it as in &#10; or &#x0A;", '&'},
    {"Unescaped '<' not allowed in attributes values", "\"<\" is not allowed in a value",
     "write &lt; for it, or end the value before it with a quotation mark", '<'},
    {"AttValue: * expected", "the value of an attribute has no quotation mark here",
     "write it as in NAME=\"VALUE\""},
    {"Specification mandate* value for attribute *", "attribute \"$2\" has no value",
     "write $2=\"VALUE\", or remove it"},
    {"attributes construct error", "this is not an attribute",
     "write NAME=\"VALUE\", with a blank before each attribute and one pair of quotation marks"},
    {"Attribute * redefined", "attribute \"$1\" is given twice", "remove one of them"},
    {"Couldn't find end of Start Tag * line *", "the start tag <$1> of line $2 does not end",
     "end it with \">\", or with \"/>\" if nothing is inside"},
    {"StartTag: invalid element name", "no name of an element follows this \"<\"",
     "write &lt; for the character itself", '<'},
    {"Opening and ending tag mismatch: * line * and *",
     "</$3> ends an element while <$1> of line $2 is still open",
     "write </$1> before it, or correct one of the names"},
    {"Premature end of data in tag * line *", "the file ends while <$1> of line $2 is still open",
     "write </$1> where the element ends"},
    {"EndTag: '</' not found", "the file ends while an element is still open", "write its end tag"},
    {"expected '>'", "the tag does not end here", "write \">\""},
    {"Extra content at the end of the document", "something follows the end of the root element",
     "put it into the root element, or remove it"},
    {"Start tag expected, '<' not found", "there is no element", "give a file that is XML"},
    {"Document is empty", "there is no element", "give a file that is XML"},
    {"is empty", "the file is empty", "give a file that is XML"},
    {"* NUL character follows the root element", "a NUL character follows the root element",
     "remove it and what follows"},
    {"PCDATA invalid Char value *", "character number $1 is not allowed in XML",
     "remove it, or write a byte escape such as &#xF71B; with ByteEscapes=\"yes\""},
    {"invalid character in attribute value", "a character is not allowed in XML",
     "remove it, or write a byte escape such as &#xF71B; with ByteEscapes=\"yes\""},
    {"Char 0x* out of allowed range", "the character 0x$1 is not allowed in XML", "remove it"},
    {"xmlParseComment: invalid xmlChar value *", "character number $1 is not allowed in XML",
     "remove it"},
    {"Input is not proper UTF-8*", "a byte here is not UTF-8",
     "save the file as UTF-8, or name its encoding in the first line: <?xml version=\"1.0\" "
     "encoding=\"ISO-8859-1\"?>"},
    {"input conversion failed *", "a byte here does not belong to the encoding that the file names",
     "save the file as UTF-8, or correct encoding=\"...\" in its first line"},
    {"Unsupported encoding *", "the encoding \"$1\" is not known",
     "save the file as UTF-8 and leave encoding=\"...\" out"},
    {"Comment not terminated*", "a comment does not end", "end it with -->"},
    {"Comment must not contain '--' *", "\"--\" is not allowed in a comment", "write one hyphen"},
    {"Double hyphen within comment*", "\"--\" is not allowed in a comment", "write one hyphen"},
    {"CData section not finished*", "a CDATA section does not end", "end it with ]]>"},
    {"Sequence ']]>' not allowed in content", "\"]]>\" is not allowed here", "write ]]&gt; for it"},
    {"XML declaration allowed only at the start of the document",
     "the XML declaration is not at the start of the file",
     "remove what is before it, blanks and empty lines too"},
    {"ParsePI: * never end*", "a processing instruction does not end", "end it with ?>"},
    {"Namespace prefix * for * on * is not defined",
     "the prefix \"$1\" of attribute \"$2\" of <$3> is not declared",
     "remove the prefix, or declare it with xmlns:$1=\"...\""},
    {"Namespace prefix * on * is not defined", "the prefix \"$1\" of <$2> is not declared",
     "remove the prefix, or declare it with xmlns:$1=\"...\""},
    {"elements are nested deeper than 256", "elements are nested deeper than 256",
     "nest them less deep"},
};

using Captures = std::vector<std::string>;

// The texts in place of the stars; nothing when the message is another one.
std::optional<Captures> match(std::string_view pattern, std::string_view message) {
  Captures captures;
  while (true) {
    const std::size_t star = pattern.find('*');
    const std::string_view fixed = pattern.substr(0, star);
    if (!message.starts_with(fixed)) return std::nullopt;
    message.remove_prefix(fixed.size());
    if (star == std::string_view::npos)
      return message.empty() ? std::optional(captures) : std::nullopt;
    pattern.remove_prefix(star + 1);
    const std::string_view next = pattern.substr(0, pattern.find('*'));
    const std::size_t end = next.empty() ? message.size() : message.find(next);
    if (end == std::string_view::npos) return std::nullopt;
    captures.emplace_back(message.substr(0, end));
    message.remove_prefix(end);
  }
}

std::string fill(std::string_view text, const Captures& captures) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isNumber = text[i] == '$' && i + 1 < text.size();
    const std::size_t number = isNumber ? static_cast<std::size_t>(text[i + 1] - '0') : 0;
    if (number < 1 || number > captures.size()) {
      filled += text[i];
      continue;
    }
    filled += captures[number - 1];
    ++i;
  }
  return filled;
}

// The last `mark` of the line before the position; the position without one.
// The parser counts bytes, messages count characters.
Position placeOf(char mark, Position position, const SourceText& source) {
  const auto line = source.line(position.line);
  if (!line || position.column < 1) return position;
  const std::size_t end = static_cast<std::size_t>(position.column) - 1;
  std::string_view before = line->substr(0, end);
  if (mark != 0) {
    const std::size_t found = line->substr(0, end + 1).rfind(mark);
    if (found != std::string_view::npos) before = line->substr(0, found);
  }
  int column = 1;
  for (const char byte : before) column += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  return {position.line, end > line->size() ? position.column : column};
}

}  // namespace

XmlFault xmlFault(const std::string& message, Position position, std::string_view utf8) {
  const SourceText source(utf8);
  for (const FaultRow& row : kRows) {
    const auto captures = match(row.message, message);
    if (!captures) continue;
    return {fill(row.text, *captures), fill(row.remedy, *captures),
            placeOf(row.mark, position, source)};
  }
  return {"the text is not XML", "correct it there or just before", placeOf(0, position, source)};
}

}  // namespace driver_feature::host
