// Compares the constraints and texts of PPDs that were made of imported
// descriptions with those of the printers' PPDs, as libcups finds them.
//
//   queue_rules < PAIRS
//
// Each line of PAIRS holds the path of a printer's PPD, a tab, and the path of
// the queue's. Compared are, for each choice that both have, made alone after the
// defaults, the options that it conflicts with; and the texts of groups, options
// and choices in no language and in each that the printer's has. A line of output for
// each pair with a difference names the PPD, the number and the first of them; the
// last line holds the figures. The exit status is 1 when there was a difference or
// a PPD that cannot be read.

#include <cups/cups.h>
#include <cups/ppd.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <set>
#include <string>

namespace {

using Ppd = std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)>;
using Names = std::set<std::string>;

struct Figures {
  long pairs = 0;
  long choices = 0;
  long conflicts = 0;
  long texts = 0;
  long damaged = 0;  // Of the printers' texts; these are not compared.
  long languages = 0;
};

struct Differences {
  long count = 0;
  std::string first;

  void add(const std::string& what) {
    if (count++ == 0) first = what;
  }
};

// libcups takes the language from the environment whenever it opens a PPD.
Ppd open(const std::string& path, const std::string& language) {
  // These would win over the language.
  std::setlocale(LC_ALL, "C");
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"}) ::unsetenv(name);
  ::setenv("LANG", language.c_str(), 1);
  Ppd ppd(ppdOpenFile(path.c_str()), &ppdClose);
  if (!ppd) return ppd;
  ppdLocalize(ppd.get());
  ppdMarkDefaults(ppd.get());
  return ppd;
}

void forEachOption(ppd_file_t& ppd, const std::function<void(ppd_option_t&)>& visit) {
  for (int i = 0; i < ppd.num_groups; ++i) {
    for (int j = 0; j < ppd.groups[i].num_options; ++j) visit(ppd.groups[i].options[j]);
  }
}

// Visits what both have: the option and choice of the queue's PPD, and those of
// the printer's.
void forEachChoice(ppd_file_t& printer, ppd_file_t& queue,
                   const std::function<void(ppd_choice_t&, ppd_choice_t&)>& visit) {
  forEachOption(queue, [&](ppd_option_t& option) {
    ppd_option_t* other = ppdFindOption(&printer, option.keyword);
    for (int i = 0; other != nullptr && i < option.num_choices; ++i) {
      ppd_choice_t* choice = ppdFindChoice(other, option.choices[i].choice);
      if (choice != nullptr) visit(option.choices[i], *choice);
    }
  });
}

// The options that conflict with the choice, of those that the queue has. To
// libcups a constraint on PageRegion is one on PageSize: both are about the size
// of the page.
Names conflictsOf(ppd_file_t& ppd, ppd_choice_t& choice, ppd_file_t& queue) {
  cups_option_t* options = nullptr;
  const int count = cupsGetConflicts(&ppd, choice.option->keyword, choice.choice, &options);
  Names names;
  for (int i = 0; i < count; ++i) {
    const std::string name = options[i].name;
    if (ppdFindOption(&queue, name.c_str()) == nullptr) continue;
    names.insert(name == "PageRegion" ? "PageSize" : name);
  }
  const std::string own = choice.option->keyword;
  if (own == "PageSize" || own == "PageRegion") names.erase("PageSize");
  cupsFreeOptions(count, options);
  return names;
}

std::string joined(const Names& names) {
  std::string text;
  for (const std::string& name : names) text += " " + name;
  return text.empty() ? " nothing" : text;
}

void compareConflicts(ppd_file_t& printer, ppd_file_t& queue, Figures& figures,
                      Differences& differences) {
  forEachChoice(printer, queue, [&](ppd_choice_t& choice, ppd_choice_t& other) {
    const Names expected = conflictsOf(printer, other, queue);
    const Names actual = conflictsOf(queue, choice, queue);
    ++figures.choices;
    if (!expected.empty()) ++figures.conflicts;
    if (expected == actual) return;
    differences.add(std::string(choice.option->keyword) + "=" + choice.choice + " conflicts with" +
                    joined(expected) + ", in the queue's with" + joined(actual));
  });
}

// Blanks at the ends are dropped and others are one: they say nothing, and a
// description does not keep them.
std::string plain(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
    if (!isBlank) {
      result += c;
    } else if (!result.empty() && result.back() != ' ') {
      result += ' ';
    }
  }
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

