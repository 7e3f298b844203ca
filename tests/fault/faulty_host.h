// A host whose routines do what a test asks of them, with the built library
// loaded and a description at hand that has every kind of object in it.
#ifndef TESTS_FAULT_FAULTY_HOST_H_
#define TESTS_FAULT_FAULTY_HOST_H_

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "model/core_feature_group.h"
#include "model/core_feature_set.h"
#include "plugin/loaded_library.h"

#include "AttributeMap.h"
#include "VORNWriter.h"
#include "XMLDocument.h"

namespace driver_feature::testing {

// What the routines of the description do. Empty ones do nothing; an empty
// sort routine compares the pages of two records.
struct Routines {
  std::function<void()> update;
  std::function<void()> change;
  std::function<int(int mode)> load;
  std::function<int(AttributeMap& first, AttributeMap& second)> sort;
  std::function<void(std::string& text)> text;
  std::function<void(VORNWriter* writer, _xmlNode* parent)> ticket;
};

// Names that do not fit into a std::string itself, so that a copy of any of
// them takes memory.
inline const std::string kMedia = "MediaOfTheWholeDocument";
inline const std::string kCopies = "NumberOfCopiesToPrint";
inline const std::string kTitle = "TitleOnTheBannerPage";
inline const std::string kScale = "ScaleOfThePageContent";
inline const std::string kOutputGroup = "GroupOfOutputFeatures";
inline const std::string kExceptions = "ExceptionsForSomePages";
inline const std::string kPage = "PageThatIsAnException";
inline const std::string kPaper = "PaperOfThatOnePageOnly";

class FaultyHost {
 public:
  // Loads the library; nothing has been handed to it. Log lines are dropped.
  FaultyHost();
  ~FaultyHost();
  FaultyHost(const FaultyHost&) = delete;
  FaultyHost& operator=(const FaultyHost&) = delete;

  // Passes the description on. Returns what the handler returns.
  int load() { return load_(description_->root()); }
  void complete() { complete_(); }

  // For tests of a loaded library.
  void loadAndComplete() {
    ASSERT_EQ(load(), 1);
    complete();
  }

  CoreFeatureSet& set() const { return *static_cast<CoreFeatureSet*>(getSet_()); }
  CoreFeature& object(const std::string& name) const {
    return *set().FindFeatureInFeatureList(name);
  }
  IntermediateCoreFeature& feature(const std::string& name) const {
    return static_cast<IntermediateCoreFeature&>(object(name));
  }
  IntermediateDynamicFeatureGroup& exceptions() const {
    return static_cast<IntermediateDynamicFeatureGroup&>(object(kExceptions));
  }

  std::string output(int type) const {
    std::string text;
    set().serialize(text, type, true, "first", "second");
    return text;
  }

  // All that the library shows of its model: the dump and the outputs.
  std::string model() const;

  // The dump, which the library prints.
  std::string dump() const;

  // The value of a property as a text; "(refused)" when it cannot be read.
  std::string text(const std::string& name, const std::string& property) const;

  // A record for the dynamic group.
  static AttributeMap record(const std::string& page, const std::string& paper);

  template <class Function>
  Function* function(const std::string& name) const {
    return library_.function<Function>(name);
  }

  Routines routines;

 private:
  LoadedLibrary library_;
  std::unique_ptr<XMLDocument> description_;
  int (*load_)(void*) = nullptr;
  void* (*getSet_)() = nullptr;
  void (*complete_)() = nullptr;
};

}  // namespace driver_feature::testing

#endif  // TESTS_FAULT_FAULTY_HOST_H_
