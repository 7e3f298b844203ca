// The PostScript or PJL texts of many features, one after another.
#ifndef OUTPUT_FEATURE_TEXT_H_
#define OUTPUT_FEATURE_TEXT_H_

#include <string>

#include "model/core_feature.h"
#include "output/text_dialect.h"

namespace driver_feature {

// Keeps the text that it reads values into, so that a feature costs no memory
// once that text is long enough.
class FeatureText {
 public:
  explicit FeatureText(const TextDialect& dialect) : dialect_(dialect) {}
  FeatureText(const FeatureText&) = delete;
  FeatureText& operator=(const FeatureText&) = delete;

  const TextDialect& dialect() const { return dialect_; }

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
  std::string value_;
};

}  // namespace driver_feature

#endif  // OUTPUT_FEATURE_TEXT_H_
