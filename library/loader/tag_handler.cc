// The entry point that builds the whole model from a feature description.

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>
#include <string>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "frame/state.h"
#include "loader/attribute_rows.h"
#include "loader/element.h"
#include "loader/feature_builder.h"
#include "loader/group_builder.h"
#include "model/messages.h"
#include "model/notification.h"

#include "Symbols.h"

// libxml2's name. The host's ticket library brings it along.
extern "C" int isolat1ToUTF8(unsigned char* out, int* outlen, const unsigned char* in, int* inlen);

namespace driver_feature {

namespace {

[[noreturn]] void endProcess(const std::string& text) {
  std::cerr << text << std::endl;
  std::exit(1);
}

void requireBuilt(const void* object) {
  // Its builder has logged why.
  if (object == nullptr) endProcess("Feature Tag fatal error");
}

void registerUpdateCallback(const AttributeMap& attributes) {
  std::string name;
  if (!readAttribute(attributes, "DefaultCallbackHandler", name)) {
    constexpr const char* kText = "FeatureXMLTagHandler() - No Default Callback Handler element";
    logFixed(Level::kError, kText);
    endProcess(kText);
  }
  void* routine = FetchSymbol(name.c_str());
  if (routine == nullptr) {
    constexpr const char* kText = "FeatureXMLTagHandler() - Null Default Callback Handler pointer";
    logFixed(Level::kError, kText);
    endProcess(kText);
  }
  setDriverFeatureUpdateCallback(reinterpret_cast<UpdateCallback>(routine));
}

void registerLoadCallback(const AttributeMap& attributes) {
  std::string name;
  if (!readAttribute(attributes, "LoadVORNCallbackHandler", name)) {
    logFixed(Level::kMisuse,
             "FeatureXMLTagHandler() - No Custom Load VORN Callback Handler element");
    return;
  }
  void* routine = FetchSymbol(name.c_str());
  libraryState().loadCallback = reinterpret_cast<LoadCallback>(routine);
  if (routine == nullptr) {
    logFixed(Level::kError,
             "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer");
  }
}

void buildChild(ChildElements& child) {
  child.read();
  const std::string& tag = child.tag();
  if (tag == "Feature") {
    requireBuilt(CreateFeature(child.handle(), child.attributes()));
  } else if (tag == "FeatureStaticGroup") {
    requireBuilt(CreateStaticFeatureGroup(child.handle(), child.attributes()));
  } else if (tag == "FeatureDynamicGroup") {
    requireBuilt(CreateDynamicFeatureGroup(child.handle(), child.attributes()));
  } else if (tag == "BaseFeatureInfo") {
    registerUpdateCallback(child.attributes());
    registerLoadCallback(child.attributes());
  } else {
    const std::string text = "FeatureXMLTagHandler() - Invalid element tag \"" + tag + "\".";
    logComposed(Level::kError, "FeatureXMLTagHandler() - Invalid element tag \"{}\".", tag);
    endProcess(text);
  }
}

// Required: the handler converts its log category and keeps the result for as
// long as the process lives. Nothing reads it. The pointer is there for checks for
// leaks, which look up the names of functions, slowly, only where something is lost.
void convertLogCategory() {
  static unsigned char* converted;
  int inputLength = static_cast<int>(std::strlen(kLogCategory));
  int outputLength = 2 * inputLength + 1;
  converted = new unsigned char[static_cast<std::size_t>(outputLength)];
  isolat1ToUTF8(converted, &outputLength, reinterpret_cast<const unsigned char*>(kLogCategory),
                &inputLength);
}

// Rolls back a load interrupted by an exception, so that the set holds a whole
// description or none of it, and the callbacks are those of before. What has
// been built is not freed: the host may have seen it in a callback.
class LoadUndo {
 public:
  LoadUndo() = default;
  ~LoadUndo() {
    if (done_) return;
    masterSet().list().rollBack(before_);
    notification().updateCallback = updateBefore_;
    libraryState().loadCallback = loadBefore_;
  }
  LoadUndo(const LoadUndo&) = delete;
  LoadUndo& operator=(const LoadUndo&) = delete;

  void keepLoad() { done_ = true; }

 private:
  FeatureList::Mark before_ = masterSet().list().mark();
  UpdateCallback updateBefore_ = notification().updateCallback;
  LoadCallback loadBefore_ = libraryState().loadCallback;
  bool done_ = false;
};

}  // namespace

}  // namespace driver_feature

int FeatureXMLTagHandler(void* element) try {
  GetMasterFeatureList();
  driver_feature::convertLogCategory();
  driver_feature::LoadUndo undo;
  for (driver_feature::ChildElements child(element); child.handle() != nullptr; child.next()) {
    driver_feature::buildChild(child);
  }
  undo.keepLoad();
  return 1;
} catch (...) {
  return 0;
}
