#include "programs/printer/preset_attributes.h"

#include <vector>

#include "programs/printer/attribute_list.h"
#include "programs/printer/service.h"

namespace driver_feature::printer {

namespace {

std::vector<host::Setting> settingsOf(const ipp::Capabilities& all, const std::string& preset) {
  for (const ipp::PresetCapability& one : all.presets) {
    if (one.name == preset) return one.settings;
  }
  return {};
}

// The default values and, after them, those of the preset.
std::vector<host::Setting> allSettings(const ipp::Capabilities& all,
                                       const std::vector<host::Setting>& settings) {
  std::vector<host::Setting> whole;
  for (const ipp::FeatureCapability& feature : all.features) {
    std::string value = feature.value;
    for (const host::Setting& setting : settings) {
      if (setting.name == feature.name) value = setting.value;
    }
    whole.push_back({feature.name, value});
  }
  return whole;
}

// Copies the attribute as the default of what it is called.
void addDefault(ipp_t* own, ipp_attribute_t* attribute) {
  ipp_attribute_t* copy = ::ippCopyAttribute(own, attribute, 0);
  ::ippSetName(own, &copy, (std::string(::ippGetName(attribute)) + "-default").c_str());
}

// The finishings as the other attribute that says them.
void addTemplates(ipp_t* own) {
  ipp_attribute_t* finishings = ::ippFindAttribute(own, "finishings-default", IPP_TAG_ENUM);
  const int count = finishings != nullptr ? ::ippGetCount(finishings) : 0;
  ipp_attribute_t* templates = nullptr;
  for (int at = 0; at < count; ++at) {
    const char* name = ::ippEnumString("finishings", ::ippGetInteger(finishings, at));
    const IppPointer one(::ippNew(), &::ippDelete);
    ::ippAddString(one.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "finishing-template", nullptr, name);
    if (templates == nullptr) {
      templates = ::ippAddCollection(own, IPP_TAG_PRINTER, "finishings-col-default", one.get());
    } else {
      ::ippSetCollection(own, &templates, at, one.get());
    }
  }
}

}  // namespace

IppPointer presetAttributes(const Service& service, const Printer& printer,
                            const std::string& preset) {
  IppPointer own(::ippNew(), &::ippDelete);
  if (preset.empty()) return own;
  const ipp::Translation& translation = *printer.translation;
  const auto settings = settingsOf(translation.capabilities(), preset);
  const auto whole = allSettings(translation.capabilities(), settings);
  const IppPointer some(::ippNew(), &::ippDelete);
  const IppPointer all(::ippNew(), &::ippDelete);
  translation.addSettings(some.get(), IPP_TAG_PRINTER, settings);
  translation.addSettings(all.get(), IPP_TAG_PRINTER, whole);
  for (ipp_attribute_t* one = ::ippFirstAttribute(some.get()); one != nullptr;
       one = ::ippNextAttribute(some.get())) {
    // A collection says everything about the medium, not only what the preset does.
    ipp_attribute_t* complete = ::ippFindAttribute(all.get(), ::ippGetName(one), IPP_TAG_ZERO);
    addDefault(own.get(), complete != nullptr ? complete : one);
  }
  addTemplates(own.get());
  AttributeList list(own.get());
  const std::string media = translation.mediaOf(settings);
  if (!media.empty()) list.keyword("media-default", media);
  list.name("printer-name", printer.name + "-" + preset);
  list.text("printer-info", printer.name + ", " + preset);
  list.name("printer-dns-sd-name", printer.name + ", " + preset);
  list.uri("printer-uuid", service.uuidOf(printer.name + "/" + preset));
  return own;
}

}  // namespace driver_feature::printer
