// The PostScript or PJL texts of many features, one after another.
#ifndef OUTPUT_FEATURE_TEXT_H_
#define OUTPUT_FEATURE_TEXT_H_

#include <string>

#include "model/core_feature.h"
#include "output/text_dialect.h"

namespace driver_feature {

// Keeps the names of the properties that it reads, and the text that it reads
// values into, so that a feature costs no memory once that text is long enough.
class FeatureText {
 public:
  explicit FeatureText(const TextDialect& dialect)
      : dialect_(dialect),
        commandProperty_(dialect.commandProperty),
        routineProperty_(dialect.routineProperty) {}
  FeatureText(const FeatureText&) = delete;
  FeatureText& operator=(const FeatureText&) = delete;

  const TextDialect& dialect() const { return dialect_; }

  // Whether the feature is written by a static group that holds it.
  bool isInGroup(CoreFeature& feature) const;

  // Read the feature's command template or the name of its routine into
  // `text`; true when it can be read and is not empty.
  bool readTemplate(CoreFeature& feature, std::string& text) const;
  bool readRoutineName(CoreFeature& feature, std::string& text) const;

  // Appends the current option's command, or the current value, in the command
  // template. Nothing, after a log line, when there is no text.
  void append(CoreFeature& feature, const std::string& commandTemplate, std::string& output);

 private:
  void appendOption(CoreFeature& feature, const std::string& commandTemplate, std::string& output);
  void appendText(CoreFeature& feature, const std::string& commandTemplate, std::string& output);
  void appendInt(CoreFeature& feature, const std::string& commandTemplate,
                 std::string& output) const;
  void appendFloat(CoreFeature& feature, const std::string& commandTemplate,
                   std::string& output) const;

  const TextDialect& dialect_;
  const std::string inGroupProperty_ = "FeatureInGroup";
  const std::string commandProperty_;
  const std::string routineProperty_;
  const std::string intProperty_ = "CurrentIntValue";
  const std::string textProperty_ = "CurrentTextValue";
  const std::string floatProperty_ = "CurrentFloatValue";
  std::string value_;
};

}  // namespace driver_feature

#endif  // OUTPUT_FEATURE_TEXT_H_
