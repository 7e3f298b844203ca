// The peer's side: the same models through libcups' PPD interface.
//
// compare.py knows which of the library's operations each is compared with.

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "bench/generated_model.h"
#include "bench/operation.h"
#include "bench/real_models.h"

namespace driver_feature::bench {

namespace {

[[noreturn]] void fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::exit(1);
}

ppd_file_t* openPPD(const std::string& path) {
  ppd_file_t* ppd = ppdOpenFile(path.c_str());
  if (ppd == nullptr) fail(path + ": cannot be read");
  return ppd;
}

// The model of that size, opened once and kept, with its defaults marked.
ppd_file_t* modelOf(int size) {
  static std::map<int, ppd_file_t*> models;
  ppd_file_t*& model = models[size];
  if (model == nullptr) {
    model = openPPD(modelPath("ppd", size));
    ppdMarkDefaults(model);
  }
  return model;
}

// Everything that is marked: a host asks for each section of the output. What
// goes before the PostScript (JCL) is not among them.
template <class Use>
void emitAll(ppd_file_t* ppd, const Use& use) {
  for (const ppd_section_t section :
       {PPD_ORDER_EXIT, PPD_ORDER_PROLOG, PPD_ORDER_DOCUMENT, PPD_ORDER_ANY, PPD_ORDER_PAGE}) {
    const std::unique_ptr<char, void (*)(void*)> text(ppdEmitString(ppd, section, 0.0F), std::free);
    use(text.get());
  }
}

Step emission(ppd_file_t* ppd) {
  return {.run = [ppd] { emitAll(ppd, [](char* text) { benchmark::DoNotOptimize(text); }); },
          .overAll = true};
}

std::string emittedText(ppd_file_t* ppd) {
  std::string all;
  emitAll(ppd, [&all](const char* text) { all += text != nullptr ? text : ""; });
  return all;
}

Step opening(int size) {
  auto opened = std::make_shared<ppd_file_t*>(nullptr);
  return {.run = [opened, path = modelPath("ppd", size)] { *opened = openPPD(path); },
          .after = [opened] { ppdClose(*opened); }};
}

Step marking(int size) {
  return {[ppd = modelOf(size), names = NamesInTurn(size)]() mutable {
    const char* choice = names.rounds() % 2 == 0 ? "ChoiceB" : "ChoiceD";
    ppdMarkOption(ppd, names.next().c_str(), choice);
  }};
}

Step markingInList(int choices) {
  ppd_file_t* ppd = openPPD(modelPath("list_ppd", choices));
  ppdMarkDefaults(ppd);
  return {[ppd, names = NamesInTurn(choices)]() mutable {
    ppdMarkOption(ppd, "List", names.next().c_str());
  }};
}

Step emitting(int size) {
  return emission(modelOf(size));
}

Step markingAndEmitting(int size) {
  return {.run =
              [mark = marking(size), emit = emitting(size)] {
                mark.run();
                emit.run();
              },
          .overAll = true};
}

Step lookingUp(int size) {
  return {[ppd = modelOf(size), names = NamesInTurn(size)]() mutable {
    ppd_option_t* option = ppdFindOption(ppd, names.next().c_str());
    benchmark::DoNotOptimize(ppdFindChoice(option, "ChoiceC"));
  }};
}

// The choice that is marked, by the option's name.
Step readingChoice(int size) {
  return {[ppd = modelOf(size), names = NamesInTurn(size)]() mutable {
    benchmark::DoNotOptimize(ppdFindMarkedChoice(ppd, names.next().c_str()));
  }};
}

ppd_file_t* realModel(int number) {
  ppd_file_t* ppd = openPPD(modelPath("real_ppd", number));
  ppdMarkDefaults(ppd);
  return ppd;
}

// The first two choices of every option that has two, first the one and then
// the other.
Step markingReal(int number) {
  ppd_file_t* ppd = realModel(number);
  std::vector<std::pair<std::string, std::string>> choices;
  for (int choice = 0; choice < 2; ++choice) {
    for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr;
         option = ppdNextOption(ppd)) {
      if (option->num_choices < 2) continue;
      choices.emplace_back(option->keyword, option->choices[choice].choice);
    }
  }
  return {[ppd, choices, next = std::size_t{0}]() mutable {
    const auto& [option, choice] = choices[next];
    next = (next + 1) % choices.size();
    ppdMarkOption(ppd, option.c_str(), choice.c_str());
  }};
}

Step openingReal(int number) {
  auto opened = std::make_shared<ppd_file_t*>(nullptr);
  return {.run = [opened, path = modelPath("real_ppd", number)] { *opened = openPPD(path); },
          .after = [opened] { ppdClose(*opened); }};
}

Step emittingReal(int number) {
  return emission(realModel(number));
}

}  // namespace

void addOperations(Operations& operations) {
  operations.push_back({"open", kFeatureCounts, opening});
  operations.push_back({"mark", kFeatureCounts, marking});
  operations.push_back({"mark in a list", kFeatureCounts, markingInList});
  operations.push_back({"emit", kFeatureCounts, emitting});
  operations.push_back({"mark and emit", kFeatureCounts, markingAndEmitting});
  operations.push_back({"look up", kFeatureCounts, lookingUp});
  operations.push_back({"read marked choice", kFeatureCounts, readingChoice});
  const std::vector<int> models = realModels();
  if (models.empty()) return;
  operations.push_back({"open a real printer's file", models, openingReal});
  operations.push_back({"mark in a real printer's file", models, markingReal});
  operations.push_back({"emit a real printer's file", models, emittingReal});
}

std::string textOfRealModel(int number) {
  return emittedText(realModel(number));
}

std::string textOfModel(int size) {
  ppd_file_t* ppd = modelOf(size);
  for (int i = 0; i < size; i += 3) ppdMarkOption(ppd, featureName(i).c_str(), "ChoiceC");
  return emittedText(ppd);
}

}  // namespace driver_feature::bench
