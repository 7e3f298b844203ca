#include "output/kept_text.h"

#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/text_conversion.h"
#include "output/group_commands.h"
#include "output/missing_objects.h"
#include "output/output_routine.h"

namespace driver_feature {

const std::string& KeptText::write(DriverFeatureSet& set, const TextDialect& dialect) {
  FeatureText featureText(dialect);
  if (listChangeCount_ != set.listChangeCount()) listFeatures(set);
  if (properties_ != featureText.properties() ||
      optionChangeCount_ != DriverFeatureOption::textChangeCount()) {
    keepNone();
    properties_ = featureText.properties();
    optionChangeCount_ = DriverFeatureOption::textChangeCount();
  }
  routineHasRun_ = false;
  writeFeatures(set, featureText);
  writeGroups(set, featureText);
  text_.swap(newText_);
  // A routine may change all of the text that is before it.
  if (routineHasRun_) keepNone();
  return text_;
}

void KeptText::listFeatures(DriverFeatureSet& set) {
  pieces_.clear();
  listChangeCount_ = set.listChangeCount();
  const int count = set.fetchNumberOfFeatures();
  pieces_.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) pieces_.push_back({set.fetchFeatureByIndex(i)});
}

void KeptText::keepNone() {
  for (Piece& piece : pieces_) piece.changeCount = kNotKept;
}

void KeptText::writeFeatures(DriverFeatureSet& set, FeatureText& featureText) {
  newText_.clear();
  std::size_t copied = 0;  // So much of the old text has been copied or passed over.
  std::size_t begin = 0;   // Of the piece in the old text.
  int index = 0;
  for (Piece& piece : pieces_) {
    const std::size_t end = begin + piece.length;
    if (piece.feature == nullptr || piece.changeCount != piece.feature->changeCount()) {
      copyText(copied, begin);
      copied = end;
      writePiece(piece, index, featureText);
      if (listChangeCount_ != set.listChangeCount()) return writeRest(set, index + 1, featureText);
    }
    begin = end;
    ++index;
  }
  copyText(copied, begin);
}

// Goes on with the features as they are now: the host has had another
// description loaded in the middle of this output. Nothing of it is kept.
void KeptText::writeRest(DriverFeatureSet& set, int index, FeatureText& featureText) {
  for (; index < set.fetchNumberOfFeatures(); ++index) {
    writeFeature(set.fetchFeatureByIndex(index), index, featureText);
  }
}

void KeptText::copyText(std::size_t from, std::size_t to) {
  if (from != to) newText_.append(text_, from, to - from);
}

void KeptText::writePiece(Piece& piece, int index, FeatureText& featureText) {
  const std::size_t before = newText_.size();
  const bool lasts = writeFeature(piece.feature, index, featureText);
  piece.changeCount = lasts ? piece.feature->changeCount() : kNotKept;
  piece.length = newText_.size() - before;
}

// True when the text will be the same until the feature changes.
bool KeptText::writeFeature(DriverFeature* feature, int index, FeatureText& featureText) {
  const TextDialect& dialect = featureText.dialect();
  if (feature == nullptr) {
    logMissingFeature(index);
    return false;
  }
  if (featureText.isInGroup(*feature)) {
    if (!dialect.logsFeatureInGroup) return featureText.isKnown(*feature);
    logComposed(Level::kInformation, "serialize() - Feature {} is in a group",
                toDecimalText(index));
    return false;
  }
  if (const std::string* command = featureText.findCommand(*feature)) {
    return featureText.append(*feature, *command, newText_);
  }
  if (const std::string* routine = featureText.findRoutine(*feature)) {
    runRoutine(*routine, dialect);
    return false;
  }
  return featureText.isKnown(*feature);
}

void KeptText::runRoutine(const std::string& name, const TextDialect& dialect) {
  if (runTextRoutine(name, newText_)) {
    routineHasRun_ = true;
  } else {
    logComposed(Level::kMisuse, dialect.featureRoutineMissing, name);
  }
}

void KeptText::writeGroups(DriverFeatureSet& set, FeatureText& featureText) {
  std::string piece;
  for (int i = 0; i < set.fetchNumberOfStaticGroups(); ++i) {
    if (DriverFeatureStaticGroup* group = set.fetchStaticGroupByIndex(i)) {
      processTextStaticGroup(*group, featureText, piece, true);
      newText_ += piece;
    } else {
      logMissingGroup(i);
    }
  }
}

}  // namespace driver_feature
