// The sizes of media.

#include <set>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

std::string faultOf(const host::MediaSize& size) {
  if (size.width <= 0 || size.height <= 0) return "is not above zero";
  if (size.left < 0 || size.right < 0 || size.top < 0 || size.bottom < 0) {
    return "has a margin below zero";
  }
  const bool hasRoom = size.left + size.right < size.width && size.top + size.bottom < size.height;
  return hasRoom ? "" : "has margins that leave nothing to print on";
}

void checkSizes(const AdditionSubject& subject, const FeatureRow& feature, Findings& findings) {
  const host::MediaSizes& media = subject.additions.media;
  if (!media.usual.empty() && !feature.optionSet.contains(media.usual)) {
    findings.push_back(findingAt(subject, Code::kUnknownMedia, media.place,
                                 "the default of the media sizes is an option " +
                                     host::inQuotes(media.usual) + " that feature " +
                                     host::inQuotes(media.feature) + " does not have",
                                 didYouMean(media.usual, feature.options, "remove it")));
  }
  std::set<std::string> known;
  for (const host::MediaSize& size : media.sizes) {
    const std::string option = host::inQuotes(size.option);
    if (!feature.optionSet.contains(size.option)) {
      findings.push_back(findingAt(subject, Code::kUnknownMedia, size.place,
                                   "there is a size for an option " + option + " that feature " +
                                       host::inQuotes(media.feature) + " does not have",
                                   didYouMean(size.option, feature.options, "remove it")));
    } else if (!known.insert(size.option).second) {
      findings.push_back(findingAt(subject, Code::kRepeatedSize, size.place,
                                   "option " + option + " has a size already",
                                   "remove one of the two"));
    }
    if (const std::string fault = faultOf(size); !fault.empty()) {
      findings.push_back(
          findingAt(subject, Code::kImpossibleSize, size.place,
                    std::string("the size of option ").append(option).append(" ").append(fault),
                    "give lengths in millimetres"));
    }
  }
}

}  // namespace

void checkMedia(const AdditionSubject& subject, Findings& findings) {
  const host::MediaSizes& media = subject.additions.media;
  if (media.feature.empty()) return;
  const FeatureRow* feature = subject.features.find(media.feature);
  if (feature != nullptr && feature->element->isKind(host::FeatureKind::kMultiSelect)) {
    return checkSizes(subject, *feature, findings);
  }
  const std::string name = host::inQuotes(media.feature);
  if (feature == nullptr) {
    findings.push_back(findingAt(
        subject, Code::kUnknownMedia, media.place,
        "media sizes name a feature " + name + " that does not exist",
        didYouMean(media.feature, subject.features.names(), "give the name of a feature")));
  } else {
    findings.push_back(findingAt(subject, Code::kUnknownMedia, media.place,
                                 "media sizes name feature " + name + ", which has no options",
                                 "name the feature that chooses the page size"));
  }
}

}  // namespace driver_feature::check
