// The PostScript or PJL texts of many features, one after another.
#ifndef OUTPUT_FEATURE_TEXT_H_
#define OUTPUT_FEATURE_TEXT_H_

#include <string>
#include <string_view>

#include "model/core_feature.h"
#include "model/driver_feature.h"
#include "model/own_objects.h"
#include "output/output_routine.h"
#include "output/text_dialect.h"

class DriverFeatureSet;

namespace driver_feature {

// Reads the library's own objects where they hold their values, and a host's
// through its operations.
class FeatureText {
 public:
  // Output routines of the host get `set`.
  FeatureText(const TextDialect& dialect, DriverFeatureSet* set);
  FeatureText(const FeatureText&) = delete;
  FeatureText& operator=(const FeatureText&) = delete;

  const TextDialect& dialect() const { return dialect_; }

  // Whether the object is written by a static group that holds it.
  bool isInGroup(CoreFeature& object) const {
    const DriverFeature* known = asKnown(object);
    return known != nullptr ? known->isInGroup() : driver_feature::isInGroup(object);
  }

  // The command template of a group, and the name of an output routine; empty if
  // there is none. Valid until the next call, and until the object changes.
  std::string_view findCommand(CoreFeature& object) {
    return findText(object, dialect_.commandProperty);
  }
  std::string_view findRoutine(CoreFeature& object) {
    return findText(object, dialect_.routineProperty);
  }

  // Runs the host's output routine of that name on `text`. False when there is
  // none.
  bool runRoutine(const std::string& name, std::string& text) const;

  // Appends the current option's command, or the current value, in the feature's
  // command template. Appends nothing, after a log line, if there is no text.
  // False, without a line, if there is no template.
  bool append(CoreFeature& feature, std::string& output);
  // The same in that template.
  void append(CoreFeature& feature, std::string_view commandTemplate, std::string& output);

 private:
  void appendOption(CoreFeature& feature, std::string_view commandTemplate, std::string& output);
  template <class Value>
  void appendValue(CoreFeature& feature, Property property, const char* unreadable,
                   std::string_view commandTemplate, std::string& output) const;

  std::string_view findText(CoreFeature& object, Property property) {
    const DriverFeature* known = asKnown(object);
    return known != nullptr ? known->text(property) : readText(object, property);
  }
  std::string_view readText(CoreFeature& object, Property property);

  // The object as a feature of the library's own that need not be asked by name.
  const DriverFeature* asKnown(const CoreFeature& object) const {
    return areNamesKnown_ ? asOwn<DriverFeature>(object) : nullptr;
  }

  const TextDialect& dialect_;
  DriverFeatureSet* const set_;
  // Whether the platform knows the names of the properties that are read here.
  const bool areNamesKnown_;
  std::string found_;
  std::string optionCommand_;
};

}  // namespace driver_feature

#endif  // OUTPUT_FEATURE_TEXT_H_
