// The peer's side: the same models through libcups' PPD interface.
//
// compare.py knows which of the library's operations each is compared with.

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

#include "bench/generated_model.h"
#include "bench/operation.h"

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

std::unique_ptr<char, void (*)(void*)> emitAll(ppd_file_t* ppd) {
  return {ppdEmitString(ppd, PPD_ORDER_ANY, 0.0F), std::free};
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

Step emitting(int size) {
  return {.run = [ppd = modelOf(size)] { benchmark::DoNotOptimize(emitAll(ppd).get()); },
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

}  // namespace

void addOperations(Operations& operations) {
  operations.push_back({"open", kFeatureCounts, opening});
  operations.push_back({"mark", kFeatureCounts, marking});
  operations.push_back({"emit", kFeatureCounts, emitting});
  operations.push_back({"look up", kFeatureCounts, lookingUp});
  operations.push_back({"read marked choice", kFeatureCounts, readingChoice});
}

std::string textOfModel(int size) {
  ppd_file_t* ppd = modelOf(size);
  for (int i = 0; i < size; i += 3) ppdMarkOption(ppd, featureName(i).c_str(), "ChoiceC");
  const auto text = emitAll(ppd);
  return text ? text.get() : "";
}

}  // namespace driver_feature::bench