// Whether the bytes spell characters. A description holds no others; some files have
// texts that end within one.
bool isUtf8(const std::string& text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<unsigned char>(text[i++]);
    if (first < 0x80) continue;
    if (first < 0xC2 || first > 0xF4) return false;
    for (int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3; more > 0; --more, ++i) {
      if (i == text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80) return false;
    }
  }
  return true;
}

const ppd_group_t* groupOf(ppd_file_t& ppd, const std::string& keyword) {
  const ppd_option_t* option = ppdFindOption(&ppd, keyword.c_str());
  for (int i = 0; option != nullptr && i < ppd.num_groups; ++i) {
    const ppd_group_t& group = ppd.groups[i];
    const ppd_option_t* const end = group.options + group.num_options;
    if (option >= group.options && option < end) return &group;
  }
  return nullptr;
}

bool isOfLibcups(const ppd_group_t& group) {
  const std::string name = group.name;
  return (name == "General" || name == "JCL") && name == group.text;
}

void compareTexts(ppd_file_t& printer, ppd_file_t& queue, const std::string& language,
                  Figures& figures, Differences& differences) {
  const auto compare = [&](const std::string& what, const char* expected, const char* actual) {
    if (!isUtf8(expected)) {
      ++figures.damaged;
      return;
    }
    ++figures.texts;
    if (plain(expected) == plain(actual)) return;
    differences.add(language + ": " + what + " is \"" + expected + "\", in the queue's \"" +
                    actual + "\"");
  };
  forEachOption(queue, [&](ppd_option_t& option) {
    const ppd_option_t* other = ppdFindOption(&printer, option.keyword);
    if (other != nullptr) compare(option.keyword, other->text, option.text);
  });
  for (int i = 0; i < queue.num_groups; ++i) {
    for (int j = 0; j < queue.groups[i].num_options; ++j) {
      const char* keyword = queue.groups[i].options[j].keyword;
      const ppd_group_t* group = groupOf(printer, keyword);
      // Options outside of the others have a group of libcups.
      if (group == nullptr || isOfLibcups(*group)) continue;
      compare(std::string("the group of ") + keyword, group->text, queue.groups[i].text);
    }
  }
  forEachChoice(printer, queue, [&](ppd_choice_t& choice, ppd_choice_t& other) {
    compare(std::string(choice.option->keyword) + " " + choice.choice, other.text, choice.text);
  });
}

// The languages of keywords such as *de.PageSize and *zh_TW.PageSize.
Names languagesOf(const std::string& path) {
  Names languages;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    const std::size_t dot = line.find_first_of(".: \t");
    if (!line.starts_with('*') || dot == std::string::npos || line[dot] != '.') continue;
    std::string name = line.substr(1, dot - 1);
    if (name.size() != 2 && (name.size() != 5 || name[2] != '_')) continue;
    for (std::size_t i = 3; i < name.size(); ++i) name[i] &= '\xDF';  // A capital letter.
    languages.insert(name + ".UTF-8");
  }
  return languages;
}

Differences compare(const std::string& printerFile, const std::string& queueFile,
                    Figures& figures) {
  Differences differences;
  Names languages = languagesOf(printerFile);
  figures.languages += static_cast<long>(languages.size());
  // A description has one text for English, that of its translation.
  const bool isTranslatedFromItself = languages.contains("en.UTF-8");
  languages.insert("C");
  for (const std::string& language : languages) {
    const Ppd printer = open(printerFile, language);
    const Ppd queue = open(queueFile, language);
    if (!printer || !queue) {
      differences.add("cannot be read");
      return differences;
    }
    const bool isNone = language == "C";
    if (!isNone || !isTranslatedFromItself) {
      compareTexts(*printer, *queue, language, figures, differences);
    }
    if (isNone) compareConflicts(*printer, *queue, figures, differences);
  }
  return differences;
}

}  // namespace

int main() {
  Figures figures;
  long different = 0;
  for (std::string line; std::getline(std::cin, line);) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string::npos) continue;
    ++figures.pairs;
    const Differences found = compare(line.substr(0, tab), line.substr(tab + 1), figures);
    if (found.count == 0) continue;
    ++different;
    std::cout << line.substr(0, tab) << ": " << found.count << ": " << found.first << '\n';
  }
  std::cout << figures.pairs << " PPDs, " << figures.choices << " choices, " << figures.conflicts
            << " in conflict; " << figures.texts << " texts (" << figures.damaged
            << " damaged ones left out), " << figures.languages << " translations; " << different
            << " PPDs differ\n";
  return different == 0 && figures.pairs > 0 ? 0 : 1;
}
