// Descriptions and requests for the tests of the translation to IPP.
#ifndef SUPPORT_IPP_SUPPORT_H_
#define SUPPORT_IPP_SUPPORT_H_

#include <cups/ipp.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/ipp/translation.h"

namespace driver_feature::ipp {

struct IppDeleter {
  void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using IppPointer = std::unique_ptr<ipp_t, IppDeleter>;

// A list with these choices, the first being chosen.
inline FeatureCapability listOf(const std::string& name, const std::vector<std::string>& choices) {
  FeatureCapability feature;
  feature.name = name;
  feature.kind = host::FeatureKind::kMultiSelect;
  feature.value = choices.front();
  for (const std::string& choice : choices) {
    feature.choices.emplace_back();
    feature.choices.back().name = choice;
  }
  return feature;
}

inline FeatureCapability wholeNumber(const std::string& name, int least, int most,
                                     const std::string& value) {
  FeatureCapability feature;
  feature.name = name;
  feature.kind = host::FeatureKind::kIntEntry;
  feature.intMin = least;
  feature.intMax = most;
  feature.value = value;
  return feature;
}

inline FeatureCapability decimalNumber(const std::string& name, float least, float most,
                                       const std::string& value) {
  FeatureCapability feature;
  feature.name = name;
  feature.kind = host::FeatureKind::kFloatEntry;
  feature.floatMin = least;
  feature.floatMax = most;
  feature.value = value;
  return feature;
}

inline FeatureCapability textOf(const std::string& name, int longest,
                                const std::string& characters = "") {
  FeatureCapability feature;
  feature.name = name;
  feature.maxTextLength = longest;
  feature.allowedCharacters = characters;
  return feature;
}

// A choice with a size in hundredths of a millimetre, and the same margin on each
// side.
inline void setSize(FeatureCapability& feature, std::size_t choice, int width, int height,
                    int margin = 423) {
  ChoiceCapability& size = feature.choices[choice];
  size.width = width;
  size.height = height;
  size.left = size.bottom = size.right = size.top = margin;
}

// A page size with A4, A5 and Letter.
inline FeatureCapability pageSizes() {
  FeatureCapability sizes = listOf("PageSize", {"A4", "A5", "Letter"});
  setSize(sizes, 0, 21000, 29700);
  setSize(sizes, 1, 14800, 21000);
  setSize(sizes, 2, 21590, 27940);
  return sizes;
}

inline Capabilities capabilitiesWith(std::vector<FeatureCapability> features) {
  Capabilities all;
  all.features = std::move(features);
  if (all.find("PageSize") != nullptr) all.sizeFeature = "PageSize";
  return all;
}

inline std::string textOf(ipp_attribute_t* attribute) {
  if (attribute == nullptr) return "(none)";
  std::vector<char> text(ippAttributeString(attribute, nullptr, 0) + 1);
  ippAttributeString(attribute, text.data(), text.size());
  return text.data();
}

// What a printer advertises as `name`.
inline std::string advertised(const Translation& translation, const std::string& name) {
  const IppPointer printer(ippNew());
  translation.addPrinterAttributes(printer.get());
  return textOf(ippFindAttribute(printer.get(), name.c_str(), IPP_TAG_ZERO));
}

// A request for a job, built attribute by attribute.
class JobRequest {
 public:
  JobRequest& keyword(const std::string& name, const std::string& word) {
    return text(name, IPP_TAG_KEYWORD, word);
  }
  JobRequest& name(const std::string& name, const std::string& word) {
    return text(name, IPP_TAG_NAME, word);
  }
  JobRequest& integer(const std::string& name, int number) {
    ippAddInteger(get(), IPP_TAG_JOB, IPP_TAG_INTEGER, name.c_str(), number);
    return *this;
  }
  JobRequest& enums(const std::string& name, const std::vector<int>& numbers) {
    ippAddIntegers(get(), IPP_TAG_JOB, IPP_TAG_ENUM, name.c_str(), static_cast<int>(numbers.size()),
                   numbers.data());
    return *this;
  }
  JobRequest& boolean(const std::string& name, bool value, ipp_tag_t group = IPP_TAG_JOB) {
    ippAddBoolean(get(), group, name.c_str(), value ? 1 : 0);
    return *this;
  }
  JobRequest& resolution(const std::string& name, int across, int down,
                         ipp_res_t unit = IPP_RES_PER_INCH) {
    ippAddResolution(get(), IPP_TAG_JOB, name.c_str(), unit, across, down);
    return *this;
  }
  JobRequest& ranges(const std::string& name, const std::vector<int>& lower,
                     const std::vector<int>& upper) {
    ippAddRanges(get(), IPP_TAG_JOB, name.c_str(), static_cast<int>(lower.size()), lower.data(),
                 upper.data());
    return *this;
  }
  JobRequest& octets(const std::string& name, const std::string& bytes) {
    ippAddOctetString(get(), IPP_TAG_OPERATION, name.c_str(), bytes.data(),
                      static_cast<int>(bytes.size()));
    return *this;
  }
  // The request owns a copy.
  JobRequest& collection(const std::string& name, const IppPointer& members) {
    ippAddCollection(get(), IPP_TAG_JOB, name.c_str(), members.get());
    return *this;
  }
  ipp_t* get() const { return request_.get(); }

 private:
  JobRequest& text(const std::string& name, ipp_tag_t tag, const std::string& word) {
    ippAddString(get(), IPP_TAG_JOB, tag, name.c_str(), nullptr, word.c_str());
    return *this;
  }

  IppPointer request_{ippNewRequest(IPP_OP_VALIDATE_JOB)};
};

// A collection with a media-size of these dimensions.
inline IppPointer mediaSize(int width, int height) {
  const IppPointer size(ippNew());
  ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", width);
  ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", height);
  IppPointer media(ippNew());
  ippAddCollection(media.get(), IPP_TAG_ZERO, "media-size", size.get());
  return media;
}

// "Duplex=None PageSize=A4"
inline std::string textOf(const std::vector<host::Setting>& settings) {
  std::string text;
  for (const host::Setting& setting : settings) {
    text += (text.empty() ? "" : " ") + setting.name + "=" + setting.value;
  }
  return text;
}

// The settings of the request; after " !" what is not supported.
inline std::string settingsFor(const Translation& translation, const JobRequest& request,
                               const std::string& preset = "") {
  const JobSettings job = translation.settingsOf(request.get(), preset);
  std::string text = textOf(job.settings);
  for (const UnsupportedAttribute& each : job.unsupported) text += " !" + each.name;
  return text;
}

}  // namespace driver_feature::ipp

#endif  // SUPPORT_IPP_SUPPORT_H_
