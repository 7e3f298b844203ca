// The PostScript or PJL texts of many features, one after another.
#ifndef OUTPUT_FEATURE_TEXT_H_
#define OUTPUT_FEATURE_TEXT_H_

#include <string>

#include "model/core_feature.h"
#include "output/text_dialect.h"
#include "output/text_properties.h"

class DriverFeatureSet;

namespace driver_feature {

// Reads the library's own objects where they hold their values, and a host's
// through its operations.
class FeatureText {
 public:
  // Output routines of the host get `set`.
  FeatureText(const TextDialect& dialect, DriverFeatureSet* set)
      : dialect_(dialect), set_(set), properties_(TextProperties::find(dialect)) {}
  FeatureText(const FeatureText&) = delete;
  FeatureText& operator=(const FeatureText&) = delete;

  const TextDialect& dialect() const { return dialect_; }

  // Whether the object is written by a static group that holds it.
  bool isInGroup(CoreFeature& object) const;

  // The command template, and the name of the output routine; null if there is
  // none or it is empty. The text is valid until the next call.
  const std::string* findCommand(CoreFeature& object);
  const std::string* findRoutine(CoreFeature& object);

  // Runs the host's output routine of that name on `text`. False when there is
  // none.
  bool runRoutine(const std::string& name, std::string& text) const;

  // Appends the current option's command, or the current value, in the command
  // template. Appends nothing, after a log line, if there is no text.
  void append(CoreFeature& feature, const std::string& commandTemplate, std::string& output);

 private:
  void appendOption(CoreFeature& feature, const std::string& commandTemplate, std::string& output);
  template <class Value>
  void appendValue(CoreFeature& feature, const Value DriverFeature::*member, Property property,
                   const char* unreadable, const std::string& commandTemplate,
                   std::string& output) const;

  const std::string* findText(CoreFeature& object, const std::string DriverFeature::*member,
                              Property property);

  // The object as a feature of the library's own whose properties are known.
  const DriverFeature* asKnown(const CoreFeature& object) const;

  const TextDialect& dialect_;
  DriverFeatureSet* const set_;
  const TextProperties properties_;
  const bool areKnown_ = properties_.areKnown();
  std::string found_;
  std::string optionCommand_;
};

}  // namespace driver_feature

#endif  // OUTPUT_FEATURE_TEXT_H_
