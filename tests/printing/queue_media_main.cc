// Compares what libcups writes of the PPD of a queue with what it writes of the
// printer's PPD, for every choice of tray and manual feed with several page
// sizes.
//
//   queue_media < PAIRS
//
// Each line of PAIRS holds the path of a printer's PPD, a tab, and the path of
// the queue's. A line of output for each pair with a difference names the PPD
// and the first choices that differ; the last line holds the figures. The exit
// status is 1 when there was a difference or a PPD that cannot be read.

#include <cups/ppd.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Ppd = std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)>;
using Choices = std::vector<std::pair<std::string, std::string>>;

constexpr std::size_t kMostSizes = 4;

// Without the checks of constraints that libcups makes after each mark: they
// change nothing that it writes.
Ppd open(const std::string& path) {
  Ppd ppd(ppdOpenFile(path.c_str()), &ppdClose);
  if (ppd) ppd->num_consts = 0;
  return ppd;
}

std::string written(ppd_file_t& ppd, const Choices& choices) {
  ppdMarkDefaults(&ppd);
  for (const auto& [option, choice] : choices) {
    ppdMarkOption(&ppd, option.c_str(), choice.c_str());
  }
  std::string all;
  for (const ppd_section_t section :
       std::array{PPD_ORDER_EXIT, PPD_ORDER_JCL, PPD_ORDER_PROLOG, PPD_ORDER_DOCUMENT,
                  PPD_ORDER_ANY, PPD_ORDER_PAGE}) {
    const std::unique_ptr<char, decltype(&std::free)> text(ppdEmitString(&ppd, section, 0),
                                                           &std::free);
    all += text ? text.get() : "";
    all += '\f';
  }
  return all;
}

// No choice at all, and each choice of the option.
std::vector<Choices> choicesOf(ppd_file_t& ppd, const char* keyword, std::size_t most) {
  std::vector<Choices> all = {{}};
  const ppd_option_t* option = ppdFindOption(&ppd, keyword);
  for (int i = 0; option != nullptr && i < option->num_choices && all.size() <= most; ++i) {
    const std::string choice = option->choices[i].choice;
    all.push_back({{keyword, choice == "Custom" ? "Custom.300x400" : choice}});
  }
  return all;
}

std::vector<Choices> product(const std::vector<Choices>& left, const std::vector<Choices>& right) {
  std::vector<Choices> all;
  for (const Choices& first : left) {
    for (const Choices& second : right) {
      all.push_back(first);
      all.back().insert(all.back().end(), second.begin(), second.end());
    }
  }
  return all;
}

std::string textOf(const Choices& choices) {
  std::string text;
  for (const auto& [option, choice] : choices) {
    text.append(" ").append(option).append("=").append(choice);
  }
  return text.empty() ? " the defaults" : text;
}

std::vector<Choices> combinations(ppd_file_t& ppd) {
  const std::size_t all = 1000;
  std::vector<Choices> sizes = choicesOf(ppd, "PageSize", kMostSizes);
  if (ppd.variable_sizes != 0) sizes.push_back({{"PageSize", "Custom.300x400"}});
  for (const Choices& region : choicesOf(ppd, "PageRegion", kMostSizes)) {
    if (!region.empty()) sizes.push_back(region);
  }
  return product(product(choicesOf(ppd, "InputSlot", all), choicesOf(ppd, "ManualFeed", all)),
                 sizes);
}

struct Figures {
  long pairs = 0;
  long unlike = 0;
  long unreadable = 0;
  long combinations = 0;
  long different = 0;
};

void compare(const std::string& original, const std::string& queue, Figures& figures) {
  ++figures.pairs;
  const Ppd one = open(original);
  const Ppd other = open(queue);
  if (!one || !other) {
    ++figures.unreadable;
    std::cout << (one ? queue : original) << ": cannot be read\n";
    return;
  }
  std::string first;
  long different = 0;
  for (const Choices& choices : combinations(*one)) {
    ++figures.combinations;
    if (written(*one, choices) == written(*other, choices)) continue;
    if (different++ == 0) first = textOf(choices);
  }
  figures.different += different;
  if (different == 0) return;
  ++figures.unlike;
  std::cout << original << ": " << different << " differ, first" << first << "\n";
}

}  // namespace

int main() {
  Figures figures;
  for (std::string line; std::getline(std::cin, line);) {
    const std::size_t tab = line.find('\t');
    if (tab != std::string::npos) compare(line.substr(0, tab), line.substr(tab + 1), figures);
  }
  std::cout << figures.pairs << " PPDs, " << figures.unlike << " unlike, " << figures.unreadable
            << " unreadable; " << figures.combinations << " sets of choices, " << figures.different
            << " unlike\n";
  return figures.pairs == 0 || figures.unlike + figures.unreadable > 0 ? 1 : 0;
}
