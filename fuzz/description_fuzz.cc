// Feeds arbitrary documents to the parser, the loader, the three outputs and
// the dump.
//
// The library ends the process at a description that it cannot build. Here the
// process continues, and what has been built so far is still examined, which a
// real host could not do.

#include <libxml/parser.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "fuzz/description_routines.h"
#include "fuzz/loading.h"
#include "fuzz/model_release.h"
#include "model/core_feature_set.h"

#include "AttributeMap.h"
#include "Log.h"
#include "XMLDocument.h"

namespace driver_feature::fuzz {
namespace {

// More text finds nothing that less does not, and takes longer.
constexpr std::size_t kLongestInput = 65536;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

void keepSilent(int, const char*, const char*, std::size_t, void*) {}

std::string write(CoreFeatureSet& features, int form, bool installableOptions) {
  setWriting(form == 2 ? Writing::kTicket : Writing::kText);
  std::string output = "stale";
  features.serialize(output, form, installableOptions, "7.0", "\xE4");
  setWriting(Writing::kNothing);
  return output;
}

void readTicket(const std::string& ticket) {
  xmlDoc* document =
      xmlReadMemory(ticket.data(), static_cast<int>(ticket.size()), nullptr, nullptr,
                    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE);
  require(document != nullptr, "a ticket is XML");
  xmlFreeDoc(document);
}

// Writing changes nothing, so the second time gives the same.
void writeTwice(CoreFeatureSet& features, int form) {
  const std::string output = write(features, form, true);
  require(output == write(features, form, true), "an output is the same again");
  if (form == 2) {
    readTicket(output);
    readTicket(write(features, form, false));
  }
}

std::string dump(CoreFeatureSet& features) {
  std::ostringstream text;
  std::streambuf* const before = std::cout.rdbuf(text.rdbuf());
  features.dumpFeatureListValues();
  std::cout.rdbuf(before);
  return text.str();
}

// Features are in the byte order of their names and are found by them.
void checkOrder(CoreFeatureSet& features) {
  std::string before;
  for (int i = 0; i < features.fetchNumberOfFeatures(); ++i) {
    auto* feature = static_cast<CoreFeature*>(features.fetchFeatureByIndex(i));
    require(feature != nullptr, "every position has a feature");
    std::string name;
    require(feature->getFeatureProperty(std::string("Name"), name), "a feature has a name");
    require(before < name, "features are in the order of their names");
    require(features.FindFeatureInFeatureList(name) == feature, "a feature is found by name");
    before = name;
  }
}

// Right after loading the values are the defaults.
void checkDefaults(CoreFeatureSet& features) {
  const std::string before = dump(features);
  features.restoreDefaultFeatureValues();
  require(dump(features) == before, "restored defaults are the loaded values");
}

void use(CoreFeatureSet& features, void* element) {
  checkOrder(features);
  for (int form = 0; form <= 2; ++form) writeTwice(features, form);
  require(write(features, 3, true) == "stale", "an unknown form leaves the output alone");
  checkDefaults(features);
  AttributeMap names;
  for (int i = 0; i < features.fetchNumberOfFeatures(); ++i) {
    std::string name;
    features.fetchFeatureByIndex(i)->getFeatureProperty(std::string("Name"), name);
    names[name] = "";
  }
  SaveCurrentFeatureValues(names);
  RestoreOriginalFeatureValues(names);
  InstOptVORNTagHandler(element);
  JobTicketVORNTagHandler(element);
}

void tryDocument(const std::string& text) {
  XMLProblem problem;
  const auto document = XMLDocument::parseText(text, "input", problem);
  if (!document) {
    require(!problem.text.empty(), "a refusal has a reason");
    return;
  }
  std::string messages;
  const LoadResult result = loadDescription(document->root(), messages);
  require(messages.empty() == (result == LoadResult::kLoaded), "only an end writes a message");
  SetFeatureCreationCompleteFlag();
  use(*static_cast<CoreFeatureSet*>(GetMasterFeatureList()), document->root());
  releaseModel();
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > driver_feature::fuzz::kLongestInput) return 0;
  SetLogHandler(driver_feature::fuzz::keepSilent, nullptr);
  driver_feature::fuzz::tryDocument(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
