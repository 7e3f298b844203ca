#include "host/ppd/plain/plain_text.h"

#include <algorithm>
#include <cstring>

#include "host/ppd/plain/keywords.h"
#include "host/ppd/plain/line_stamp.h"

namespace driver_feature::ppd {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Takes a line from the text; without its end, LF or CR LF.
std::string_view takeTextLine(std::string_view& text) {
  const void* found = std::memchr(text.data(), '\n', text.size());
  const std::size_t size =
      found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data())
                       : text.size();
  std::string_view line = text.substr(0, size);
  text.remove_prefix(std::min(size + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool hasOddMarks(std::string_view text) {
  bool isOdd = false;
  for (std::size_t at = text.find('"'); at != std::string_view::npos; at = text.find('"', at + 1)) {
    isOdd = !isOdd;
  }
  return isOdd;
}

// A statement: *KEYWORD OPTION/TRANSLATION: VALUE
struct Statement {
  std::string_view keyword;
  std::string_view option;
  std::string_view value;  // Without quotation marks.
};

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::optional<PlainText> read() {
    if (!text_.starts_with("*PPD-Adobe:")) return std::nullopt;
    std::string_view rest = text_;
    while (!rest.empty() && isPlain_) {
      const std::string_view line = takeTextLine(rest);
      stampLine(line);
      if (!line.starts_with('*') || line.starts_with("*%")) continue;
      takeStatement(line, rest);
    }
    if (!isPlain_) return std::nullopt;
    assignDefaults();
    sortGroups();
    result_.stamp = stamp_.text();
    return std::move(result_);
  }

 private:
  // Which lines the schedulers' programs write anew when defaults change.
  void stampLine(std::string_view line) {
    if (line.starts_with("*Default")) return;
    if (line.starts_with('*') && line.substr(1).starts_with(kStampKeyword)) return;
    stamp_.add(line);
  }

  // `rest` has the lines after the statement's first one; a value in quotation
  // marks may go on there.
  void takeStatement(std::string_view line, std::string_view& rest) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    std::string_view value = line.substr(colon + 1);
    if (hasOddMarks(value)) {
      std::string_view last;
      do {
        if (rest.empty()) break;
        last = takeTextLine(rest);
        stampLine(last);
      } while (!hasOddMarks(last));
      const char* end = last.data() + last.size();
      if (last.data() != nullptr) {
        value = std::string_view(value.data(), static_cast<std::size_t>(end - value.data()));
      }
    }
    // Nothing of a constraint is taken, and some files have thousands.
    if (line.starts_with("*UIConstraints:")) return;
    take(partsOf(line.substr(1, colon - 1), trimmed(value)));
  }

  static Statement partsOf(std::string_view head, std::string_view value) {
    Statement statement;
    const auto* end = std::find_if(head.begin(), head.end(), &isBlank);
    statement.keyword = head.substr(0, static_cast<std::size_t>(end - head.begin()));
    const std::string_view option = head.substr(statement.keyword.size());
    statement.option = trimmed(option.substr(0, option.find('/')));
    statement.value = value;
    if (value.starts_with('"')) {
      const std::size_t mark = value.find('"', 1);
      statement.value = value.substr(1, mark == std::string_view::npos ? mark : mark - 1);
    }
    return statement;
  }

  void take(const Statement& statement) {
    const std::string_view keyword = statement.keyword;
    if (isOpen_ && keyword == result_.options[open_].keyword && !statement.option.empty()) {
      result_.options[open_].choices.push_back({statement.option, statement.value.empty()});
    } else if (keyword == "OpenUI" || keyword == "JCLOpenUI") {
      openOption(statement, keyword == "JCLOpenUI");
    } else if (keyword == "CloseUI" || keyword == "JCLCloseUI") {
      isOpen_ = false;
    } else if (keyword == "OpenGroup") {
      group_ = statement.value.substr(0, statement.value.find('/'));
    } else if (keyword == "CloseGroup") {
      group_ = kGeneral;
    } else if (keyword.starts_with("Default")) {
      const std::string_view value = statement.value.substr(0, statement.value.find('/'));
      defaults_.emplace_back(keyword.substr(std::strlen("Default")), trimmed(value));
    } else if (keyword.starts_with("DriverFeature") || keyword == "JCLBegin" ||
               keyword == "JCLToPSInterpreter" || keyword == "JCLEnd") {
      result_.attributes.emplace_back(keyword, statement.value);
    } else if (keyword == "RequiresPageRegion") {
      const auto size = static_cast<std::size_t>(statement.option.data() + statement.option.size() -
                                                 keyword.data());
      result_.attributes.emplace_back(std::string_view(keyword.data(), size), statement.value);
    }
  }

  void openOption(const Statement& statement, bool isJobControl) {
    if (!statement.option.starts_with('*')) return;
    if (statement.value == "PickMany") isPlain_ = false;
    open_ = result_.options.size();
    isOpen_ = true;
    PlainOption option;
    option.keyword = statement.option.substr(1);
    option.group = isJobControl ? kJobControl : group_;
    result_.options.push_back(std::move(option));
  }

  void assignDefaults() {
    for (const auto& [keyword, value] : defaults_) {
      if (keyword == "OutputOrder") result_.attributes.emplace_back("DefaultOutputOrder", value);
      for (PlainOption& option : result_.options) {
        if (option.keyword == keyword) option.defaultName = value;
      }
    }
  }

  // libcups keeps each group together, where its first option is.
  void sortGroups() {
    std::vector<std::string_view> groups;
    const auto placeOf = [&groups](const PlainOption& option) {
      return std::find(groups.begin(), groups.end(), option.group) - groups.begin();
    };
    for (const PlainOption& option : result_.options) {
      if (placeOf(option) == static_cast<std::ptrdiff_t>(groups.size())) {
        groups.push_back(option.group);
      }
    }
    std::stable_sort(
        result_.options.begin(), result_.options.end(),
        [&](const auto& left, const auto& right) { return placeOf(left) < placeOf(right); });
  }

  static constexpr std::string_view kGeneral = "General";
  static constexpr std::string_view kJobControl = "JCL";

  std::string_view text_;
  PlainText result_;
  LineStamp stamp_;
  std::vector<std::pair<std::string_view, std::string_view>> defaults_;
  std::string_view group_ = kGeneral;
  std::size_t open_ = 0;  // The option whose choices follow, when isOpen_.
  bool isOpen_ = false;
  bool isPlain_ = true;
};

}  // namespace

std::optional<std::size_t> PlainOption::find(std::string_view name) const {
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (equalKeywords(choices[i].name, name)) return i;
  }
  return std::nullopt;
}

std::optional<std::string_view> PlainText::attribute(std::string_view name) const {
  for (const auto& [each, value] : attributes) {
    if (each == name) return value;
  }
  return std::nullopt;
}

std::optional<PlainText> readPlainText(std::string_view text) {
  return Reader(text).read();
}

}  // namespace driver_feature::ppd
