// The PostScript or PJL text of a set, kept from one output to the next.
#ifndef OUTPUT_KEPT_TEXT_H_
#define OUTPUT_KEPT_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/driver_feature_set.h"
#include "output/feature_text.h"

namespace driver_feature {

// A user interface writes the whole set after every click, which changes one
// feature or a few. The texts of the others are copied from the output before,
// in runs as long as they come.
//
// The text of a feature is used again only when nothing that it was made of
// has changed and it was made without a log line; everything else is written
// anew at each output, and whatever a host's routine has had in its hands is
// not kept. Groups are always written anew.
class KeptText {
 public:
  // The text of the whole set as it is now. Stays until the next call.
  const std::string& write(DriverFeatureSet& set, const TextDialect& dialect);

 private:
  // In the place of a feature's count: the text is to be written anew.
  static constexpr std::uint64_t kNotKept = ~std::uint64_t{0};

  // The text of one feature: of which state of it, and how long it is.
  struct Piece {
    DriverFeature* feature;
    std::uint64_t changeCount = kNotKept;
    std::size_t length = 0;
  };

  void listFeatures(DriverFeatureSet& set);
  void keepNone();
  void writeFeatures(DriverFeatureSet& set, FeatureText& featureText);
  void writeRest(DriverFeatureSet& set, int index, FeatureText& featureText);
  void copyText(std::size_t from, std::size_t to);
  void writePiece(Piece& piece, int index, FeatureText& featureText);
  bool writeFeature(DriverFeature* feature, int index, FeatureText& featureText);
  void runRoutine(const std::string& name, const TextDialect& dialect);
  void writeGroups(DriverFeatureSet& set, FeatureText& featureText);

  std::string text_;     // Of all features, piece by piece, and then of the groups.
  std::string newText_;  // The text that is being made; its memory is kept.
  std::vector<Piece> pieces_;
  bool routineHasRun_ = false;  // In this output.

  // What the pieces were made with, beside their features.
  TextProperties properties_{};
  std::uint64_t listChangeCount_ = 0;
  std::uint64_t optionChangeCount_ = 0;
};

}  // namespace driver_feature

#endif  // OUTPUT_KEPT_TEXT_H_
