#include "host/description/po_file.h"

#include <charconv>
#include <csetjmp>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "host/base/child_process.h"
#include "host/base/input_file.h"
#include "host/base/text.h"
#include "host/description/addition_reader.h"
#include "host/description/gettext_po.h"
#include "host/description/text_encoding.h"

namespace driver_feature::host {

namespace {

// What the child process reports: rows of four texts.
constexpr std::size_t kRowSize = 4;  // Kind, line, key, text.
constexpr const char* kTextRow = "text";
constexpr const char* kFaultRow = "fault";
constexpr const char* kNoKeyRow = "no key";

// The library reports faults to functions that get nothing of ours. They run in
// the child process alone.
std::vector<std::string>* reported = nullptr;
std::jmp_buf afterFatalFault;

// A long message is broken into lines.
std::string messageOf(const char* message) {
  std::string text(trimmed(message, " \t\n"));
  for (char& character : text) {
    if (character == '\n') character = ' ';
  }
  return text;
}

void note(const char* kind, std::size_t line, std::string key, std::string text) {
  reported->insert(reported->end(), {kind, std::to_string(line), std::move(key), std::move(text)});
}

void noteFault(int severity, po_message_t /*message*/, const char* file, std::size_t line,
               std::size_t /*column*/, int /*isLong*/, const char* text) {
  const bool hasLine = file != nullptr && line != static_cast<std::size_t>(-1);
  // Without a line: "found 3 fatal errors".
  const bool isSummary = !hasLine && !reported->empty();
  if (severity != PO_SEVERITY_WARNING && !isSummary) {
    note(kFaultRow, hasLine ? line : 0, "", messageOf(text));
  }
  if (severity != PO_SEVERITY_FATAL_ERROR) return;
  // Required: the library goes on as if all were well when this returns. What it
  // has in memory ends with the process.
  std::longjmp(afterFatalFault, 1);  // NOLINT(cert-err52-cpp): through frames of C.
}

void noteTwoFaults(int severity, po_message_t message, const char* file, std::size_t line,
                   std::size_t column, int isLong, const char* text, po_message_t /*message2*/,
                   const char* /*file2*/, std::size_t /*line2*/, std::size_t /*column2*/,
                   int /*isLong2*/, const char* /*text2*/) {
  noteFault(severity, message, file, line, column, isLong, text);
}

bool beginsWithWord(std::string_view line, std::string_view word) {
  return line.starts_with(word) && line.substr(word.size()).find_first_of(" \t\"") == 0;
}

// The line of each entry, which the library knows and does not return.
std::vector<std::size_t> linesOfEntries(std::string_view text) {
  std::vector<std::size_t> lines;
  std::size_t context = 0;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = trimmed(text.substr(0, end), " \t\r");
    if (line.starts_with("#~")) line = trimmed(line.substr(2), " \t");
    if (beginsWithWord(line, "msgctxt")) context = number;
    if (beginsWithWord(line, "msgid")) {
      lines.push_back(context != 0 ? context : number);
      context = 0;
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string charsetOf(const GettextPo& po, po_file_t file) {
  const char* header = po.header(file, nullptr);
  if (header == nullptr) return "";
  char* type = po.headerField(header, "Content-Type");
  if (type == nullptr) return "";
  const std::string text = type;
  std::free(type);  // NOLINT(cppcoreguidelines-no-malloc): the library's malloc().
  constexpr std::string_view kWord = "charset=";
  const std::size_t place = text.find(kWord);
  return place != std::string::npos ? text.substr(place + kWord.size()) : "";
}

void noteEntry(const GettextPo& po, po_message_t message, std::size_t line,
               const std::string& charset) {
  const bool isPlural = po.pluralId(message) != nullptr;
  const char* text = isPlural ? po.pluralTranslation(message, 0) : po.translation(message);
  const bool isUsed = po.isObsolete(message) == 0 && po.isFuzzy(message) == 0;
  if (!isUsed || text == nullptr || *text == '\0') return;
  const char* key = po.context(message);
  if (key != nullptr) {
    return note(kTextRow, line, decodeText(key, charset), decodeText(text, charset));
  }
  // The header has an empty msgid.
  if (*po.id(message) != '\0') note(kNoKeyRow, line, "", decodeText(po.id(message), charset));
}

void noteEntries(const GettextPo& po, po_file_t file, const std::vector<std::size_t>& lines) {
  const std::string charset = charsetOf(po, file);
  std::vector<po_message_t> messages;
  auto* const iterator = po.iterator(file, nullptr);
  while (po_message_t message = po.next(iterator)) messages.push_back(message);
  const bool hasLines = messages.size() == lines.size();
  for (std::size_t i = 0; i < messages.size(); ++i) {
    noteEntry(po, messages[i], hasLines ? lines[i] : 0, charset);
  }
}

// Runs in a child process, which a fatal fault leaves unusable.
std::vector<std::string> readEntries(const GettextPo& po, const std::string& path,
                                     const std::vector<std::size_t>& lines) {
  static std::vector<std::string> rows;
  rows.clear();
  reported = &rows;
  const po_xerror_handler handler = {&noteFault, &noteTwoFaults};
  // NOLINTNEXTLINE(cert-err52-cpp): the library is C and offers nothing else.
  if (setjmp(afterFatalFault) == 0) {
    auto* const file = po.read(path.c_str(), &handler);
    if (file == nullptr && rows.empty()) note(kFaultRow, 0, "", "the file is damaged");
    // After a fault, what was read may not be what was written.
    if (rows.empty()) noteEntries(po, file, lines);
  }
  return std::move(*reported);
}

class RowTaker {
 public:
  RowTaker(const std::string& path, PoTexts& result) : path_(path), result_(result) {}

  void take(const std::string& kind, const std::string& line, const std::string& key,
            const std::string& text) {
    SourcePlace place{path_, {0, 0}};
    std::from_chars(line.data(), line.data() + line.size(), place.position.line);
    if (kind == kTextRow) {
      result_.texts.texts.push_back({key, text, place});
    } else if (kind == kFaultRow) {
      refuse(place.position, kUnreadableCause, "the translations cannot be read: " + text,
             "check the file with msgfmt --check");
    } else {
      refuse(place.position, kTextEntryCause,
             "the translation of " + inQuotes(text) + " does not belong to anything",
             "give the key of the text, such as \"Duplex.None\", in msgctxt");
    }
  }

  void refuse(Position position, const char* cause, std::string text, std::string remedy) {
    result_.problems.push_back(
        {Problem::Kind::kUnreadable, std::move(text), std::move(remedy), cause, path_, position});
  }

 private:
  const std::string& path_;
  PoTexts& result_;
};

// Nothing, and a problem in `result`, when the library is not there.
const GettextPo* findLibrary(const std::string& path, PoTexts& result) {
  try {
    return &gettextPo();
  } catch (const std::runtime_error& missing) {
    result.problems.push_back(
        {Problem::Kind::kNotLoaded, missing.what(), "", kUnreadableCause, path, {}});
    return nullptr;
  }
}

}  // namespace

PoTexts readPoFile(const std::string& path, const std::string& language) {
  PoTexts result{{language, {}, {path, {}}}, {}};
  RowTaker taker(path, result);
  const GettextPo* po = findLibrary(path, result);
  if (po == nullptr) return result;
  const Result<std::string> text = readFile(path);
  if (!text) {
    taker.refuse({}, kUnreadableCause, text.error().text, "make it readable");
    return result;
  }
  const std::vector<std::size_t> lines = linesOfEntries(*text);
  const auto rows =
      runInChild(ChildStreams::kDropped, [&] { return readEntries(*po, path, lines); });
  if (!rows) {
    taker.refuse({}, kUnreadableCause, "the translations cannot be read: " + rows.error().text,
                 "check the file with msgfmt --check");
    return result;
  }
  for (std::size_t i = 0; i + kRowSize <= rows->size(); i += kRowSize) {
    taker.take((*rows)[i], (*rows)[i + 1], (*rows)[i + 2], (*rows)[i + 3]);
  }
  return result;
}

}  // namespace driver_feature::host
